#include "controls/value_controls.h"

#include <algorithm>

namespace vistaplot {

void TextBox::SetText(std::string_view text) {
  if (text_ == text) return;
  text_ = text;
  Tell(ControlAspect::kValue);
  if (Change) Change();
}

void TextBox::SetFault(std::string_view why) {
  if (fault_ == why) return;
  fault_ = why;
  Tell(ControlAspect::kValue);
}

void CheckBox::SetChecked(bool checked) {
  if (checked_ == checked) return;
  checked_ = checked;
  Tell(ControlAspect::kValue);
  if (Click) Click();
}

void ScrollBar::SetMin(int min) {
  if (min_ == min) return;
  min_ = min;
  max_ = std::max(max_, min);
  Tell(ControlAspect::kValue);
  SetValue(value_);
}

void ScrollBar::SetMax(int max) {
  if (max_ == max) return;
  max_ = max;
  min_ = std::min(min_, max);
  Tell(ControlAspect::kValue);
  SetValue(value_);
}

void ScrollBar::SetValue(int value) {
  const int within = std::clamp(value, min_, max_);
  if (within == value_) return;
  value_ = within;
  Tell(ControlAspect::kValue);
  if (Change) Change();
}

void Panel::SetPercent(int percent) {
  if (percent_ == percent) return;
  percent_ = percent;
  Tell(ControlAspect::kValue);
  Refresh();
}

void MenuItem::SetChecked(bool checked) {
  if (checked_ == checked) return;
  checked_ = checked;
  Tell(ControlAspect::kValue);
}

}  // namespace vistaplot
