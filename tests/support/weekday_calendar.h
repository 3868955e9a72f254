// A market calendar of all Mondays to Fridays from Monday, 1 January 1990, on.
#pragma once

#include "base/date.h"
#include "marketdata/market_calendar.h"

namespace vistaplot {

inline MarketCalendar WeekdayCalendar(int days) {
  const DateSerial monday = SerialFromDate({.year = 1990, .month = 1, .day = 1});
  MarketCalendar calendar;
  calendar.MaxDays = static_cast<std::int16_t>(days);
  calendar.MaxNumDays = calendar.MaxDays;
  calendar.DayDates.assign(1, 0);
  for (int i = 0; i < days; ++i) calendar.DayDates.push_back(monday + i / 5 * 7 + i % 5);
  return calendar;
}

}  // namespace vistaplot
