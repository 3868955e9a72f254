#include "formats/signal_file.h"

#include "base/text.h"
#include "formats/text_lines.h"

namespace vistaplot {

SignalFile ParseSignalFile(std::string_view bytes) {
  SignalFile file;
  if (bytes.empty()) return file;
  std::string_view title = TakeLine(bytes);
  file.title = Utf8FromWindows1252(TakeField(title));
  while (!bytes.empty()) {
    std::string_view line = TakeLine(bytes);
    const bool is_in = TakeField(line) == "B";
    if (const auto date = ParseDate(TakeField(line))) {
      file.signals.push_back({.is_in = is_in, .date = *date});
    }
  }
  return file;
}

void AppendSignalTitle(std::string& bytes, std::string_view title) {
  bytes += '"';
  bytes += Windows1252FromUtf8(title);
  bytes += "\"\r\n";
}

void AppendSignal(std::string& bytes, const Signal& signal) {
  bytes += signal.is_in ? "B," : "S,";
  AppendDateText(bytes, signal.date, DatePattern::kMonthDayLongYear);
  bytes += "\r\n";
}

}  // namespace vistaplot
