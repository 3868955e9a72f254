// The market calendar: which date each market day is. Market days count from 1.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
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

// The market day that a typed date stands for: what the boxes for dates accept and turn it into.

/// A date box and the day box beside it, after a date was typed.
struct DateEntry {
  int day = 0;           ///< market day, 1 to MaxNumDays
  std::string text;      ///< the date box: as typed when `exact`, else the day's "mm/dd/yyyy"
  bool exact = false;    ///< the typed date is that market day's; the date box stays as it is
  bool is_date = false;  ///< false: the typed text is no date at all
};

/// The first market day on or after the typed date; the last one for a later date. A text that is
/// no date is ordered as text among the days written "yyyy/mm/dd", and so finds a day as well.
/// Nothing when the calendar holds no day: both boxes stay as they are.
std::optional<DateEntry> SnapDateEntry(std::string_view typed, const MarketCalendar& calendar);

}  // namespace vistaplot
