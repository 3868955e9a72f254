#include "charts/builders/overlays.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "analytics/ama.h"
#include "analytics/bollinger.h"
#include "analytics/ema.h"
#include "base/number_text.h"
#include "charts/builders/time_periods.h"

namespace vistaplot {

namespace {

using Curves = std::vector<std::vector<float>>;

PriceOverlay AverageOverlay(int days) {
  return {.suffixes = {"e"},
          .roles = {SeriesRole::kAverage},
          .names = {"average " + std::to_string(days)},
          .curves = [days](const ChartPrices& prices) { return Curves{ComputeEma(prices, days)}; }};
}

PriceOverlay AdaptiveOverlay(int days) {
  return {.suffixes = {"a"},
          .roles = {SeriesRole::kAdaptiveAverage},
          .names = {"adaptive average " + std::to_string(days)},
          .curves = [days](const ChartPrices& prices) { return Curves{ComputeAma(prices, days)}; }};
}

PriceOverlay StopOverlay(const ParabolicSteps& steps) {
  return {.suffixes = {"p"},
          .roles = {SeriesRole::kStop},
          .names = {"parabolic stop"},
          .curves = [steps](const ChartPrices& prices) {
            return Curves{ComputeParabolic(prices, steps)};
          }};
}

PriceOverlay BandsOverlay(int days) {
  const std::string count = std::to_string(days);
  return {.suffixes = {"b1", "ba", "b2"},
          .roles = {SeriesRole::kUpperBand, SeriesRole::kMiddleBand, SeriesRole::kLowerBand},
          .names = {"upper band " + count, "middle band " + count, "lower band " + count},
          .curves = [days](const ChartPrices& prices) {
            BollingerBands bands = ComputeBollinger(prices, days);
            return Curves{std::move(bands.upper), std::move(bands.middle), std::move(bands.lower)};
          }};
}

}  // namespace

std::vector<PriceOverlay> OverlaysOf(const Indicators& indicators) {
  std::vector<PriceOverlay> overlays;
  if (indicators.average) overlays.push_back(AverageOverlay(*indicators.average));
  if (indicators.adaptive) overlays.push_back(AdaptiveOverlay(*indicators.adaptive));
  if (indicators.parabolic) overlays.push_back(StopOverlay(*indicators.parabolic));
  if (indicators.bands) overlays.push_back(BandsOverlay(*indicators.bands));
  return overlays;
}

namespace {

/// Reads counts and remembers the first one that is beyond 16 bits.
class CountReader {
 public:
  int Count(double number) {
    const Result<std::int16_t> count = ToInt16(number);
    if (!count && !error_) error_ = count.Error();
    return count ? count.Value() : 0;
  }

  std::optional<int> Count(const std::optional<double>& number) {
    return number ? std::optional<int>(Count(*number)) : std::nullopt;
  }

  const std::optional<RuntimeError>& Error() const { return error_; }

 private:
  std::optional<RuntimeError> error_;
};

Result<std::int16_t> LookbackOf(const IndicatorNumbers& numbers) {
  std::vector<double> periods;
  if (numbers.mem) periods.push_back(numbers.mem->longest_period);
  if (numbers.hurst) periods.push_back(numbers.hurst->days);
  for (const auto& days : {numbers.average, numbers.adaptive, numbers.bands, numbers.correlation}) {
    if (days) periods.push_back(*days);
  }
  return LookbackDaysFor(periods);
}

}  // namespace

Result<Indicators> CountsOf(const IndicatorNumbers& numbers) {
  const Result<std::int16_t> lookback = LookbackOf(numbers);
  if (!lookback) return lookback.Error();
  CountReader reader;
  Indicators indicators{.average = reader.Count(numbers.average),
                        .adaptive = reader.Count(numbers.adaptive),
                        .parabolic = numbers.parabolic,
                        .bands = reader.Count(numbers.bands),
                        .hurst = {},
                        .correlation = reader.Count(numbers.correlation),
                        .mem = {},
                        .LookbackDays = lookback.Value()};
  if (numbers.hurst) {
    indicators.hurst = {.window = reader.Count(numbers.hurst->days),
                        .subdivisions = reader.Count(numbers.hurst->subperiods)};
  }
  if (numbers.mem) {
    indicators.mem = {.longest_period = reader.Count(numbers.mem->longest_period),
                      .poles = reader.Count(numbers.mem->poles)};
  }
  if (reader.Error()) return *reader.Error();
  return indicators;
}

}  // namespace vistaplot
