#include "quoteline/fnu_file.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "base/number_text.h"
#include "base/text.h"
#include "quoteline/symbol.h"

namespace vistaplot {

namespace {

bool IsGraphic(char c) {
  return c > ' ' && c < 127;
}

// Takes the next line off the front of `bytes`; lines end with CR LF, LF or CR.
std::string_view TakeLine(std::string_view& bytes) {
  const std::size_t end = bytes.find_first_of("\r\n");
  const std::string_view line = bytes.substr(0, end);
  if (end == std::string_view::npos) {
    bytes = {};
  } else {
    bytes.remove_prefix(end + (bytes.substr(end, 2) == "\r\n" ? 2 : 1));
  }
  return line;
}

// Takes the next comma-delimited field off the front of `line`, without quotes around it.
std::string_view TakeField(std::string_view& line) {
  line = TrimWhite(line);
  std::string_view field;
  if (line.starts_with('"')) {
    const std::size_t quote = line.find('"', 1);
    field = line.substr(1, quote == std::string_view::npos ? quote : quote - 1);
    line.remove_prefix(quote == std::string_view::npos ? line.size() : quote);
  } else {
    field = TrimWhite(line.substr(0, line.find(',')));
  }
  const std::size_t comma = line.find(',');
  line = comma == std::string_view::npos ? std::string_view{} : line.substr(comma + 1);
  return field;
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
  std::string_view first = TakeLine(bytes);
  const std::string_view symbol = TrimWhite(TakeField(first));
  const auto key = KeyOf(symbol);
  if (symbol.empty()) return Broken(name, 1, "no symbol");
  if (!key || !std::all_of(symbol.begin(), symbol.end(), IsGraphic)) {
    return Broken(name, 1, "the symbol is not 1 to 5 characters without blanks");
  }
  file.symbol = SymbolText(*key);
  std::string_view second = TakeLine(bytes);
  file.title = Utf8FromWindows1252(TakeField(second));
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

}  // namespace vistaplot
