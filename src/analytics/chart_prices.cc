#include "analytics/chart_prices.h"

#include <algorithm>

namespace vistaplot {

std::vector<float> ChartPrices::Copy(int first_day, float outside, std::size_t spare) const {
  const auto wanted = static_cast<std::size_t>(std::max(Days() - first_day + 1, 0));
  const int first_held = 1 - history;
  const auto missing =
      std::min(static_cast<std::size_t>(std::max(first_held - first_day, 0)), wanted);
  std::vector<float> copy(wanted + spare, 0.0F);
  std::fill_n(copy.begin(), missing, outside);
  const auto held = values.last(wanted - missing);
  std::copy(held.begin(), held.end(), copy.begin() + static_cast<std::ptrdiff_t>(missing));
  return copy;
}

std::vector<float> SeededSeries(const ChartPrices& prices, int first_priced_day) {
  std::vector<float> series = prices.EmptySeries();
  std::fill_n(series.begin(), first_priced_day - 1, kNoPriceYetMark);
  series[static_cast<std::size_t>(first_priced_day - 1)] = prices.At(first_priced_day);
  return series;
}

}  // namespace vistaplot
