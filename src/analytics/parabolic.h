// The parabolic stop: a stop price that follows a trend ever faster and reverses when it is hit.
#pragma once

#include <vector>

#include "analytics/chart_prices.h"

namespace vistaplot {

/// How fast the stop follows, as fractions of its distance to the trend's extreme price.
struct ParabolicSteps {
  float start = 0.02F;       ///< factor of a new trend
  float most = 0.2F;         ///< the factor grows no further than this
  float increase = 0.0001F;  ///< growth of the factor at each new extreme
};

/// Stop-and-reverse on closing prices alone; starts at the first chart day with a price.
///
/// @return  one stop a chart day in price units: kNoPriceYetMark before the first price, that price
///          on its day. The stop of day j + 1 looks at the price P of day j:
///            - a new extreme of the trend (above it while long, below it while short) becomes the
///              extreme, and the factor grows by `increase`, up to `most`;
///            - P at or beyond the stop reverses the trend: the stop becomes the extreme, P the new
///              extreme, and the factor `start`;
///            - otherwise stop[j+1] = stop[j] + factor (extreme - stop[j]).
///
/// The trend starts long when the second price is at least the first. As the first stop is the
/// first price itself, the first step always reverses it. Every operation is rounded to single.
/// Source: the stop-and-reverse of Wilder, New Concepts in Technical Trading Systems (1978),
/// without highs and lows of the day.
std::vector<float> ComputeParabolic(const ChartPrices& prices, const ParabolicSteps& steps);

}  // namespace vistaplot
