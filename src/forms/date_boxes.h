// Date boxes: a text box with a date beside a (hidden) box that holds its market day.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/dialogs.h"
#include "controls/value_controls.h"
#include "forms/shared_state.h"
#include "marketdata/market_calendar.h"

namespace vistaplot {

/// A typed text as a note beside its box quotes it, cut where it is long.
std::string Quoted(std::string_view text);

/// What a note says of a box whose text is not a number as a whole: "abc" counts as 0. Empty for a
/// number.
std::string NoteOfWord(const TextBox& box);

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

// Choosing the name of a file to write, as the calculations screen does it everywhere.

/// Shows the save dialog until the user chooses a file, or gives up: the path, or nothing.
std::optional<std::string> ChooseSavePath(const FileRequest& request, Dialogs& dialogs);

// The signal files that the calculations screen offers.

/// File names "*.SIG" of the SIG folder of the service's directory, ascending; none when the folder
/// is missing.
std::vector<std::string> ListSignalFiles(const SharedState& state);

/// Each file name up to its first ".", in upper case, cut or padded to 8 characters.
std::vector<std::string> SignalNames(const std::vector<std::string>& file_names);

}  // namespace vistaplot
