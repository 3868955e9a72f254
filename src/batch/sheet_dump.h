// The data table as text for other programs.
#pragma once

#include <string>

#include "table/data_table.h"

namespace vistaplot {

/// Rows 1 to MaxRow, columns 1 to MaxCol, each cell's text as it stands: RFC 4180, every line with
/// CR LF, UTF-8.
std::string SheetCsv(const Sheet& sheet);

/// {"sheets": [{"number", "name", "MaxRow", "MaxCol", "FixedRows", "FixedCols"}...], "active"}.
std::string SheetsJson(const DataTable& table);

}  // namespace vistaplot
