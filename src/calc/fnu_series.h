// Daily series as FNU files, which the market-data service takes for issues of its own.
#pragma once

#include <span>
#include <string_view>

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

}  // namespace vistaplot
