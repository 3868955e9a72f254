#include "forms/date_boxes.h"

#include <algorithm>
#include <string>

#include "base/date.h"
#include "base/number_text.h"
#include "base/text.h"
#include "marketdata/date_entry.h"

namespace vistaplot {

namespace {

/// A typed text as a note quotes it, cut where it is long.
std::string Quoted(const std::string& text) {
  constexpr std::size_t kShown = 16;
  const bool cut = CharacterCount(text) > kShown;
  return '"' + std::string(LeftCharacters(text, kShown)) + (cut ? "...\"" : "\"");
}

}  // namespace

void CheckDateEntry(TextBox& date_box,
                    TextBox& day_box,
                    const MarketCalendar& calendar,
                    Label* note) {
  const auto entry = SnapDateEntry(date_box.Text(), calendar);
  if (!entry) return;
  if (note != nullptr) {
    note->SetCaption(entry->is_date ? std::string() : Quoted(date_box.Text()) + " is no date");
  }
  day_box.SetText(std::to_string(entry->day));
  if (entry->exact) return;
  date_box.SetText(entry->text);
  date_box.Refresh();
  day_box.Refresh();
}

void ShowDateOfDay(TextBox& date_box, TextBox& day_box, const MarketCalendar& calendar) {
  if (calendar.MaxNumDays < 1) {
    date_box.SetText("");
    return;
  }
  const double typed = LeadingNumber(day_box.Text());
  const int day = RoundHalfEven(std::clamp(typed, 1.0, static_cast<double>(calendar.MaxNumDays)));
  if (day_box.Text() != std::to_string(day)) day_box.SetText(std::to_string(day));
  date_box.SetText(DateText(calendar.DateOf(day), DatePattern::kMonthDayLongYear));
}

}  // namespace vistaplot
