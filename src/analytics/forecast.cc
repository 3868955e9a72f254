#include "analytics/forecast.h"

#include <algorithm>
#include <cstddef>
#include <span>

#include "analytics/mem_power.h"
#include "analytics/memcof.h"
#include "analytics/spectrum.h"
#include "base/number_text.h"

namespace vistaplot {
namespace {

constexpr double kMostOrder = 0.4;  // of the values fitted

int OrderFor(int values, int poles) {
  const double most = kMostOrder * values;
  return most > poles ? poles : RoundHalfEven(most);
}

// The `count` prices that end at chart day `day`, newest first.
std::vector<float> NewestFirst(const ChartPrices& prices, int day, int count) {
  std::vector<float> data(static_cast<std::size_t>(count));
  for (float& value : data) value = prices.At(day--);
  return data;
}

float Predict(std::span<const float> d, std::span<const float> data) {
  float y = 0.0F;
  for (std::size_t k = 0; k < d.size(); ++k) y = y + d[k] * data[k];
  return y;
}

}  // namespace

std::vector<float> MemForecast(const ChartPrices& prices, int day, int longest_period, int poles) {
  if (longest_period < kShortestPeriod) return {};
  constexpr int kShortestCycle = 2;
  MemFit fit =
      memcof(NewestFirst(prices, day - 1, longest_period), OrderFor(longest_period, poles));
  int strongest = StrongestPeriod(kShortestCycle, longest_period, fit.d, fit.xms);

  std::vector<float> data = NewestFirst(prices, day, longest_period);
  std::vector<float> forecast;
  for (int step = 1; step <= kForecastDays; ++step) {
    const int values = std::max(strongest, kShortestPeriod);
    fit = memcof(std::span(data).first(static_cast<std::size_t>(values)), OrderFor(values, poles));
    strongest = StrongestPeriod(kShortestCycle, longest_period, fit.d, fit.xms);
    const float y = Predict(fit.d, data);
    std::shift_right(data.begin(), data.end(), 1);
    data.front() = y;
    forecast.push_back(y);
  }
  return forecast;
}

}  // namespace vistaplot
