// Bollinger bands: a moving average with a band of two standard deviations on each side.
#pragma once

#include <vector>

#include "analytics/chart_prices.h"
#include "base/lanes.h"

namespace vistaplot {

/// One value a chart day each, in price units; all three 0 on a day without bands.
struct BollingerBands {
  std::vector<float> upper;
  std::vector<float> middle;
  std::vector<float> lower;
};

/// The bands of day i are built from the N days before it; day i itself is not among them.
///
/// @param days  N, in market days; the N + 1 days before chart day 1 are read as history. All 0
///              when it is below 1.
///
/// A single-precision running sum S starts as the sum of the positive prices of days -1 to -N,
/// newest first. On day i, with `entering` the price of day i - 1 and `leaving` that of day
/// i - 1 - N: where both are above 0, S = S + entering - leaving, mean = S / N, and
///     dev = sqrt( sum over m = 1 to N of (P[i-m] - mean)^2  / N )
/// gives mean + 2 dev, mean, mean - 2 dev; otherwise the bands are 0 and S stays. So the sum of a
/// fund that starts less than N + 1 days before the chart is never complete, and its bands are low.
/// Every operation is rounded to single precision; the bits do not depend on `form`.
BollingerBands ComputeBollinger(const ChartPrices& prices,
                                int days,
                                LaneForm form = BestLaneForm());

}  // namespace vistaplot
