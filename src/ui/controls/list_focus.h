// Shows which list has the keyboard, and at which entry it stands: frames that stay visible on
// selected rows too, where the toolkit's own can hardly be seen.
#pragma once

#include <QAbstractItemView>

namespace vistaplot {

/// From now on `list` has a frame about itself and about its current entry while it has the
/// keyboard.
void FrameFocus(QAbstractItemView& list);

}  // namespace vistaplot
