// The data table as text for other programs.
#pragma once

#include <string>

#include "table/data_table.h"

namespace vistaplot {

/// {"sheets": [{"number", "name", "MaxRow", "MaxCol", "FixedRows", "FixedCols"}...], "active"}.
std::string SheetsJson(const DataTable& table);

}  // namespace vistaplot
