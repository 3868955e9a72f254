// One control as JSON.
#pragma once

#include <string>

#include "batch/control_lookup.h"
#include "table/data_table.h"

namespace vistaplot {

/// {"name", "kind", "value", "text", "entries", "selected", "visible", "enabled", "left", "top",
/// "width", "height"} with those that the kind has; a scroll bar's "min" and "max" too, a chart's
/// "text" when it was refused, and how a grid shows the active sheet of `table`: "first_row" (the
/// row that it opens at), "sorted_by", "heading_tips". Lengths are twips. `visible` and `enabled`
/// are the control's own, whatever it stands in.
std::string ControlJson(const FoundControl& found, const DataTable& table);

}  // namespace vistaplot
