// Settings that live in memory, for tests.
#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>

#include "base/settings.h"

namespace vistaplot::test {

class MemorySettings : public Settings {
 public:
  std::map<std::string, std::string, std::less<>> values;
  bool refuses = false;  ///< every save fails as on a full disk
  int saves = 0;         ///< writes so far

  std::string Get(std::string_view key, std::string_view fallback) const override {
    const auto found = values.find(key);
    return found == values.end() ? std::string(fallback) : found->second;
  }
  [[nodiscard]] Status SaveAll(std::span<const Setting> settings) override {
    if (refuses) return MakeError(kErrorDiskFull, "settings.ini");
    for (const Setting& setting : settings) values[setting.key] = setting.value;
    ++saves;
    return Done{};
  }
};

}  // namespace vistaplot::test
