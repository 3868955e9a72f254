// The state that the screens share, as JSON by its agreed names.
#pragma once

#include <string>

#include "batch/control_lookup.h"
#include "forms/shared_state.h"
#include "table/data_table.h"

namespace vistaplot {

/// One line of JSON: an object with one member a name, e.g. {"MaxDays": 2500, ...}. The calendar
/// and histories themselves are left out.
std::string StateJson(const SharedState& state);

// One control as JSON.

/// {"name", "kind", "value", "text", "entries", "selected", "visible", "enabled", "left", "top",
/// "width", "height"} with those that the kind has; a scroll bar's "min" and "max" too, a chart's
/// "text" when it was refused, and how a grid shows the active sheet of `table`: "first_row" (the
/// row that it opens at), "sorted_by", "heading_tips". Lengths are twips. `visible` and `enabled`
/// are the control's own, whatever it stands in.
std::string ControlJson(const FoundControl& found, const DataTable& table);

// The data table as text for other programs.

/// {"sheets": [{"number", "name", "MaxRow", "MaxCol", "FixedRows", "FixedCols"}...], "active"}.
std::string SheetsJson(const DataTable& table);

}  // namespace vistaplot
