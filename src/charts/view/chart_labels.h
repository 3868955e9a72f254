// The labels of a chart's rows or columns.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vistaplot {

/// Texts numbered from 1, each a letter and its number ("R1") until it is set. Short ones, such as
/// dates, need no memory of their own: a chart of 12,000 dates is labelled anew at every step of a
/// scroll bar.
class ChartLabels {
 public:
  explicit ChartLabels(char letter) : letter_(letter) {}

  /// How many there are; those that come are not set.
  void Resize(int count);

  /// `number` is 1 to the count.
  void Set(int number, std::string_view text) {
    Slot& slot = slots_[static_cast<std::size_t>(number - 1)];
    if (text.size() > kShort) {
      SetLong(slot, text);
      return;
    }
    std::copy(text.begin(), text.end(), slot.text.begin());
    slot.length = static_cast<std::uint8_t>(text.size());
  }
  std::string At(int number) const;

 private:
  static constexpr std::size_t kShort = 15;
  static constexpr std::uint8_t kUnset = 254;
  static constexpr std::uint8_t kLong = 255;  // the text holds an index into long_texts_

  struct Slot {
    std::array<char, kShort> text{};
    std::uint8_t length = kUnset;
  };

  void SetLong(Slot& slot, std::string_view text);

  char letter_;
  std::vector<Slot> slots_;
  std::vector<std::string> long_texts_;
};

}  // namespace vistaplot
