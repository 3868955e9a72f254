// The toolkit's application object: the program with its windows, or drawing without a display.
#pragma once

#include <memory>

#include "app/options.h"
#include "app/program.h"

class QGuiApplication;

namespace vistaplot {

/// Opens the main window on the service and settings of `options` and returns when the program
/// ends: 0, or 3 after a fatal error. Without a display: 2, and what to do is told on standard
/// error. `player` plays a script once the windows are open; it may be null. `argc` and `argv` are
/// the process's own and outlive the call.
int RunWindows(const Options& options, ScriptPlayer* player, int& argc, char** argv);

/// Owned by the program's start; nothing of the toolkit is built before the first Ensure.
class OffscreenApplication {
 public:
  OffscreenApplication();
  ~OffscreenApplication();
  OffscreenApplication(const OffscreenApplication&) = delete;
  OffscreenApplication& operator=(const OffscreenApplication&) = delete;

  /// Makes sure that fonts and painters work: builds a QGuiApplication on platform "offscreen"
  /// unless one runs already. Numbers keep the C locale.
  void Ensure();

 private:
  struct Held;  ///< the application with the arguments that it refers to
  std::unique_ptr<Held> held_;
};

}  // namespace vistaplot
