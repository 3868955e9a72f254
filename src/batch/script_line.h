// The grammar of a script's line.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vistaplot {

using ScriptWords = std::span<const std::string>;

/// The words of one line (without its end): split at blanks and tabs, a word in double quotes may
/// hold blanks, and "" inside it is one double quote; ="..." is such a word behind "=". None for an
/// empty line and for one that begins with "#". Throws ScriptError for a quote that is not closed
/// or is followed by anything but a blank.
std::vector<std::string> SplitScriptLine(std::string_view line);

/// The whole number that `word` is, from `least` to `most`; throws ScriptError, which says `what`
/// was expected, for anything else.
int NumberFromWord(std::string_view word, std::string_view what, int least, int most);

/// " (did you mean A, B?)" with the names that differ from `word` in at most two letters (fewer in
/// short words) or begin with it, at most three of them; empty when there are none.
std::string DidYouMean(std::string_view word, std::span<const std::string> names);

// How a script's run is left early, through whatever handlers are at work: both are thrown by
// batch, caught by its runner, and are no std::exception, so that no handler mistakes them for a
// failure of its own.

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
