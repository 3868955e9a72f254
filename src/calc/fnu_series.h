// Daily series as FNU files, which the market-data service takes for issues of its own.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "base/output_file.h"
#include "marketdata/market_calendar.h"

namespace vistaplot {

/// Appends the lines of market days first_day, first_day + 1, ... with values[0], values[1], ...
void AppendFnuDays(std::string& bytes,
                   const MarketCalendar& calendar,
                   int first_day,
                   std::span<const float> values);

/// Writes a whole file: symbol and title as they are given, `values` from day 1 on. Error 6 and no
/// file where a value is no number; the host's errors.
Status WriteFnuSeries(const std::string& path,
                      std::string_view symbol,
                      std::string_view title,
                      const MarketCalendar& calendar,
                      std::span<const float> values);

// A series that moves like a fund, scaled by a factor.

/// The series of `beta` times each day's change of a fund, from `start_value` on day 1 on.
///
/// @param prices  the fund's numbers as its cells show them, one a market day; at or below -0.5: no
///                price
/// @return        as long as `prices`, in the units of `start_value`
///
/// v[i] = v[i-1] + beta v[i-1] (p[i] / p[i-1] - 1), in double, rounded to single at every day. The
/// value stays where the day before has no price, or a price of 0. Only the day before is looked
/// at: a fund that loses its price falls to -1.
std::vector<float> ComputeBetaSeries(std::span<const double> prices, float beta, float start_value);

}  // namespace vistaplot
