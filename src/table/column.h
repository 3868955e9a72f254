// How a sheet holds the cells of one column: as texts, as prices, or as a field of records that
// several columns share. Rows count from 1.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/records.h"

namespace vistaplot {

/// A new order of some rows: element i is the 0-based place that moves to place i.
using RowOrder = std::vector<std::uint32_t>;

/// The records of an imported file, one a row. Text in them is Windows-1252.
class RecordBlock {
 public:
  RecordBlock() = default;
  /// Record i is row first_row + i.
  RecordBlock(int first_row, Records records)
      : records_(std::move(records)), first_row_(first_row) {}

  bool Holds(int row) const { return row >= first_row_ && row <= LastRow(); }
  int LastRow() const { return first_row_ + static_cast<int>(records_.starts.size()) - 1; }

  /// The bytes of a field in a row that Holds.
  std::string_view Cut(int row, const FixedField& field) const {
    return RecordField(
        records_, records_.starts[static_cast<std::size_t>(row - first_row_)], field);
  }

  /// Reorders rows first_row, first_row + 1, ...
  void Reorder(int first_row, const RowOrder& order);

 private:
  Records records_;
  int first_row_ = 1;
};

/// A column's cells. A cell in the range of `prices`, or of the sheet's records where `field` is
/// set, is held there; any other one in `texts`.
struct Column {
  std::vector<std::string> texts;  ///< row r at index r - 1; may be shorter than the sheet
  /// Row r at index r - 2; finite. Rounded to seven digits when first read as a whole, which
  /// changes no text and no number that a reader gets.
  mutable std::vector<float> prices;
  mutable bool is_rounded = false;
  std::optional<FixedField> field;
  int width = 0;  ///< twips

  bool HoldsPrice(int row) const {
    return row >= 2 && static_cast<std::size_t>(row) - 2 < prices.size();
  }
  float PriceAt(int row) const { return prices[static_cast<std::size_t>(row) - 2]; }
};

/// The last row that may hold something.
int LastRow(const Column& column, const RecordBlock& records);

std::string CellText(const Column& column, const RecordBlock& records, int row);
double CellNumber(const Column& column, const RecordBlock& records, int row);

/// The cell's stored bytes where it is held as text or in a record (`is_record` then says that they
/// are Windows-1252); prices have none.
struct StoredText {
  std::string_view bytes;
  bool is_record = false;
};
StoredText CellBytes(const Column& column, const RecordBlock& records, int row);

void SetCellText(Column& column, const RecordBlock& records, int row, std::string_view text);

/// Holds rows 1 to last_row as text from now on; the rows behind are emptied.
void KeepTexts(Column& column, const RecordBlock& records, int last_row);

/// Holds every cell as text from now on.
void TurnIntoText(Column& column, const RecordBlock& records);

/// Rounds the prices to what a single-precision reader of their texts gets.
void RoundPrices(const Column& column);

/// Length in characters of the longest text.
std::size_t LongestText(const Column& column, const RecordBlock& records);

/// Reorders rows first_row, first_row + 1, ... of a column whose rows there are all prices, or all
/// texts (none of them is a record's).
void Reorder(Column& column, int first_row, const RowOrder& order);

}  // namespace vistaplot
