// Where a script plays in windows: they are on the display before its first line, and follow it
// while it plays. The user's keys and clicks do nothing until its end; closing the frame ends it.
#pragma once

#include <QElapsedTimer>

#include "app/program.h"
#include "ui/frame/main_window.h"

namespace vistaplot {

class ScriptStage {
 public:
  ScriptStage(Program& program, MainWindow& window) : program_(program), window_(window) {}

  /// Plays the script to its end; what is thrown by the program's end passes through. Closing the
  /// frame leaves the rest of the script out and ends the program.
  void Play(ScriptPlayer& player);

  /// The frame is to close: true when a script plays, which then does it after the line that runs.
  bool DeferClosing();

 private:
  void AwaitDisplay();
  void PaintWindows();
  bool FollowScript();

  Program& program_;
  MainWindow& window_;
  QElapsedTimer since_painted_;
  bool playing_ = false;
  bool close_asked_ = false;
};

}  // namespace vistaplot
