// The exponential moving average of daily prices.
#pragma once

#include <vector>

#include "analytics/chart_prices.h"

namespace vistaplot {

/// Exponential moving average that starts at the first chart day with a price and needs no history.
///
/// @param days  averaging length in market days
/// @return      one value a chart day in price units: kNoPriceYetMark before the first price, that
///              price on its day, then e[j] = a P[j] + (1 - a) e[j-1] with a = 2 / (days + 1).
///              All 0 when `days` is below 1.
///
/// Every operation is rounded to single precision. Prices behind the first are used as they are,
/// missing ones (-1) too.
/// Source: NIST/SEMATECH e-Handbook of Statistical Methods, section 6.4.3.1.
std::vector<float> ComputeEma(const ChartPrices& prices, int days);

}  // namespace vistaplot
