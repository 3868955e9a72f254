#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <utility>

#include "quoteline/csv_header.h"
#include "quoteline/price_text.h"

namespace vistaplot {

namespace {

// Prices are collected for a few lines at a time and then moved to their columns together: a
// column is far from the next in memory.
class WideReader : public LineReader {
 public:
  WideReader(const CsvHeader& header, PriceFile& file)
      : header_(header),
        file_(file),
        columns_(header.columns),
        block_(kBlockRows * header.columns) {}

  void Read(CsvCursor& cursor, double share) override {
    cursor_ = &cursor;
    if (dates_.empty()) Reserve({cursor.Place(), cursor.Left()}, share);
    for (cursor.SkipEmptyLines(); !cursor.AtEnd(); cursor.SkipEmptyLines()) {
      // A date without any price is no date of the calendar.
      if (ReadLine() && has_price_) {
        dates_.push_back({.date = date_, .line = cursor.Line()});
        if (++block_rows_ == kBlockRows) FlushBlock();
      }
      cursor.NextLine();
    }
  }

  void Finish() override {
    FlushBlock();
    SortRows();
    for (std::size_t i = 0; i < header_.columns; ++i) {
      if (i == header_.date) continue;
      file_.series.push_back(
          {.symbol = header_.symbols[i], .name = {}, .dates = 0, .prices = std::move(columns_[i])});
    }
    file_.date_lists.push_back(std::move(dates_));
  }

 private:
  static constexpr std::size_t kBlockRows = 16;

  // Room for the lines of the whole file, so that the columns need not move.
  void Reserve(std::string_view bytes, double share) {
    const auto lines = static_cast<double>(std::count(bytes.begin(), bytes.end(), '\n'));
    const auto expected = static_cast<std::size_t>(lines / share * 1.02) + kBlockRows;
    dates_.reserve(expected);
    for (auto& column : columns_) column.reserve(expected);
  }

  bool Refuse(std::string text) {
    file_.bad_lines.Add(cursor_->Line(), std::move(text));
    return false;
  }

  // One line into the block and date_; false, with a bad line noted, when it is none.
  bool ReadLine() {
    float* row = block_.data() + block_rows_ * header_.columns;
    std::size_t column = 0;
    has_price_ = false;
    for (; column < header_.columns && !cursor_->AtLineEnd(); ++column) {
      if (column != header_.date ? !ReadCell(row[column], column) : !ReadDate()) return false;
    }
    if (column < header_.columns) {
      AddTooFewFields(file_.bad_lines, cursor_->Line(), column, header_.columns);
      return false;
    }
    while (!cursor_->AtLineEnd()) {
      if (!cursor_->NextField().empty()) return Refuse("more fields than the header names");
    }
    return true;
  }

  bool ReadDate() {
    const std::string_view field = cursor_->NextField();
    const auto date = PriceDate(field);
    if (!date) return Refuse(DateFault(field));
    date_ = *date;
    return true;
  }

  bool ReadCell(float& cell, std::size_t column) {
    if (cursor_->Left() >= sizeof(std::uint64_t)) {
      const char* place = cursor_->Place();
      const QuickPrice quick = ReadQuickPrice(place, header_.delimiter);
      if (quick.price > 0.0F || *place == header_.delimiter) {
        cell = quick.price;
        has_price_ = has_price_ || quick.length != 0;
        cursor_->PassField(quick.length);
        return true;
      }
    }
    return ReadRareCell(cell, column);
  }

  bool ReadRareCell(float& cell, std::size_t column) {
    const std::string_view field = cursor_->NextField();
    cell = 0.0F;
    if (field.empty()) return true;
    const auto price = PriceFromText(field);
    if (!price) return Refuse(header_.symbols[column] + ": " + PriceFault(field));
    cell = *price;
    has_price_ = true;
    return true;
  }

  void FlushBlock() {
    std::array<float, kBlockRows> prices;
    for (std::size_t i = 0; i < header_.columns; ++i) {
      if (i == header_.date) continue;
      for (std::size_t row = 0; row < block_rows_; ++row) {
        prices[row] = block_[row * header_.columns + i];
      }
      columns_[i].insert(columns_[i].end(), prices.begin(), prices.begin() + block_rows_);
    }
    block_rows_ = 0;
  }

  void SortRows() {
    const std::vector<std::size_t> order = AscendingOrder(dates_);
    if (order.empty()) return;
    std::vector<DateLine> sorted;
    std::vector<std::size_t> target;  // row of the sorted table that order[i] goes to
    for (const std::size_t row : order) {
      if (sorted.empty() || sorted.back().date != dates_[row].date) sorted.push_back(dates_[row]);
      target.push_back(sorted.size() - 1);
    }
    for (std::size_t i = 0; i < header_.columns; ++i) {
      if (i != header_.date) SortColumn(i, order, target, sorted);
    }
    dates_ = std::move(sorted);
  }

  void SortColumn(std::size_t column,
                  const std::vector<std::size_t>& order,
                  const std::vector<std::size_t>& target,
                  const std::vector<DateLine>& sorted) {
    std::vector<float> prices(sorted.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
      const float price = columns_[column][order[i]];
      if (price == 0.0F) continue;
      float& place = prices[target[i]];
      if (place != 0.0F && place != price) {
        AddSecondPrice(
            file_.bad_lines, header_.symbols[column], sorted[target[i]], dates_[order[i]]);
      }
      place = price;
    }
    columns_[column] = std::move(prices);
  }

  CsvCursor* cursor_ = nullptr;
  const CsvHeader& header_;
  PriceFile& file_;
  std::vector<std::vector<float>> columns_;
  std::vector<DateLine> dates_;
  std::vector<float> block_;
  std::size_t block_rows_ = 0;
  DateSerial date_ = 0;
  bool has_price_ = false;
};

}  // namespace

std::unique_ptr<LineReader> MakeWideReader(const CsvHeader& header, PriceFile& file) {
  return std::make_unique<WideReader>(header, file);
}

}  // namespace vistaplot
