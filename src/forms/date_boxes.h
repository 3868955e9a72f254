// Date boxes: a text box with a date beside a (hidden) box that holds its market day.
#pragma once

#include "controls/simple_controls.h"
#include "controls/value_controls.h"
#include "marketdata/market_calendar.h"

namespace vistaplot {

/// Makes a typed date valid: the date box becomes a market day's date ("mm/dd/yyyy") unless it is
/// one already, the day box its number. A text that is no date is ordered among the dates as text,
/// and `note`, a label beside the box (may be null), says so; for a date it is emptied. All stay as
/// they are when the calendar is empty.
void CheckDateEntry(TextBox& date_box,
                    TextBox& day_box,
                    const MarketCalendar& calendar,
                    Label* note = nullptr);

/// Writes the date of the day box's market day ("mm/dd/yyyy") into the date box. A day outside 1 to
/// MaxNumDays is brought into it, in both boxes; an empty calendar empties the date box.
void ShowDateOfDay(TextBox& date_box, TextBox& day_box, const MarketCalendar& calendar);

}  // namespace vistaplot
