// The list of keys that the windows understand, as a box.
#pragma once

#include <QWidget>

namespace vistaplot {

/// Shows the list over `owner` until the user closes it.
void ShowKeyList(QWidget* owner);

}  // namespace vistaplot
