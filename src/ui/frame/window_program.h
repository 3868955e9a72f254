// The program's parts with windows joined: screens, skin, service and settings.
#pragma once

#include "app/options.h"
#include "app/program.h"
#include "base/settings.h"
#include "marketdata/quoteline_library.h"
#include "ui/controls/control_adapter.h"
#include "ui/frame/main_window.h"
#include "ui/frame/qt_dialogs.h"
#include "ui/frame/qt_host.h"
#include "ui/frame/qt_output.h"
#include "ui/frame/script_stage.h"

namespace vistaplot {

/// What the program needs from outside; all of it outlives the program.
struct WindowParts {
  QuotelineApi& quoteline;
  Settings& settings;
  std::optional<PixelSize> display;  ///< what the screens scale to; nothing: the real display
  ScriptPlayer* player = nullptr;    ///< plays a script once the windows are open; may be null
};

class WindowProgram : public QObject {
  Q_OBJECT

 public:
  /// Builds the main window, hidden. Needs a running QApplication.
  explicit WindowProgram(const WindowParts& parts);
  ~WindowProgram() override;

  EventGuard& Guard() { return guard_; }
  MainWindow& Window() { return window_; }
  QtHost& Host() { return host_; }
  Program& Screens() { return program_; }

  /// Shows the windows and starts the service; false when the program ended at once.
  bool Start();

  /// Start, then the user's turn until the program ends. Returns the exit status.
  int Run();

 private:
  void SetUpCharts();
  void SetUpKeys();
  void FollowFront();
  void SizeWindow();

  std::optional<PixelSize> display_;
  ScriptPlayer* player_;
  EventGuard guard_;
  QtDialogs dialogs_{guard_};
  QtHost host_{guard_};
  QtOutput output_{guard_};
  Program program_;
  MainWindow window_;
  ScriptStage stage_{program_, window_};
};

}  // namespace vistaplot
