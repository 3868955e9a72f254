// The rolling correlation of the daily returns of two funds.
#pragma once

#include <vector>

#include "analytics/chart_prices.h"
#include "base/lanes.h"

namespace vistaplot {

/// Correlation over N returns that end two days before the day that shows it.
///
/// @param first, second  two funds over the same chart days with the same history
/// @param days           N, in market days; N + 1 days before chart day 1 are read as history
/// @return  one value a chart day, from -1 to 1 but for rounding. Day 1 is 0.5 when the history has
///          N days or more; with less history the days before N - history + 2 are 0. kNoValue on
///          every day when `days` is below 1, and on a day with a missing return among its N.
///
/// A return is P[d] / P[d-1] - 1; it is missing where one of the two prices is 0 or below. With x
/// the returns of `second` and y those of `first` on days i - N - 1 to i - 2, oldest first,
///     c = (N Sxy - Sx Sy) / d,  d = sqrt( (N Syy - Sy Sy) (N Sxx - Sx Sx) )
/// where d is above 0, else 1: funds without spread count as one. Every operation is rounded to
/// single precision; the bits do not depend on `form`.
/// Source: Pearson's product-moment coefficient in its one-pass form.
std::vector<float> ComputeCorrelation(const ChartPrices& first,
                                      const ChartPrices& second,
                                      int days,
                                      LaneForm form = BestLaneForm());

}  // namespace vistaplot
