#include "quoteline/csv_header.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "quoteline/csv_line.h"
#include "quoteline/symbol_index.h"

namespace vistaplot {

namespace {

constexpr std::string_view kDelimiters = ",;\t";
constexpr std::array<std::string_view, 3> kPriceColumns = {"Close", "NAV", "Price"};
constexpr std::string_view kAdjustedColumn = "Adj Close";
// What price files call their other columns: a file of these alone lacks the price it came for.
constexpr std::array<std::string_view, 22> kOtherColumns = {
    "Open",   "High",  "Low",   "Last", "Bid",   "Ask",   "Mid",    "Volume",
    "Vol",    "Value", "Units", "Time", "Chg",   "Yield", "Change", "Settle",
    "Trades", "OI",    "VWAP",  "Div",  "Split", "Factor"};

bool LooksBinary(std::string_view bytes) {
  constexpr std::size_t kLookedAt = 1U << 16U;
  const std::string_view head = bytes.substr(0, kLookedAt);
  return std::any_of(head.begin(), head.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 9 || (byte > 13 && byte < 32 && byte != 26 && byte != 27);
  });
}

bool LooksLikeWebPage(std::string_view text) {
  constexpr std::array<std::string_view, 8> kBeginnings = {
      "<!doctype", "<!--", "<html", "<head", "<body", "<table", "<script", "<?xml"};
  return std::any_of(kBeginnings.begin(), kBeginnings.end(), [text](std::string_view beginning) {
    return StartsWithIgnoringCase(text, beginning);
  });
}

std::string ForeignContent(std::string_view bytes) {
  if (TrimWhite(bytes).empty()) return "is empty, not a price file";
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
    return "is UTF-16 text, not a price file; save it as UTF-8 first";
  }
  if (LooksBinary(bytes)) return "is a binary file, not a price file";
  if (LooksLikeWebPage(TrimWhite(bytes))) return "is a web page, not a price file";
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

// True when a condition holds for the names of all columns but the date's.
template <class Condition>
bool AllOthers(const std::vector<std::string>& names, std::size_t date, Condition condition) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i != date && !condition(names[i])) return false;
  }
  return true;
}

bool IsOtherColumn(std::string_view name) {
  return std::any_of(kOtherColumns.begin(), kOtherColumns.end(), [name](std::string_view other) {
    return EqualsIgnoringCase(name, other);
  });
}

constexpr const char* kNoPriceColumn = "has no price column (Close, NAV or Price) in its header";

void ReadWideSymbols(const std::vector<std::string>& names, CsvHeader& header) {
  header.form = CsvForm::kWide;
  for (std::size_t i = 0; i < names.size() && header.refusal.empty(); ++i) {
    if (i == header.date) {
      header.symbols.emplace_back();
      continue;
    }
    const auto symbol = SymbolFromText(names[i]);
    if (!symbol) {
      header.refusal = "column " + ShownText(names[i]) +
                       " of its header is no symbol (1 to 5 letters, digits, $ ^ . -)";
    } else if (std::find(header.symbols.begin(), header.symbols.end(), *symbol) !=
               header.symbols.end()) {
      header.refusal = "symbol " + *symbol + " stands twice in its header";
    } else {
      header.symbols.push_back(*symbol);
    }
  }
}

// A header without a price column, of which nothing else is said: of a wide file, or of none.
void ReadAsWide(const std::vector<std::string>& names, CsvHeader& header) {
  const auto is_symbol = [](const std::string& name) { return SymbolFromText(name).has_value(); };
  if (FindColumn(names, kAdjustedColumn) != CsvHeader::kNoColumn) {
    header.refusal = "has no price column but \"Adj Close\"; --adjusted takes that";
  } else if (header.symbol != CsvHeader::kNoColumn || names.size() < 2) {
    header.refusal = kNoPriceColumn;
  } else if (AllOthers(names, header.date, IsOtherColumn)) {
    header.refusal = kNoPriceColumn;
    if (AllOthers(names, header.date, is_symbol)) {
      header.refusal += "; if its columns are symbols, say so with --wide";
    }
  } else {
    ReadWideSymbols(names, header);
    if (!AllOthers(names, header.date, is_symbol)) {
      header.refusal.insert(0, std::string(kNoPriceColumn) + ", and ");
    }
  }
}

// With a price column: of one issue, or long.
void ReadAsPrices(const std::vector<std::string>& names, bool one_issue, CsvHeader& header) {
  if (header.symbol != CsvHeader::kNoColumn && !one_issue) {
    header.form = CsvForm::kLong;
    header.name = FindColumn(names, "Name");
    return;
  }
  for (std::size_t i = 0; i < names.size(); ++i) {
    const bool taken = i == header.date || i == header.price || i == header.symbol;
    if (!taken && !names[i].empty()) header.left_out.push_back(names[i]);
  }
}

void ReadForm(const std::vector<std::string>& names,
              const PriceFileOptions& options,
              CsvHeader& header) {
  const bool one_issue = !options.symbol.empty();
  header.symbol = FindColumn(names, "Symbol");
  header.price = FindPriceColumn(names, options.adjusted);
  if (options.wide) {
    ReadWideSymbols(names, header);
  } else if (header.price != CsvHeader::kNoColumn) {
    ReadAsPrices(names, one_issue, header);
  } else if (options.adjusted) {
    header.refusal = "has no column \"Adj Close\", which --adjusted takes";
  } else if (one_issue) {
    header.refusal = kNoPriceColumn;
  } else {
    ReadAsWide(names, header);
  }
}

// The names of the header line's columns; those that spreadsheets leave empty behind the last one
// are none.
std::vector<std::string> ColumnNames(std::string_view line, char delimiter) {
  std::vector<std::string> names;
  CsvCursor cursor(line, delimiter);
  while (!cursor.AtLineEnd()) names.emplace_back(cursor.NextField());
  while (!names.empty() && names.back().empty()) names.pop_back();
  return names;
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
    } else if (line.find_first_not_of(" \t,;") != std::string_view::npos) {
      return lines;
    }
    bytes.remove_prefix(end + (bytes.substr(end, 2) == "\r\n" ? 2 : 1));
    ++lines;
  }
}

CsvHeader ReadCsvHeader(std::string_view bytes,
                        const PriceFileOptions& options,
                        std::optional<char> delimiter) {
  CsvHeader header;
  header.refusal = ForeignContent(bytes);
  if (!header.refusal.empty()) return header;
  const std::string_view line = bytes.substr(0, bytes.find_first_of("\r\n"));
  header.delimiter = delimiter.value_or(DelimiterOf(line));
  const std::vector<std::string> names = ColumnNames(line, header.delimiter);
  header.columns = names.size();
  header.date = FindColumn(names, "Date");
  if (header.date == CsvHeader::kNoColumn) {
    header.refusal = "is not a price file: its first line names no column \"Date\"";
  } else {
    ReadForm(names, options, header);
  }
  return header;
}

}  // namespace vistaplot
