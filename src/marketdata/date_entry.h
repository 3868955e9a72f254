// The market day that a typed date stands for: what the boxes for dates accept and turn it into.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "marketdata/market_calendar.h"

namespace vistaplot {

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
