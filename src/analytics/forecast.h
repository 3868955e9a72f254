// The maximum-entropy forecast of the days behind a chart day.
#pragma once

#include <vector>

#include "analytics/chart_prices.h"

namespace vistaplot {

inline constexpr int kForecastDays = 10;

/// The predicted prices of the kForecastDays days after chart day `day`, the next one first.
///
/// @param longest_period  P, values read and longest cycle looked for, in market days
/// @param poles           highest order of the model
/// @return                nothing when P is below kShortestPeriod
///
/// A first scan fits the P prices that end the day before `day`, newest first, and takes the
/// strongest cycle of 2 to P days. Then each step takes the P newest values (ending at `day`), fits
/// the newest n of them, n the strongest cycle but at least 8, looks for the strongest cycle again,
/// predicts y = sum over k of d[k] times the k-th newest value, and puts y in front. The order of a
/// fit to n values is `poles`, but at most 0.4 n (to the nearest, halves to even). With `poles`
/// below 1 every prediction is 0. Prices outside the history count as 0; single precision.
std::vector<float> MemForecast(const ChartPrices& prices, int day, int longest_period, int poles);

}  // namespace vistaplot
