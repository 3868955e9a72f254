// The settings in one plain-text file, vistaplot's settings.ini. app/ini_text.h has its form.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "app/ini_text.h"
#include "base/settings.h"

namespace vistaplot {

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
