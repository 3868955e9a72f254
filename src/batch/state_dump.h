// The state that the screens share, as JSON by its agreed names.
#pragma once

#include <string>

#include "forms/shared_state.h"

namespace vistaplot {

/// One line of JSON: an object with one member a name, e.g. {"MaxDays": 2500, ...}. The calendar
/// and histories themselves are left out.
std::string StateJson(const SharedState& state);

}  // namespace vistaplot
