// Per-user settings, as text by key. The screens see this; app/ini_settings.h keeps them in a file.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "base/result.h"

namespace vistaplot {

struct Setting {
  std::string key;
  std::string value;
};

class Settings {
 public:
  virtual ~Settings() = default;

  /// The stored text, taken literally; `fallback` when the key was never written.
  virtual std::string Get(std::string_view key, std::string_view fallback = {}) const = 0;

  /// Stores what belongs together as one change: all of it, at once and whole, or, on failure,
  /// nothing. Keys that other programs wrote meanwhile stay.
  [[nodiscard]] virtual Status SaveAll(std::span<const Setting> settings) = 0;

  /// The same for one text.
  [[nodiscard]] Status Save(std::string_view key, std::string_view value) {
    const std::array one{Setting{std::string(key), std::string(value)}};
    return SaveAll(one);
  }
};

}  // namespace vistaplot
