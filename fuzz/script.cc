// Lines of scripts: words, numbers in them, and names that come near.
#include <string>
#include <vector>

#include "batch/script_line.h"
#include "harness.h"

namespace {

std::string Quoted(const std::string& word) {
  std::string quoted = "\"";
  for (const char c : word) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + "\"";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vistaplot;
  std::string_view text = fuzz::TextOf(data, size);
  while (!text.empty()) {
    const std::string_view line = fuzz::TakeLine(text);
    std::vector<std::string> words;
    try {
      words = SplitScriptLine(line);
    } catch (const ScriptError&) {
      continue;
    }
    std::string again;
    for (const std::string& word : words) again += Quoted(word) + " ";
    fuzz::Require(SplitScriptLine(again) == words, "words in quotes are the same words");
    for (const std::string& word : words) {
      DidYouMean(word, words);
      try {
        const int number = NumberFromWord(word, "N", -5, 32767);
        fuzz::Require(number >= -5 && number <= 32767, "a number lies in its range");
      } catch (const ScriptError&) {
        continue;
      }
    }
  }
  return 0;
}
