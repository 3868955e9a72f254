#include "controls/list_controls.h"

#include <cstddef>
#include <utility>

namespace vistaplot {

std::string_view EntryControl::CurrentText() const {
  if (list_index_ < 0) return {};
  return entries_[static_cast<std::size_t>(list_index_)];
}

void EntryControl::AddEntry(std::string_view text) {
  entries_.emplace_back(text);
  Tell(ControlAspect::kEntries);
}

void EntryControl::SetEntries(std::vector<std::string> entries) {
  entries_ = std::move(entries);
  list_index_ = -1;
  Tell(ControlAspect::kEntries);
}

void ComboBox::SetListIndex(int index) {
  if (index < -1 || index >= Count()) return;
  StoreListIndex(index);
  Tell(ControlAspect::kValue);
  if (Click) Click();
}

void OptionGroup::SetListIndex(int index) {
  if (index < 0 || index >= Count()) return;
  Preset(index);
  if (Click) Click(index);
}

void OptionGroup::Preset(int index) {
  StoreListIndex(index);
  Tell(ControlAspect::kValue);
}

void ListBox::AddEntry(std::string_view text) {
  selected_.push_back(false);
  EntryControl::AddEntry(text);
}

void ListBox::SetEntries(std::vector<std::string> entries) {
  selected_.assign(entries.size(), false);
  EntryControl::SetEntries(std::move(entries));
}

void ListBox::SetListIndex(int index) {
  if (index < -1 || index >= Count()) return;
  StoreListIndex(index);
  if (!multi_select) {
    selected_.assign(static_cast<std::size_t>(Count()), false);
    if (index >= 0) selected_[static_cast<std::size_t>(index)] = true;
  }
  Tell(ControlAspect::kValue);
  if (Click) Click();
}

void ListBox::MoveTo(int index) {
  if (index < 0 || index >= Count()) return;
  selected_.assign(static_cast<std::size_t>(Count()), false);
  selected_[static_cast<std::size_t>(index)] = true;
  SetListIndex(index);
}

bool ListBox::Selected(int position) const {
  const auto index = static_cast<std::size_t>(position);
  return position >= 0 && index < selected_.size() && selected_[index];
}

std::vector<int> ListBox::SelectedPositions() const {
  std::vector<int> positions;
  for (int i = 0; i < static_cast<int>(selected_.size()); ++i) {
    if (Selected(i)) positions.push_back(i);
  }
  return positions;
}

void ListBox::Select(const std::vector<int>& positions, int current) {
  selected_.assign(static_cast<std::size_t>(Count()), false);
  for (const int position : positions) {
    if (position < 0 || position >= Count()) continue;
    selected_[static_cast<std::size_t>(position)] = true;
    StoreListIndex(position);
  }
  if (current >= 0 && current < Count()) StoreListIndex(current);
  Tell(ControlAspect::kValue);
  if (Click) Click();
}

}  // namespace vistaplot
