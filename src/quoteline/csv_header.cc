#include "quoteline/csv_header.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "quoteline/csv_line.h"
#include "quoteline/symbol.h"

namespace vistaplot {

namespace {

constexpr std::string_view kDelimiters = ",;\t";
constexpr std::array<std::string_view, 3> kPriceColumns = {"Close", "NAV", "Price"};
constexpr std::string_view kAdjustedColumn = "Adj Close";
// Columns of downloads that are no symbols: a file of these alone lacks the price it came for.
constexpr std::array<std::string_view, 8> kForeignColumns = {
    "Open", "High", "Low", "Volume", "Vol", "Value", "Units", "Split"};

bool LooksBinary(std::string_view bytes) {
  constexpr std::size_t kLookedAt = 1U << 16U;
  const std::string_view head = bytes.substr(0, kLookedAt);
  return std::any_of(head.begin(), head.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 9 || (byte > 13 && byte < 32 && byte != 26 && byte != 27);
  });
}

std::string ForeignContent(std::string_view bytes) {
  if (TrimWhite(bytes).empty()) return "is empty, not a price file";
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
    return "is UTF-16 text, not a price file; save it as UTF-8 first";
  }
  if (LooksBinary(bytes)) return "is a binary file, not a price file";
  if (TrimWhite(bytes).starts_with('<')) return "is a web page, not a price file";
  return {};
}

// The delimiter that stands most often in the header line, quoted fields left out.
char DelimiterOf(std::string_view line) {
  std::array<std::size_t, kDelimiters.size()> counts{};
  bool quoted = false;
  for (const char c : line) {
    if (c == '"') quoted = !quoted;
    const std::size_t kind = kDelimiters.find(c);
    if (!quoted && kind != std::string_view::npos) ++counts[kind];
  }
  const auto most = std::max_element(counts.begin(), counts.end());
  return kDelimiters[static_cast<std::size_t>(most - counts.begin())];
}

std::size_t FindColumn(const std::vector<std::string>& names, std::string_view wanted) {
  const auto found = std::find_if(names.begin(), names.end(), [wanted](const std::string& name) {
    return EqualsIgnoringCase(name, wanted);
  });
  return found == names.end() ? CsvHeader::kNoColumn
                              : static_cast<std::size_t>(found - names.begin());
}

std::size_t FindPriceColumn(const std::vector<std::string>& names, bool adjusted) {
  if (adjusted) return FindColumn(names, kAdjustedColumn);
  for (const std::string_view wanted : kPriceColumns) {
    const std::size_t column = FindColumn(names, wanted);
    if (column != CsvHeader::kNoColumn) return column;
  }
  return CsvHeader::kNoColumn;
}

bool HasForeignColumn(const std::vector<std::string>& names) {
  return std::any_of(kForeignColumns.begin(), kForeignColumns.end(), [&](std::string_view name) {
    return FindColumn(names, name) != CsvHeader::kNoColumn;
  });
}

// An issue may be called NAV: among capital symbols alone such a column is one of them.
bool IsWide(const std::vector<std::string>& names) {
  constexpr std::size_t kFewest = 3;  // the date, and two issues
  if (names.size() < kFewest || HasForeignColumn(names)) return false;
  return std::all_of(names.begin(), names.end(), [](const std::string& name) {
    return EqualsIgnoringCase(name, "Date") || SymbolFromText(name) == name;
  });
}

void ReadWideSymbols(const std::vector<std::string>& names, CsvHeader& header) {
  for (std::size_t i = 0; i < names.size() && header.refusal.empty(); ++i) {
    if (i == header.date) {
      header.symbols.emplace_back();
      continue;
    }
    const auto symbol = SymbolFromText(names[i]);
    if (!symbol) {
      header.refusal = "column " + ShownField(names[i]) +
                       " of its header is no symbol (1 to 5 letters, digits, $ ^ . -)";
    } else if (std::find(header.symbols.begin(), header.symbols.end(), *symbol) !=
               header.symbols.end()) {
      header.refusal = "symbol " + *symbol + " stands twice in its header";
    } else {
      header.symbols.push_back(*symbol);
    }
  }
}

// A header without a price column of its own: of a wide file, or of none.
void ReadAsWide(const std::vector<std::string>& names, bool adjusted, CsvHeader& header) {
  header.form = CsvForm::kWide;
  if (adjusted) {
    header.refusal = "has no column \"Adj Close\", which --adjusted takes";
  } else if (FindColumn(names, kAdjustedColumn) != CsvHeader::kNoColumn) {
    header.refusal = "has no price column but \"Adj Close\"; --adjusted takes that";
  } else if (header.symbol != CsvHeader::kNoColumn || HasForeignColumn(names) || names.size() < 2) {
    header.refusal = "has no price column (Close, NAV or Price) in its header";
  } else {
    ReadWideSymbols(names, header);
  }
}

}  // namespace

std::size_t SkipPreamble(std::string_view& bytes, std::optional<char>& delimiter) {
  constexpr std::string_view kSeparator = "sep=";
  std::size_t lines = 0;
  while (true) {
    const std::size_t end = bytes.find_first_of("\r\n");
    if (end == std::string_view::npos) return lines;
    const std::string_view line = bytes.substr(0, end);
    if (line.size() == kSeparator.size() + 1 &&
        EqualsIgnoringCase(line.substr(0, kSeparator.size()), kSeparator)) {
      delimiter = line.back();
    } else if (!TrimWhite(line).empty()) {
      return lines;
    }
    bytes.remove_prefix(end + (bytes.substr(end, 2) == "\r\n" ? 2 : 1));
    ++lines;
  }
}

CsvHeader ReadCsvHeader(std::string_view bytes, bool adjusted, std::optional<char> delimiter) {
  CsvHeader header;
  header.refusal = ForeignContent(bytes);
  if (!header.refusal.empty()) return header;
  const std::string_view line = bytes.substr(0, bytes.find_first_of("\r\n"));
  header.delimiter = delimiter.value_or(DelimiterOf(line));
  std::vector<std::string> names;
  CsvCursor cursor(line, header.delimiter);
  while (!cursor.AtLineEnd()) names.emplace_back(cursor.NextField());
  // Spreadsheets leave delimiters behind the last column.
  while (!names.empty() && names.back().empty()) names.pop_back();
  header.columns = names.size();
  header.date = FindColumn(names, "Date");
  if (header.date == CsvHeader::kNoColumn) {
    header.refusal = "is not a price file: its first line names no column \"Date\"";
    return header;
  }
  header.symbol = FindColumn(names, "Symbol");
  header.price = FindPriceColumn(names, adjusted);
  const bool wide = header.symbol == CsvHeader::kNoColumn && !adjusted && IsWide(names);
  if (header.price == CsvHeader::kNoColumn || wide) {
    ReadAsWide(names, adjusted, header);
  } else if (header.symbol != CsvHeader::kNoColumn) {
    header.form = CsvForm::kLong;
    header.name = FindColumn(names, "Name");
  }
  return header;
}

}  // namespace vistaplot
