// Per-user settings, as text by key. The screens see this; app/ini_settings.h keeps them in a file.
#pragma once

#include <string>
#include <string_view>

#include "base/result.h"

namespace vistaplot {

class Settings {
 public:
  virtual ~Settings() = default;

  /// The stored text, taken literally; `fallback` when the key was never written.
  virtual std::string Get(std::string_view key, std::string_view fallback = {}) const = 0;

  /// Stores a text under a key, at once and whole. On failure the old file is untouched.
  [[nodiscard]] virtual Status Save(std::string_view key, std::string_view value) = 0;
};

}  // namespace vistaplot
