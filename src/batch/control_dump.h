// One control as JSON.
#pragma once

#include <string>

#include "batch/control_lookup.h"

namespace vistaplot {

/// {"name", "kind", "value", "text", "entries", "selected", "visible", "enabled", "left", "top",
/// "width", "height"} with those that the kind has; a scroll bar's "min" and "max" too. Lengths are
/// twips. `visible` and `enabled` are the control's own, whatever it stands in.
std::string ControlJson(const FoundControl& found);

}  // namespace vistaplot
