#include "controls/simple_controls.h"

namespace vistaplot {

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
