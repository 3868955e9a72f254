// A script that plays the user of a program with windows.
#pragma once

#include <functional>

#include "base/dialogs.h"
#include "controls/form_host.h"
#include "forms/output.h"

namespace vistaplot {

class Program;

class ScriptPlayer {
 public:
  virtual ~ScriptPlayer() = default;

  /// What the program is to be built with in place of its windows and boxes: passes everything on
  /// to `windows`, which outlive the player; but while the script plays it answers the questions
  /// and works on the modal forms, and does not print.
  virtual FormHost& Over(FormHost& windows) = 0;
  virtual Dialogs& Over(Dialogs& windows) = 0;
  virtual Output& Over(Output& windows) = 0;

  /// Plays the script, once, on a program that was built with these and is started; `line_done`
  /// (may be empty) is called after every command; false leaves the rest of the script out. What is
  /// wrong is told in a box, and where the player's maker said. A script that ends the program does
  /// so through EndProgram of the boxes.
  virtual void Play(Program& program, const std::function<bool()>& line_done) = 0;
};

}  // namespace vistaplot
