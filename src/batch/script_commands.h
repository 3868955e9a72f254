// The commands of a script, each a function of the world and the words behind its name, and the
// script that plays in the visible program.
#pragma once

#include <memory>
#include <string>

#include "app/program.h"
#include "base/result.h"
#include "batch/batch.h"
#include "batch/script_world.h"

namespace vistaplot {

// Commands that work a control: set, click, select, point.

void SetCommand(ScriptWorld& world, ScriptWords words);     ///< NAME VALUE
void ClickCommand(ScriptWorld& world, ScriptWords words);   ///< NAME
void SelectCommand(ScriptWorld& world, ScriptWords words);  ///< NAME ITEM...
void PointCommand(ScriptWorld& world, ScriptWords words);   ///< NAME SERIES POINT

// Commands that write what the program holds, or compare it with an earlier dump: dump, expect,
// export.

/// sheet N FILE | sheets | chart NAME FILE | reading NAME ROW [COLUMN] | state | NAME
void DumpCommand(ScriptWorld& world, ScriptWords words);
/// sheet N FILE [within T] | chart NAME FILE [within T]
void ExpectCommand(ScriptWorld& world, ScriptWords words);
/// chart NAME FILE [size W H]
void ExportCommand(ScriptWorld& world, ScriptWords words);

// Commands of the data screen: sheet, cells, lclick, rclick.

void SheetCommand(ScriptWorld& world, ScriptWords words);       ///< N
void CellsCommand(ScriptWorld& world, ScriptWords words);       ///< R1 C1 R2 C2 ...
void LeftClickCommand(ScriptWorld& world, ScriptWords words);   ///< ROW COL
void RightClickCommand(ScriptWorld& world, ScriptWords words);  ///< ROW COL

// A script in the visible program: the lines and commands of batch runs, over windows that follow.

/// Reads the host file `path` and plays it once; errors and the script's output go to `streams`, of
/// which `in` is not used. Fails on a file that cannot be read.
Result<std::unique_ptr<ScriptPlayer>> MakeWindowScript(const std::string& path,
                                                       ChartExporter exporter,
                                                       const BatchStreams& streams);

}  // namespace vistaplot
