// The spreadsheet grid as a control's widget.
#pragma once

#include <memory>

#include "ui/controls/control_adapter.h"

namespace vistaplot {

/// `control` is a Grid; `parts.table` is the table that it shows.
std::unique_ptr<ControlAdapter> MakeGrid(Control& control, const AdapterParts& parts);

}  // namespace vistaplot
