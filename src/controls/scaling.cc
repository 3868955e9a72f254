#include "controls/scaling.h"

namespace vistaplot {

namespace {

int Bits(const std::optional<float>& horizontal, const std::optional<float>& vertical) {
  return (horizontal ? 1 : 0) + (vertical ? 2 : 0);
}

void Multiply(std::optional<float>& length, float ratio) {
  if (length) length = *length * ratio;
}

}  // namespace

int HasLeftTop(const Control& control) {
  return Bits(control.Where().Left, control.Where().Top);
}

int HasWidthHeight(const Control& control) {
  return Bits(control.Where().Width, control.Where().Height);
}

void ScaleControls(const Form& form,
                   float designWidth,
                   float designHeight,
                   const DisplaySize& display) {
  const float xr = display.width / designWidth;
  const float yr = display.height / designHeight;
  if (xr == 1.0F && yr == 1.0F) return;
  for (Control* control : form.Controls()) {
    Place place = control->Where();
    const int pos = HasLeftTop(*control);
    if ((pos & 1) != 0) Multiply(place.Left, xr);
    if ((pos & 2) != 0) Multiply(place.Top, yr);
    const int size = HasWidthHeight(*control);
    if ((size & 1) != 0) Multiply(place.Width, xr);
    if ((size & 2) != 0) Multiply(place.Height, yr);
    control->SetPlace(place);
    control->Refresh();
  }
}

}  // namespace vistaplot
