#include "analytics/ema.h"

#include <cstddef>

namespace vistaplot {

std::vector<float> ComputeEma(const ChartPrices& prices, int days) {
  if (days < 1 || prices.Days() < 1) return prices.EmptySeries();
  const float alpha = 2.0F / static_cast<float>(days + 1);
  const float rest = 1.0F - alpha;
  const int first = prices.FirstPricedDay();
  std::vector<float> ema = SeededSeries(prices, first);
  const std::span<const float> chart = prices.Chart();
  float average = prices.At(first);
  for (auto j = static_cast<std::size_t>(first); j < chart.size(); ++j) {
    average = alpha * chart[j] + rest * average;
    ema[j] = average;
  }
  return ema;
}

}  // namespace vistaplot
