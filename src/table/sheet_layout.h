// Sheets that show the fields of a file, one a column.
#pragma once

#include "base/fixed_fields.h"
#include "table/sheet.h"

namespace vistaplot {

/// Lays a sheet out for a format's fields: MaxCol, FixedRows (0 to 2 rows of headings), no fixed
/// columns, and each column's width and headings where the format gives them. Other cells and
/// widths stay, also those of columns behind the last field.
void LayOutFields(Sheet& sheet, FixedFields fields, int heading_rows);

/// Sets MaxRow and leaves cursor and selection at (MaxRow, MaxCol), as every reader does.
void EndAtRow(Sheet& sheet, int max_row);

}  // namespace vistaplot
