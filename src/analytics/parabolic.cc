#include "analytics/parabolic.h"

#include <cstddef>

namespace vistaplot {
namespace {

struct Stop {
  float stop = 0.0F;
  float extreme = 0.0F;
  float factor = 0.0F;
  bool is_long = true;

  // From the stop of a day to that of the next one, by the day's price.
  void Step(float price, const ParabolicSteps& steps) {
    if (is_long ? price > extreme : price < extreme) {
      factor = factor + steps.increase > steps.most ? steps.most : factor + steps.increase;
      extreme = price;
    }
    if (is_long ? price <= stop : price >= stop) {
      stop = extreme;
      extreme = price;
      factor = steps.start;
      is_long = !is_long;
    } else {
      stop = stop + factor * (extreme - stop);
    }
  }
};

}  // namespace

std::vector<float> ComputeParabolic(const ChartPrices& prices, const ParabolicSteps& steps) {
  if (prices.Days() < 1) return {};
  const int first = prices.FirstPricedDay();
  std::vector<float> stops = SeededSeries(prices, first);
  const std::span<const float> chart = prices.Chart();
  const float price = prices.At(first);
  Stop state{.stop = price,
             .extreme = price,
             .factor = steps.start,
             .is_long = prices.At(first + 1) >= price};
  for (auto j = static_cast<std::size_t>(first); j < chart.size(); ++j) {
    state.Step(chart[j - 1], steps);
    stops[j] = state.stop;
  }
  return stops;
}

}  // namespace vistaplot
