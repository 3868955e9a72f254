// The settings in one plain-text file: section [startup] of vistaplot's settings.ini.
//
// One "key=value" a line. Blanks around key and value do not count, keys and sections are found in
// any case, lines that begin with ";" or "#" are comments. A value stands as it is: backslashes,
// commas, quotes, "=", ";" and "#" have no meaning in it. A value in double quotes is what stands
// between the outer two, so one that begins or ends with a blank, or has quotes around it, is
// written that way. Format page: docs/formats/settings.md.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/settings.h"

namespace vistaplot {

class IniSettings : public Settings {
 public:
  /// Reads `path` now; a file or folder that is not there is an empty store and is made by Save.
  explicit IniSettings(std::string path);

  std::string Get(std::string_view key, std::string_view fallback = {}) const override;

  /// Reads the file again, so that what others wrote meanwhile stays, puts the value in its line or
  /// a new one, and replaces the file in one step; every other line is kept as it is. Nothing is
  /// written when the file holds the value already. A control character (a line break) in `value`
  /// is stored as a blank. A file that is no text is first copied beside itself as
  /// "settings.ini.damaged" (or
  /// ".damaged2", ...). A file that is there but cannot be read is left alone: an error.
  [[nodiscard]] Status Save(std::string_view key, std::string_view value) override;

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
  std::vector<std::string> lines_;  ///< as in the file, ends of line included
};

}  // namespace vistaplot
