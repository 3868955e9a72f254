#include <algorithm>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>

#include "base/text.h"
#include "quoteline/csv_header.h"
#include "quoteline/price_text.h"
#include "quoteline/symbol_index.h"

namespace vistaplot {

namespace {

// One line of a file with an issue a line, or of one issue.
struct IssueLine {
  DateSerial date = 0;
  float price = 0.0F;
  std::string symbol;  // as the file writes it
  std::string name;
};

class RowReader : public LineReader {
 public:
  RowReader(const CsvHeader& header, PriceFile& file) : header_(header), file_(file) {
    file_.date_lists.resize(file_.series.size());
  }

  void Read(CsvCursor& cursor, double /*share*/) override {
    cursor_ = &cursor;
    for (cursor.SkipEmptyLines(); !cursor.AtEnd(); cursor.SkipEmptyLines()) {
      if (ReadLine()) Keep();
      cursor.NextLine();
    }
  }

  void Finish() override {
    for (PriceSeries& series : file_.series) Sort(series);
  }

 private:
  bool Refuse(std::string text) {
    file_.bad_lines.Add(cursor_->Line(), std::move(text));
    return false;
  }

  bool ReadLine() {
    std::size_t column = 0;
    for (; !cursor_->AtLineEnd(); ++column) {
      const std::string_view field = cursor_->NextField();
      if (column >= header_.columns && !field.empty()) {
        return Refuse("more fields than the header names");
      }
      if (!ReadField(field, column)) return false;
    }
    if (column >= header_.columns) return true;
    AddTooFewFields(file_.bad_lines, cursor_->Line(), column, header_.columns);
    return false;
  }

  bool ReadField(std::string_view field, std::size_t column) {
    if (column == header_.date) return ReadDate(field);
    if (column == header_.price) return ReadPrice(field);
    if (column == header_.symbol) {
      return header_.form == CsvForm::kLong ? ReadSymbol(field) : IsOnlySymbol(field);
    }
    return column != header_.name || ReadName(field);
  }

  bool ReadDate(std::string_view field) {
    const auto date = PriceDate(field);
    if (!date) return Refuse(DateFault(field));
    line_.date = *date;
    return true;
  }

  bool ReadPrice(std::string_view field) {
    const auto price = PriceFromText(field);
    if (!price) return Refuse(PriceFault(field));
    line_.price = *price;
    return true;
  }

  // Lines of one issue mostly follow each other: only a change of symbol looks it up.
  bool ReadSymbol(std::string_view field) {
    if (!file_.series.empty() && field == line_.symbol) return true;
    const auto symbol = SymbolFromText(field);
    if (!symbol) {
      return Refuse(ShownText(field) + " is no symbol (1 to 5 letters, digits, $ ^ . -)");
    }
    const auto [found, is_new] = places_.try_emplace(*symbol, file_.series.size());
    if (is_new) {
      file_.series.push_back(
          {.symbol = *symbol, .name = {}, .dates = file_.date_lists.size(), .prices = {}});
      file_.date_lists.emplace_back();
    }
    current_ = found->second;
    line_.symbol = field;
    return true;
  }

  // A file that is said to be of one issue may name it in a column, but no second one.
  bool IsOnlySymbol(std::string_view field) {
    if (line_.symbol.empty()) line_.symbol = field;
    if (EqualsIgnoringCase(field, line_.symbol)) return true;
    return Refuse("a second issue, " + ShownText(field) +
                  ", in a file that --symbol says holds one");
  }

  bool ReadName(std::string_view field) {
    if (field == line_.name) return true;
    const std::size_t length = CharacterCount(CleanName(field));
    if (length > kLongestName) {
      return Refuse("the name has " + std::to_string(length) + " characters; " +
                    std::to_string(kLongestName) + " are the most");
    }
    line_.name = field;
    return true;
  }

  void Keep() {
    PriceSeries& series = file_.series[current_];
    series.prices.push_back(line_.price);
    file_.date_lists[series.dates].push_back({.date = line_.date, .line = cursor_->Line()});
    if (!line_.name.empty() && line_.name != series.name) series.name = line_.name;
  }

  // Ascending dates; equal prices of one date become one.
  void Sort(PriceSeries& series) {
    std::vector<DateLine>& dates = file_.date_lists[series.dates];
    const std::vector<std::size_t> order = AscendingOrder(dates);
    if (order.empty()) return;
    std::vector<DateLine> sorted_dates;
    std::vector<float> sorted_prices;
    for (const std::size_t row : order) {
      if (sorted_dates.empty() || sorted_dates.back().date != dates[row].date) {
        sorted_dates.push_back(dates[row]);
        sorted_prices.push_back(series.prices[row]);
      } else if (sorted_prices.back() != series.prices[row]) {
        AddSecondPrice(file_.bad_lines, series.symbol, sorted_dates.back(), dates[row]);
      }
    }
    dates = std::move(sorted_dates);
    series.prices = std::move(sorted_prices);
  }

  CsvCursor* cursor_ = nullptr;
  const CsvHeader& header_;
  PriceFile& file_;
  IssueLine line_;
  std::size_t current_ = 0;
  std::unordered_map<std::string, std::size_t> places_;
};

}  // namespace

std::unique_ptr<LineReader> MakeIssueReader(const CsvHeader& header, PriceFile& file) {
  return std::make_unique<RowReader>(header, file);
}

}  // namespace vistaplot
