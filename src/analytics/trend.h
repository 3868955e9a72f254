// The trend of a maximum-entropy chart: the average price over each day's strongest cycle.
#pragma once

#include <span>
#include <vector>

#include "analytics/chart_prices.h"

namespace vistaplot {

/// One value a chart day in price units: the mean of the `periods[i - 1]` prices before day i,
/// newest first, each sum rounded to single precision; 0 where the period is below 1. Prices count
/// as they are, missing ones (-1) too.
///
/// @param periods  whole market days, one a chart day
std::vector<float> ComputeTrend(const ChartPrices& prices, std::span<const float> periods);

}  // namespace vistaplot
