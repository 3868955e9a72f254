#include "batch/script_line.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

#include "base/number_text.h"
#include "base/text.h"

namespace vistaplot {

namespace {

constexpr std::string_view kBlanks = " \t";

bool IsBlank(char c) {
  return kBlanks.find(c) != std::string_view::npos;
}

// Reads the word in quotes that `rest` begins with and drops it from `rest`.
std::string TakeQuoted(std::string_view& rest) {
  std::string word;
  rest.remove_prefix(1);
  for (;;) {
    const std::size_t quote = rest.find('"');
    if (quote == std::string_view::npos) throw ScriptError("a double quote is not closed");
    word += rest.substr(0, quote);
    rest.remove_prefix(quote + 1);
    if (!rest.starts_with('"')) break;
    word += '"';
    rest.remove_prefix(1);
  }
  if (!rest.empty() && !IsBlank(rest.front())) {
    throw ScriptError("a closing double quote must be followed by a blank (\"\" is one quote)");
  }
  return word;
}

std::string TakeWord(std::string_view& rest) {
  if (rest.starts_with('"')) return TakeQuoted(rest);
  if (rest.starts_with("=\"")) {
    rest.remove_prefix(1);
    return '=' + TakeQuoted(rest);
  }
  std::string word(rest.substr(0, rest.find_first_of(kBlanks)));
  rest.remove_prefix(word.size());
  return word;
}

// Letters to insert, drop or change, case ignored, to make one word from the other.
int EditDistance(std::string_view from, std::string_view to) {
  const std::string a = LowerCase(from);
  const std::string b = LowerCase(to);
  std::vector<int> row(b.size() + 1);
  std::iota(row.begin(), row.end(), 0);
  for (const char c : a) {
    int diagonal = row[0]++;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const int change = diagonal + (b[j - 1] == c ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, change});
    }
  }
  return row.back();
}

}  // namespace

std::vector<std::string> SplitScriptLine(std::string_view line) {
  std::vector<std::string> words;
  std::string_view rest = TrimWhite(line);
  if (rest.starts_with('#')) return words;
  while (!rest.empty()) {
    words.push_back(TakeWord(rest));
    rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
  }
  return words;
}

int NumberFromWord(std::string_view word, std::string_view what, int least, int most) {
  const auto number = WholeInteger(word);
  if (number && *number >= least && *number <= most) return static_cast<int>(*number);
  throw ScriptError(std::string(what) + ": \"" + std::string(word) + "\" is no whole number from " +
                    std::to_string(least) + " to " + std::to_string(most));
}

std::string DidYouMean(std::string_view word, std::span<const std::string> names) {
  constexpr std::size_t kLongestName = 64;
  if (word.size() > kLongestName) return {};
  const int near = std::min(2, static_cast<int>(word.size() / 3));
  constexpr int kMost = 3;
  std::string list;
  int found = 0;
  for (const std::string& name : names) {
    const bool begins = !word.empty() && StartsWithIgnoringCase(name, word);
    if (found == kMost || (!begins && EditDistance(word, name) > near)) continue;
    list += (found++ == 0 ? " (did you mean " : ", ") + name;
  }
  return found == 0 ? list : list + "?)";
}

}  // namespace vistaplot
