// The program with its windows.
#pragma once

#include "app/options.h"
#include "app/script_player.h"

namespace vistaplot {

/// Opens the main window on the service and settings of `options` and returns when the program
/// ends: 0, or 3 after a fatal error. Without a display: 2, and what to do is told on standard
/// error. `player` plays a script once the windows are open; it may be null. `argc` and `argv` are
/// the process's own and outlive the call.
int RunWindows(const Options& options, ScriptPlayer* player, int& argc, char** argv);

}  // namespace vistaplot
