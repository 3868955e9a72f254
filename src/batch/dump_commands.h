// Commands that write what the program holds, or compare it with an earlier dump: dump, expect,
// export.
#pragma once

#include "batch/script_world.h"

namespace vistaplot {

/// sheet N FILE | sheets | chart NAME FILE | reading NAME ROW [COLUMN] | state | NAME
void DumpCommand(ScriptWorld& world, ScriptWords words);
/// sheet N FILE [within T] | chart NAME FILE [within T]
void ExpectCommand(ScriptWorld& world, ScriptWords words);
/// chart NAME FILE [size W H]
void ExportCommand(ScriptWorld& world, ScriptWords words);

}  // namespace vistaplot
