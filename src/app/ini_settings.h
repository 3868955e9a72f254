// The settings in one plain-text file, vistaplot's settings.ini.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/settings.h"

namespace vistaplot {

// The text of a settings file: section [startup] of "key=value" lines.
//
// Blanks around key and value do not count, keys and sections are found in any case, lines that
// begin with ";" or "#" are comments. A value stands as it is: backslashes, commas, quotes, "=",
// ";" and "#" have no meaning in it. A value in double quotes is what stands between the outer two,
// so one that begins or ends with a blank, or has quotes around it, is written that way. Format
// page: docs/formats/settings.md.

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

class IniSettings : public Settings {
 public:
  /// Reads `path` now; a file or folder that is not there is an empty store and is made by a save.
  explicit IniSettings(std::string path);

  std::string Get(std::string_view key, std::string_view fallback = {}) const override;

  /// Under a lock (base/file_lock.h): reads the file again, so that what others wrote meanwhile
  /// stays, puts the values in their lines, and replaces the file in one step. Nothing is written
  /// when the file holds all of them already. A file that is no text is first copied beside itself
  /// as "settings.ini.damaged" (or ".damaged2", ...). A file that is there but cannot be read, or
  /// has more than a megabyte, is left alone: an error.
  [[nodiscard]] Status SaveAll(std::span<const Setting> settings) override;

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
  IniText text_;
};

}  // namespace vistaplot
