// What a sort of a sheet works on: its selection, limited to the rows below the headings.
#pragma once

#include <string>
#include <vector>

#include "table/sheet.h"

namespace vistaplot {

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
