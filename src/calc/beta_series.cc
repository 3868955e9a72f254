#include "calc/beta_series.h"

#include <cstddef>

namespace vistaplot {
namespace {

constexpr double kHadPriceAbove = -0.5;

}  // namespace

std::vector<float> ComputeBetaSeries(std::span<const double> prices,
                                     float beta,
                                     float start_value) {
  std::vector<float> series(prices.size(), start_value);
  for (std::size_t i = 1; i < prices.size(); ++i) {
    const double before = prices[i - 1];
    const double value = series[i - 1];
    const bool moves = before > kHadPriceAbove && before != 0.0;
    series[i] = moves ? static_cast<float>(value + static_cast<double>(beta) * value *
                                                       (prices[i] / before - 1.0))
                      : series[i - 1];
  }
  return series;
}

}  // namespace vistaplot
