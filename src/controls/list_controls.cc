#include "controls/list_controls.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "base/text.h"

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

namespace {

constexpr float kSlack = 15.0F;        ///< twips that neighbours may overlap
constexpr float kFarthestLeft = 3.0F;  ///< gap to a label on the left, in heights of the label
constexpr float kFarthestAbove = 1.0F;

/// From where to where along one axis, in twips.
struct Reach {
  float first;
  float last;

  float Length() const { return last - first; }
};

struct Candidate {
  Control* control;
  Reach x;
  Reach y;
};

/// How long two reaches run side by side; below 0 when they do not.
float Overlap(const Reach& a, const Reach& b) {
  return std::min(a.last, b.last) - std::max(a.first, b.first);
}

bool Beside(const Reach& a, const Reach& b) {
  return Overlap(a, b) >= std::min(a.Length(), b.Length()) / 2.0F;
}

bool TakesValue(const Control& control) {
  switch (control.Kind()) {
    case ControlKind::kTextBox:
    case ControlKind::kComboBox:
    case ControlKind::kListBox:
    case ControlKind::kScrollBar:
    case ControlKind::kGrid:
    case ControlKind::kChartBox:
      return true;
    default:
      return false;
  }
}

bool SaysSomething(const Control& control) {
  const bool is_kind =
      control.Kind() == ControlKind::kLabel || control.Kind() == ControlKind::kCheckBox;
  return is_kind && !TrimBlanks(control.Caption()).empty();
}

std::optional<Candidate> CandidateOf(Control& control) {
  const Place& place = control.Where();
  const bool is_container =
      control.Kind() == ControlKind::kFrame || control.Kind() == ControlKind::kPanel;
  if (is_container || !control.Shown()) return std::nullopt;
  if (!place.Left || !place.Top || !place.Width || !place.Height) return std::nullopt;
  return Candidate{&control,
                   {*place.Left, *place.Left + *place.Width},
                   {*place.Top, *place.Top + *place.Height}};
}

class Search {
 public:
  explicit Search(const Form& form) {
    for (Control* control : form.Controls()) {
      if (const auto candidate = CandidateOf(*control)) all_.push_back(*candidate);
    }
  }

  std::map<const Control*, Control*> Run() {
    Match(&Search::GapToLeft);
    for (const auto& [control, label] : found_) taken_.insert(label);
    Match(&Search::GapAbove);
    return std::move(found_);
  }

 private:
  using Gap = std::optional<float> (Search::*)(const Candidate& label, const Candidate& control);

  /// Gives every control that has no label yet the nearest one by `gap`.
  void Match(Gap gap) {
    for (const Candidate& control : all_) {
      if (!TakesValue(*control.control) || found_.contains(control.control)) continue;
      std::optional<float> nearest;
      for (const Candidate& label : all_) {
        if (label.control->Container() != control.control->Container()) continue;
        if (!SaysSomething(*label.control)) continue;
        const auto distance = (this->*gap)(label, control);
        if (!distance || (nearest && *distance >= *nearest)) continue;
        nearest = distance;
        found_[control.control] = label.control;
      }
    }
  }

  std::optional<float> GapToLeft(const Candidate& label, const Candidate& control) {
    const float gap = control.x.first - label.x.last;
    if (gap < -kSlack || gap > kFarthestLeft * label.y.Length()) return std::nullopt;
    if (!Beside(label.y, control.y)) return std::nullopt;
    const Reach line{std::max(label.y.first, control.y.first),
                     std::min(label.y.last, control.y.last)};
    if (Occupied({label.x.last, control.x.first}, line)) return std::nullopt;
    return gap;
  }

  std::optional<float> GapAbove(const Candidate& label, const Candidate& control) {
    const float gap = control.y.first - label.y.last;
    if (gap < -kSlack || gap > kFarthestAbove * label.y.Length()) return std::nullopt;
    const bool is_label = label.control->Kind() == ControlKind::kLabel;
    if (!is_label || taken_.contains(label.control)) return std::nullopt;
    if (!Beside(label.x, control.x)) return std::nullopt;
    const Reach column{std::max(label.x.first, control.x.first),
                       std::min(label.x.last, control.x.last)};
    if (Occupied(column, {label.y.last, control.y.first})) return std::nullopt;
    return gap;
  }

  bool Occupied(const Reach& x, const Reach& y) const {
    return std::any_of(all_.begin(), all_.end(), [&](const Candidate& other) {
      return Overlap(other.x, x) > 0.0F && Overlap(other.y, y) > 0.0F;
    });
  }

  std::vector<Candidate> all_;
  std::map<const Control*, Control*> found_;
  std::set<const Control*> taken_;  ///< labels that have a control on their right
};

}  // namespace

std::map<const Control*, Control*> FindLabels(const Form& form) {
  return Search(form).Run();
}

}  // namespace vistaplot
