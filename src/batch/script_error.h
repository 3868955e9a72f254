// How a script's run is left early, through whatever handlers are at work: both are thrown by
// batch, caught by its runner, and are no std::exception, so that no handler mistakes them for a
// failure of its own.
#pragma once

#include <string>
#include <utility>

namespace vistaplot {

/// Something in the script is wrong; the run ends with status 1.
struct ScriptError {
  explicit ScriptError(std::string what_is_wrong) : text(std::move(what_is_wrong)) {}

  std::string text;
  int line = 0;  ///< line of the script, from 1; 0: the one that is being run
};

/// The program has ended itself: by Exit, or after a fatal error.
struct RunEnded {
  bool fatal = false;
};

}  // namespace vistaplot
