#include "formats/signal_file.h"

#include <array>
#include <optional>

#include "base/text.h"
#include "formats/text_lines.h"

namespace vistaplot {

namespace {

/// A line of the usual form, "B,05/05/1980", which needs no fields to be cut.
std::optional<Signal> PlainSignal(std::string_view line) {
  constexpr std::string_view kForm = "?,00/00/0000";
  if (line.size() != kForm.size()) return std::nullopt;
  std::array<int, 8> digits{};
  std::size_t count = 0;
  for (std::size_t i = 1; i < kForm.size(); ++i) {
    const bool is_digit = line[i] >= '0' && line[i] <= '9';
    if (kForm[i] == '0' ? !is_digit : line[i] != kForm[i]) return std::nullopt;
    if (is_digit) digits[count++] = line[i] - '0';
  }
  const CivilDate date{.year = digits[4] * 1000 + digits[5] * 100 + digits[6] * 10 + digits[7],
                       .month = digits[0] * 10 + digits[1],
                       .day = digits[2] * 10 + digits[3]};
  if (!IsValidDate(date)) return std::nullopt;
  return Signal{.is_in = line[0] == 'B', .date = SerialFromDate(date)};
}

}  // namespace

SignalFile ParseSignalFile(std::string_view bytes) {
  SignalFile file;
  if (bytes.empty()) return file;
  std::string_view title = TakeLine(bytes);
  file.title = Utf8FromWindows1252(TakeField(title));
  while (!bytes.empty()) {
    std::string_view line = TakeLine(bytes);
    if (const auto plain = PlainSignal(line)) {
      file.signals.push_back(*plain);
      continue;
    }
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

std::vector<std::string> ParseSignalFamily(std::string_view bytes) {
  std::vector<std::string> entries;
  while (!bytes.empty()) {
    std::string_view line = TakeLine(bytes);
    const std::string_view entry = TakeField(line);
    if (!TrimBlanks(entry).empty()) entries.push_back(Utf8FromWindows1252(entry));
  }
  return entries;
}

std::string SignalFamilyBytes(std::span<const std::string> entries) {
  std::string bytes;
  for (const std::string& entry : entries) {
    bytes += '"';
    bytes += Windows1252FromUtf8(entry);
    bytes += "\"\r\n";
  }
  return bytes;
}

}  // namespace vistaplot
