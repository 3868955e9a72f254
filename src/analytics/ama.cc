#include "analytics/ama.h"

#include <cstddef>

namespace vistaplot {

std::vector<float> ComputeAma(const ChartPrices& prices, int days) {
  if (days < 1 || prices.Days() < 1) return prices.EmptySeries();
  const auto n = static_cast<float>(days);
  const auto less_one = static_cast<float>(days - 1);
  const float alpha = 2.0F / static_cast<float>(days + 1);
  const float rest = 1.0F - alpha;
  const int first = prices.FirstPricedDay();
  std::vector<float> ama = SeededSeries(prices, first);
  const std::span<const float> chart = prices.Chart();
  float before = prices.At(first);  // the exponential average of the day before
  float average = before;
  for (auto j = static_cast<std::size_t>(first); j < chart.size(); ++j) {
    const float exponential = alpha * chart[j] + rest * before;
    average = alpha * (n * exponential - less_one * before) + rest * average;
    ama[j] = average;
    before = exponential;
  }
  return ama;
}

}  // namespace vistaplot
