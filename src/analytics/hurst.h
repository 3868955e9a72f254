// The rolling Hurst exponent of daily prices by rescaled-range analysis.
#pragma once

#include <vector>

#include "analytics/chart_prices.h"
#include "base/lanes.h"

namespace vistaplot {

struct HurstSettings {
  int window = 100;      ///< T, returns looked at, in market days
  int subdivisions = 5;  ///< S, how many ways of cutting the window are tried

  /// Every subperiod has a return, and not all are equally long: a slope needs two lengths.
  bool MakeSense() const {
    return subdivisions >= 1 && window > subdivisions && window / 2 != window / (subdivisions + 1);
  }
};

struct HurstSeries {
  /// One exponent a chart day: 0 on a day whose window begins with a missing return, kNoValue
  /// everywhere when the settings make no sense.
  std::vector<float> values;
  /// ln(average rescaled range) as the last cut left it: a cut without any spread takes over that
  /// of the cut before, over days and funds alike. The next fund starts from it.
  float last_y = 0.0F;
};

/// Exponents of one fund; the window of day i is the T returns before the return of day i.
///
/// @param y  last_y of the fund before, 0 for the first one
///
/// R[d] = ln(P[d] / P[d-1]); where one of the prices is 0 or below it is the missing mark -99,
/// which only the window's oldest return is looked at for. For k = 1 to S the window is cut, newest
/// return first, into m = k + 1 subperiods of n = floor(T / m) returns. With c the running sum of
/// R - mean within a subperiod, newest first,
///     rs  = sum over the subperiods with dev not 0 of (max c - min c) / dev
///     dev = sqrt( sum (R - mean)^2 / n ),  y = ln(rs / m) where rs is not 0,  x = ln n
///     h   = (S Sxy - Sx Sy) / (S Sxx - Sx Sx)
/// the least-squares slope of y against x. Every operation is rounded to single precision,
/// logarithms are taken in double and rounded; the bits do not depend on `form`.
/// Source: Mandelbrot and Wallis, Robustness of the rescaled range R/S (1969).
HurstSeries ComputeHurst(const ChartPrices& prices,
                         const HurstSettings& settings,
                         float y,
                         LaneForm form = BestLaneForm());

}  // namespace vistaplot
