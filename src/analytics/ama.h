// The adaptive moving average of daily prices, which follows turns faster than an exponential one.
#pragma once

#include <vector>

#include "analytics/chart_prices.h"

namespace vistaplot {

/// Adaptive moving average that starts at the first chart day with a price and needs no history.
///
/// @param days  averaging length N in market days
/// @return      one value a chart day in price units: kNoPriceYetMark before the first price, that
///              price on its day, then, with a = 2 / (N + 1) and E the exponential average
///              E[j] = a P[j] + (1 - a) E[j-1] that starts at the same price,
///                  m[j] = a (N E[j] - (N - 1) E[j-1]) + (1 - a) m[j-1].
///              All 0 when `days` is below 1.
///
/// The average smooths E plus N - 1 times its latest change. Every operation is rounded to single
/// precision, from left to right.
std::vector<float> ComputeAma(const ChartPrices& prices, int days);

}  // namespace vistaplot
