// The order in which the rows of a sheet are sorted.
//
// A cell that is a number as a whole (blanks around it dropped) sorts by its value; one that is a
// date as a whole (month/day/year, the year of two or four digits) by its day; any other cell as
// text, case ignored, blanks around it dropped. Ascending: numbers, dates, texts; descending:
// texts, dates, numbers. Empty cells, and cells of blanks alone, come last in both directions. Rows
// that are equal in every key keep their order in both directions.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "table/column.h"
#include "table/sheet.h"

namespace vistaplot {

/// What a cell sorts as.
struct CellKey {
  enum class Kind { kNumber, kDate, kText, kEmpty };

  Kind kind = Kind::kEmpty;
  double number = 0.0;  ///< a date's serial
  std::string text;     ///< trimmed, letters folded
};

CellKey KeyOfText(std::string_view text);

/// One key of a sort.
struct SortColumn {
  bool is_descending = false;
  /// The key of the row at a 0-based place. Asked once a row at most; keys behind the first one are
  /// asked only for rows that are equal in those before.
  std::function<CellKey(std::uint32_t)> key;
};

/// The order of `row_count` rows by the keys, the first one weighing most.
RowOrder SortedOrder(std::uint32_t row_count, std::span<const SortColumn> columns);

// What a sort of a sheet works on: its selection, limited to the rows below the headings.

/// Where the selection starts at (MaxRow, MaxCol), the cell where a reader leaves it, or nothing is
/// selected: lets it start at the first data row and column, its end kept, so that the whole data
/// area is selected. Any other selection stays. Of several ranges the first one counts.
void SelectForSort(Sheet& sheet);

/// The block of cells that a sort reorders: the selection, from FixedRows + 1 at the earliest to
/// MaxRow and MaxCol at the latest. Empty when nothing is left of it.
CellRange SortBlock(const Sheet& sheet);

/// How the columns that can be keys are called, entry i for column SelStartCol + i: the trimmed
/// headings of row 1 and of row 2, where the sheet has two, with a blank between. `by_second_row`:
/// row 2 alone, which holds the names that a file itself gives its columns.
std::vector<std::string> SortKeyNames(const Sheet& sheet, bool by_second_row);

}  // namespace vistaplot
