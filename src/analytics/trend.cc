#include "analytics/trend.h"

#include <cstddef>

namespace vistaplot {

std::vector<float> ComputeTrend(const ChartPrices& prices, std::span<const float> periods) {
  std::vector<float> trend = prices.EmptySeries();
  for (int day = 1; day <= prices.Days(); ++day) {
    const float period = periods[static_cast<std::size_t>(day - 1)];
    float sum = 0.0F;
    for (int j = 1; j <= static_cast<int>(period); ++j) sum = sum + prices.At(day - j);
    if (period >= 1.0F) trend[static_cast<std::size_t>(day - 1)] = sum / period;
  }
  return trend;
}

}  // namespace vistaplot
