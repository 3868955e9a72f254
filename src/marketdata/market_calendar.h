// The market calendar: which date each market day is. Market days count from 1.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/date.h"

namespace vistaplot {

struct MarketCalendar {
  std::int16_t MaxDays = 0;          ///< entries of the calendar
  std::int16_t MaxNumDays = 0;       ///< highest day number of histories
  std::vector<DateSerial> DayDates;  ///< date of market day d at index d, 1 to MaxDays; 0 unused

  /// Date of market day `day`; 0 for a day outside 1 to MaxDays.
  DateSerial DateOf(int day) const {
    return day >= 1 && day < static_cast<int>(DayDates.size())
               ? DayDates[static_cast<std::size_t>(day)]
               : 0;
  }
};

/// The last market day on or before `serial`, searched by halving; 0 when it lies before day 1.
int MarketDayOnOrBefore(const MarketCalendar& calendar, DateSerial serial);

/// The market day whose date is `serial`; 0 when it is none.
int MarketDayOf(const MarketCalendar& calendar, DateSerial serial);

}  // namespace vistaplot
