#include "charts/chart_labels.h"

namespace vistaplot {

void ChartLabels::Clear() {
  texts_.clear();
  places_.clear();
}

void ChartLabels::CutTo(int count) {
  const auto size = static_cast<std::size_t>(count);
  if (places_.size() > size) places_.resize(size);
}

void ChartLabels::Set(int number, std::string_view text) {
  const auto wanted = static_cast<std::size_t>(number);
  while (places_.size() + 1 < wanted) Append(At(static_cast<int>(places_.size()) + 1));
  if (places_.size() < wanted) {
    Append(text);
    return;
  }
  Place& place = places_[wanted - 1];
  if (text.size() > place.length) {
    place.offset = texts_.size();
    texts_ += text;
  } else {
    texts_.replace(place.offset, text.size(), text);
  }
  place.length = text.size();
}

std::string ChartLabels::At(int number) const {
  const auto index = static_cast<std::size_t>(number - 1);
  if (index >= places_.size()) return letter_ + std::to_string(number);
  return texts_.substr(places_[index].offset, places_[index].length);
}

void ChartLabels::Append(std::string_view text) {
  places_.push_back({texts_.size(), text.size()});
  texts_ += text;
}

}  // namespace vistaplot
