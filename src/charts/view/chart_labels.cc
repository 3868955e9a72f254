#include "charts/view/chart_labels.h"

#include <cstring>

namespace vistaplot {

void ChartLabels::Resize(int count) {
  slots_.resize(static_cast<std::size_t>(count));
  if (slots_.empty()) long_texts_.clear();
}

std::string ChartLabels::At(int number) const {
  const Slot& slot = slots_[static_cast<std::size_t>(number - 1)];
  if (slot.length == kUnset) return letter_ + std::to_string(number);
  if (slot.length != kLong) return {slot.text.data(), slot.length};
  std::size_t index = 0;
  std::memcpy(&index, slot.text.data(), sizeof(index));
  return long_texts_[index];
}

void ChartLabels::SetLong(Slot& slot, std::string_view text) {
  std::size_t index = long_texts_.size();
  if (slot.length == kLong) {
    std::memcpy(&index, slot.text.data(), sizeof(index));
    long_texts_[index] = text;
    return;
  }
  long_texts_.emplace_back(text);
  std::memcpy(slot.text.data(), &index, sizeof(index));
  slot.length = kLong;
}

}  // namespace vistaplot
