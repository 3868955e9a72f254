// The program with its windows.
#pragma once

#include "app/options.h"

namespace vistaplot {

/// Opens the main window on the service and settings of `options` and returns when the program
/// ends: 0, or 3 after a fatal error. Without a display: 2, and what to do is told on standard
/// error. `argc` and `argv` are the process's own and outlive the call.
int RunWindows(const Options& options, int& argc, char** argv);

}  // namespace vistaplot
