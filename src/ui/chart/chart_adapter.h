// Charts as a control's widget, and what they ask of the program around them.
#pragma once

#include <functional>
#include <memory>

#include "ui/controls/control_adapter.h"

namespace vistaplot {

/// Each may be missing.
struct ChartServices {
  /// Longer (above 0) or shorter time periods, that many steps of the menu.
  std::function<void(int steps)> change_period;
};

/// `control` is a ChartBox.
std::unique_ptr<ControlAdapter> MakeChartBox(Control& control, const AdapterParts& parts);

}  // namespace vistaplot
