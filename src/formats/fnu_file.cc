#include "formats/fnu_file.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

#include "base/number_text.h"
#include "base/text.h"
#include "formats/text_lines.h"

namespace vistaplot {

namespace {

constexpr std::size_t kLongestSymbol = 5;

bool IsGraphic(char c) {
  return c > ' ' && c < 127;
}

std::string_view NextLine(std::string_view& bytes) {
  return bytes.empty() ? std::string_view{} : TakeLine(bytes);
}

// The first field of the next line.
std::string_view NextText(std::string_view& bytes) {
  std::string_view line = NextLine(bytes);
  return TrimWhite(TakeField(line));
}

std::optional<FnuValue> ParseValueLine(std::string_view line) {
  const auto date = ParseDate(TakeField(line));
  const auto value = WholeNumber(TakeField(line));
  if (!date || !value) return std::nullopt;
  const auto single = static_cast<float>(*value);
  if (!std::isfinite(single)) return std::nullopt;
  return FnuValue{.date = *date, .value = single};
}

RuntimeError Broken(std::string_view name, int line, std::string text) {
  return {.number = kErrorTypeMismatch,
          .description = std::move(text),
          .subject = std::string(name) + ":" + std::to_string(line)};
}

}  // namespace

Result<FnuFile> ParseFnuFile(std::string_view name, std::string_view bytes) {
  FnuFile file;
  const std::string_view symbol = NextText(bytes);
  if (symbol.empty()) return Broken(name, 1, "no symbol");
  if (symbol.size() > kLongestSymbol || !std::all_of(symbol.begin(), symbol.end(), IsGraphic)) {
    return Broken(name, 1, "the symbol is not 1 to 5 characters without blanks");
  }
  file.symbol = UpperCase(symbol);
  file.title = Utf8FromWindows1252(NextText(bytes));
  for (int line_number = 3; !bytes.empty(); ++line_number) {
    const std::string_view line = TakeLine(bytes);
    if (TrimWhite(line).empty()) continue;
    const auto value = ParseValueLine(line);
    if (!value) return Broken(name, line_number, "no date and value");
    file.values.push_back(*value);
  }
  if (file.values.empty()) return Broken(name, 3, "no line with a date and a value");
  return file;
}

FnuTitle ReadFnuTitle(std::string_view bytes) {
  FnuTitle titles;
  titles.symbol = UpperCase(Utf8FromWindows1252(NextText(bytes)));
  titles.title = Utf8FromWindows1252(NextText(bytes));
  return titles;
}

void AppendFnuTitle(std::string& bytes, std::string_view symbol, std::string_view title) {
  bytes += Windows1252FromUtf8(symbol);
  bytes += "\r\n";
  bytes += Windows1252FromUtf8(title);
  bytes += "\r\n";
}

void AppendFnuValue(std::string& bytes, const FnuValue& value) {
  bytes += '"';
  AppendDateText(bytes, value.date, DatePattern::kMonthDayLongYear);
  bytes += "\",";
  AppendNumberText(bytes, value.value);
  bytes += ",0\r\n";
}

}  // namespace vistaplot
