#include "charts/builders/overlays.h"

#include <utility>

#include "analytics/ama.h"
#include "analytics/bollinger.h"
#include "analytics/ema.h"

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

}  // namespace vistaplot
