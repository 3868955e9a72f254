// Commands that work a control: set, click, select, point.
#pragma once

#include "batch/script_world.h"

namespace vistaplot {

void SetCommand(ScriptWorld& world, ScriptWords words);     ///< NAME VALUE
void ClickCommand(ScriptWorld& world, ScriptWords words);   ///< NAME
void SelectCommand(ScriptWorld& world, ScriptWords words);  ///< NAME ITEM...
void PointCommand(ScriptWorld& world, ScriptWords words);   ///< NAME SERIES POINT

}  // namespace vistaplot
