// Which label says what a control without a caption is for, found by where they stand.
#pragma once

#include <map>

#include "controls/form.h"

namespace vistaplot {

/// By control, the label (or the check box) on its left, else the label above it; controls for
/// which none fits are missing. Only controls that can be seen take part, only captions that hold
/// more than blanks count, and nothing stands in between. A label that has a control on its right
/// says nothing about those below it.
std::map<const Control*, Control*> FindLabels(const Form& form);

}  // namespace vistaplot
