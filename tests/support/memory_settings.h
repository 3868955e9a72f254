// Settings that live in memory, for tests.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "base/settings.h"

namespace vistaplot::test {

class MemorySettings : public Settings {
 public:
  std::map<std::string, std::string, std::less<>> values;
  bool refuses = false;  ///< every Save fails as on a full disk

  std::string Get(std::string_view key, std::string_view fallback) const override {
    const auto found = values.find(key);
    return found == values.end() ? std::string(fallback) : found->second;
  }
  [[nodiscard]] Status Save(std::string_view key, std::string_view value) override {
    if (refuses) return MakeError(kErrorDiskFull, "settings.ini");
    values[std::string(key)] = value;
    return Done{};
  }
};

}  // namespace vistaplot::test
