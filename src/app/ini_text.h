// The text of a settings file: section [startup] of "key=value" lines.
//
// Blanks around key and value do not count, keys and sections are found in any case, lines that
// begin with ";" or "#" are comments. A value stands as it is: backslashes, commas, quotes, "=",
// ";" and "#" have no meaning in it. A value in double quotes is what stands between the outer two,
// so one that begins or ends with a blank, or has quotes around it, is written that way. Format
// page: docs/formats/settings.md.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vistaplot {

class IniText {
 public:
  IniText() = default;
  /// REQUIRES: IsText(content).
  explicit IniText(std::string_view content);

  /// False for content with control characters other than tabs and ends of line.
  static bool IsText(std::string_view content);

  /// The value of a key; of two lines with one key the last counts. Nothing when it has no line.
  std::optional<std::string> Find(std::string_view key) const;

  /// Puts the value in the key's line, or a new one at the end of the section; every other line is
  /// kept as it is. A control character (a line break) in `value` is stored as a blank. False when
  /// the value stood there already.
  bool Put(std::string_view key, std::string_view value);

  std::string Content() const;

 private:
  std::vector<std::string> lines_;  ///< ends of line included
};

}  // namespace vistaplot
