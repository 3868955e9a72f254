// The program without its windows: all shared state, all screens, started and ready to be driven by
// a skin or a script.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/dialogs.h"
#include "base/host_path.h"
#include "base/settings.h"
#include "controls/form.h"
#include "controls/form_host.h"
#include "forms/screens.h"
#include "forms/shared_state.h"
#include "marketdata/quoteline_library.h"

namespace vistaplot {

/// What the program needs from outside; all of it outlives the program.
struct ProgramParts {
  QuotelineApi& quoteline;
  Settings& settings;
  Dialogs& dialogs;
  FormHost& host;
  Output& output;
  std::string program_dir;  ///< folder of the executable
  PathRoots roots;
};

class Program {
 public:
  explicit Program(const ProgramParts& parts);
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  /// Loads the main window and the parameter screen, which opens the service, and shows them. A
  /// service that cannot be opened ends the program through Dialogs::EndProgram.
  void Start();

  SharedState& State() { return state_; }
  Screens& AllScreens() { return *screens_; }

  /// The eleven screens in a fixed order.
  const std::vector<Form*>& Forms() const { return forms_; }
  /// The screen of that name, case ignored; null when there is none.
  Form* FindForm(std::string_view name) const;

 private:
  SharedState state_;
  std::unique_ptr<Screens> screens_;
  std::vector<Form*> forms_;
};

// A script that plays the user of a program with windows.

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
