#include "charts/builders/overlays.h"

#include "analytics/ama.h"
#include "analytics/bollinger.h"
#include "analytics/ema.h"

namespace vistaplot {

std::vector<PriceOverlay> OverlaysOf(const Indicators& indicators) {
  using Curves = std::vector<std::vector<float>>;
  std::vector<PriceOverlay> overlays;
  if (indicators.average) {
    overlays.push_back(
        {.suffixes = {"e"}, .curves = [days = *indicators.average](const ChartPrices& prices) {
           return Curves{ComputeEma(prices, days)};
         }});
  }
  if (indicators.adaptive) {
    overlays.push_back(
        {.suffixes = {"a"}, .curves = [days = *indicators.adaptive](const ChartPrices& prices) {
           return Curves{ComputeAma(prices, days)};
         }});
  }
  if (indicators.parabolic) {
    overlays.push_back(
        {.suffixes = {"p"}, .curves = [steps = *indicators.parabolic](const ChartPrices& prices) {
           return Curves{ComputeParabolic(prices, steps)};
         }});
  }
  if (indicators.bands) {
    overlays.push_back(
        {.suffixes = {"b1", "ba", "b2"},
         .curves = [days = *indicators.bands](const ChartPrices& prices) {
           BollingerBands bands = ComputeBollinger(prices, days);
           return Curves{std::move(bands.upper), std::move(bands.middle), std::move(bands.lower)};
         }});
  }
  return overlays;
}

}  // namespace vistaplot
