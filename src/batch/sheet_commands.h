// Commands of the data screen: sheet, cells, lclick, rclick.
#pragma once

#include "batch/script_world.h"

namespace vistaplot {

void SheetCommand(ScriptWorld& world, ScriptWords words);       ///< N
void CellsCommand(ScriptWorld& world, ScriptWords words);       ///< R1 C1 R2 C2 ...
void LeftClickCommand(ScriptWorld& world, ScriptWords words);   ///< ROW COL
void RightClickCommand(ScriptWorld& world, ScriptWords words);  ///< ROW COL

}  // namespace vistaplot
