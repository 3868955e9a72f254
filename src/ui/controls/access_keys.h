// Letters that open menus and choose their commands, for captions that name none.
#pragma once

#include <QAction>
#include <QList>

namespace vistaplot {

/// Marks an access key in every text of `actions` that has none: the first letter of one of its
/// words that no other of them uses, else any letter of it, else its first one, which then steps
/// through those that share it.
void GiveAccessKeys(const QList<QAction*>& actions);

}  // namespace vistaplot
