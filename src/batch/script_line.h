// The grammar of a script's line.
#pragma once

#include <span>
#include <string>
#include <string_view>
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

}  // namespace vistaplot
