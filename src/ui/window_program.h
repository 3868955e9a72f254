// The program's parts with windows joined: screens, skin, service and settings.
#pragma once

#include "app/ini_settings.h"
#include "app/options.h"
#include "app/program.h"
#include "app/script_player.h"
#include "marketdata/quoteline_library.h"
#include "ui/event_guard.h"
#include "ui/main_window.h"
#include "ui/qt_dialogs.h"
#include "ui/qt_host.h"

namespace vistaplot {

class WindowProgram : public QObject {
  Q_OBJECT

 public:
  /// Builds the main window, hidden. Needs a running QApplication. `player` plays a script once the
  /// windows are open; it may be null, and outlives the program.
  WindowProgram(const Options& options, ScriptPlayer* player);
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
  void SetUpKeys();
  void SizeWindow();
  void NextScreen(bool forward);
  void FullScreen();
  void ShowKeys();

  Options options_;
  ScriptPlayer* player_;
  EventGuard guard_;
  QtDialogs dialogs_{guard_};
  AdapterFactory factory_;
  QtHost host_{guard_, factory_};
  QuotelineLibrary quoteline_;
  IniSettings settings_;
  Program program_;
  MainWindow window_;
};

}  // namespace vistaplot
