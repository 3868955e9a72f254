// One sheet of the data table: a grid of cells that read as text. Rows and columns count from 1.
//
// A price column is held as a contiguous block of floats, and imported records as the bytes of
// their file; their texts are made when somebody reads them. Everything else is held as text. A
// numeric reader gets what reading the cell's text would give.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/records.h"
#include "table/cell_range.h"
#include "table/column.h"

namespace vistaplot {

/// Up to three sort keys: a column number, negative for descending, 0 for none.
using SortKeys = std::array<int, 3>;

struct CellKey;

class Sheet {
 public:
  std::string SheetName;
  int MaxRow = 0;  ///< extent in use; the loaders set it, readers iterate up to it
  int MaxCol = 0;
  int FixedRows = 0;  ///< leading heading rows and columns: frozen, never sorted
  int FixedCols = 0;
  int Row = 1;  ///< the write cursor of the importers
  int Col = 1;
  int SortedBy = 0;  ///< first key of the last sort, negative for descending; 0: as loaded
  std::vector<std::string> heading_tips;  ///< what column c means at index c - 1; may be shorter
  std::vector<CellRange> selection;       ///< ranges in the order in which the user made them

  /// Empties every cell and forgets order and heading tips; extents, widths, name and selection
  /// stay.
  void ClearAll();

  /// The cell's text; empty for a cell that nothing was written to, also outside the extent.
  std::string CellText(int row, int col) const;

  /// What LeadingNumber(CellText(row, col)) gives, without making the text of a price.
  double CellNumber(int row, int col) const;

  void SetCellText(int row, int col, std::string_view text);

  /// Text of the cursor's cell.
  std::string Text() const { return CellText(Row, Col); }
  void SetText(std::string_view text) { SetCellText(Row, Col, text); }

  /// Replaces a whole column: `heading` in row 1, values[i] in row 2 + i as single precision.
  void SetPriceColumn(int col, std::string_view heading, std::vector<float> values);

  /// Replaces a whole column of texts: texts[i] in row 1 + i.
  void SetTextColumn(int col, std::vector<std::string> texts);

  /// Replaces columns 1 to fields.size() from row `first_row` on by records: row first_row + i
  /// shows record i, column c its fields[c - 1]. The rows above keep their texts.
  void SetRecords(int first_row, Records records);

  /// CellNumber of rows first_row .. first_row + count - 1 of one column, oldest first; cells
  /// outside the sheet are 0. The one place where 1-based rows become a 0-based span.
  std::vector<double> ColumnNumbers(int col, int first_row, int count) const;

  /// The same in single precision: each number rounded once.
  std::vector<float> ColumnSingles(int col, int first_row, int count) const;

  /// The column's block of prices (element i in row 2 + i): what a single-precision reader of each
  /// cell gets, as in ColumnSingles. Empty when the column is not held as prices. Valid until the
  /// column is written to or sorted.
  std::span<const float> PriceBlock(int col) const;

  /// Display width in twips; 0 is the view's default.
  int ColumnWidth(int col) const;
  void SetColumnWidth(int col, int twips);

  /// Fits the widths of columns 1 to MaxCol to their longest text.
  void FitColumnWidths();

  /// Replaces the selection by one range.
  void Select(const CellRange& range) { selection.assign(1, range); }

  /// Reorders the whole rows of a rectangle; see sorting.h for the order. Keys that name a column
  /// outside the rectangle are ignored.
  void Sort(const CellRange& block, const SortKeys& keys);

 private:
  const Column* Find(int col) const;
  Column& Make(int col);
  CellKey KeyAt(int row, int col) const;
  CellRange UsedPart(const CellRange& block) const;
  void MoveRows(const CellRange& block, const RowOrder& order);
  void MakeMovable(const CellRange& block);

  std::vector<Column> columns_;  ///< column c at index c - 1
  RecordBlock records_;          ///< shared by the columns that have a field
};

// Sheets that show the fields of a file, one a column.

/// Lays a sheet out for a format's fields: MaxCol, FixedRows (0 to 2 rows of headings), no fixed
/// columns, and each column's width and headings where the format gives them. Other cells and
/// widths stay, also those of columns behind the last field.
void LayOutFields(Sheet& sheet, FixedFields fields, int heading_rows);

/// Sets MaxRow and leaves cursor and selection at (MaxRow, MaxCol), as every reader does.
void EndAtRow(Sheet& sheet, int max_row);

}  // namespace vistaplot
