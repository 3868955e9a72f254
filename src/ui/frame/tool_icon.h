// Icons drawn as SVG, in the colours of the desktop's palette and sharp at any scale.
#pragma once

#include <QIcon>

namespace vistaplot {

/// The tool icon of that name (a tool button's control name); a null icon when there is none.
QIcon ToolIcon(const QString& name);

/// The program's own icon, in colours of its own.
QIcon ProgramIcon();

}  // namespace vistaplot
