// Runs a script's lines, one after the other, in the user's place.
#pragma once

#include <functional>
#include <istream>
#include <string>

#include "batch/script_world.h"

namespace vistaplot {

/// A run reads one script; the world's host is its own for that time.
class ScriptRunner {
 public:
  /// `script_name` stands in errors: "nightly.txt:12: ...".
  ScriptRunner(ScriptWorld& world, std::string script_name);
  ~ScriptRunner();
  ScriptRunner(const ScriptRunner&) = delete;
  ScriptRunner& operator=(const ScriptRunner&) = delete;

  /// Calls `start` (may be empty), then carries out each line as soon as it is read; a modal form
  /// takes the lines that follow until it is closed. Returns kRunDone, kRunScriptError or
  /// kRunFatal; errors are told on the world's `err`. What the program writes is flushed after
  /// every line. Exit ends the run, whatever follows.
  int Run(std::istream& script, const std::function<void()>& start);

 private:
  void RunAll(std::istream& script, const std::function<void()>& start);
  bool ReadLine(std::string& line);
  void RunLine(const std::string& line);
  void RunModal(Form& form);
  int Report(const std::string& text, int line);

  ScriptWorld& world_;
  std::string script_name_;
  std::istream* script_ = nullptr;  ///< while Run lasts
  int line_ = 0;                    ///< lines read so far
};

}  // namespace vistaplot
