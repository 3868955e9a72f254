// The overlays of a price chart: what is drawn beside each fund's prices, and in which order.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "analytics/chart_prices.h"
#include "charts/builders/indicators.h"
#include "charts/view/chart_facts.h"

namespace vistaplot {

/// A kind of curves drawn beside every fund's price.
struct PriceOverlay {
  /// What follows the symbol in the legend ("e"), one entry a curve. The third curve of three is
  /// drawn in the first one's colour.
  std::vector<std::string> suffixes;

  /// What each curve is, for drawing and read-out, and its name behind the symbol ("average 50"),
  /// one entry a curve.
  std::vector<SeriesRole> roles;
  std::vector<std::string> names;

  /// The curves of one fund in price units, one a suffix, a value a chart day, chart day 1 first.
  /// The overlay starts on the first day on which its first two curves (its only one) are not 0;
  /// that day and those before it stay empty.
  std::function<std::vector<std::vector<float>>(const ChartPrices&)> curves;
};

/// The ticked overlays in the order of their columns: exponential average, adaptive average,
/// parabolic stop, bands.
std::vector<PriceOverlay> OverlaysOf(const Indicators& indicators);

}  // namespace vistaplot
