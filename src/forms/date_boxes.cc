#include "forms/date_boxes.h"

#include <algorithm>
#include <string>

#include "base/date.h"
#include "base/files.h"
#include "base/host_path.h"
#include "base/number_text.h"
#include "base/text.h"
#include "marketdata/market_calendar.h"

namespace vistaplot {

std::string Quoted(std::string_view text) {
  constexpr std::size_t kShown = 16;
  const bool cut = CharacterCount(text) > kShown;
  return '"' + std::string(LeftCharacters(text, kShown)) + (cut ? "...\"" : "\"");
}

std::string NoteOfWord(const TextBox& box) {
  if (WholeNumber(box.Text())) return {};
  return Quoted(box.Text()) + " counts as " +
         NumberText(static_cast<float>(LeadingNumber(box.Text())));
}

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

std::optional<std::string> ChooseSavePath(const FileRequest& request, Dialogs& dialogs) {
  const MessageRequest no_choice{
      .text = "No file selected, press OK to continue. Press cancel to select a file",
      .title = {},
      .buttons = Buttons::kOkCancel};
  do {
    auto chosen = dialogs.ChooseFileToSave(request);
    if (chosen) return chosen;
  } while (dialogs.ShowMessage(no_choice) == Answer::kCancel);
  return std::nullopt;
}

std::vector<std::string> ListSignalFiles(const SharedState& state) {
  const std::string folder = HostPath(state.market.QuotelineDir + "/SIG", state.roots);
  const auto names = ListFiles(folder, "*.SIG");
  return names ? names.Value() : std::vector<std::string>{};
}

std::vector<std::string> SignalNames(const std::vector<std::string>& file_names) {
  std::vector<std::string> names;
  names.reserve(file_names.size());
  for (const std::string& file : file_names) {
    names.push_back(PadRight(UpperCase(UpToFirstDot(file)), 8));
  }
  return names;
}

}  // namespace vistaplot
