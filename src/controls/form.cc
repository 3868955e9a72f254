#include "controls/form.h"

#include "base/text.h"

namespace vistaplot {

Control* Form::Find(std::string_view name, std::optional<int> index) const {
  for (Control* control : controls_) {
    if (control->Index() == index && EqualsIgnoringCase(control->Name(), name)) return control;
  }
  return nullptr;
}

void Form::Load() {
  if (loaded_) return;
  loaded_ = true;
  for (std::size_t i = 0; i < controls_.size(); ++i) controls_[i]->SetPlace(designed_places_[i]);
  Form_Load();
}

void Form::Show() {
  Load();
  shown_ = true;
  host_.FormShown(*this);
}

void Form::ShowModal() {
  Show();
  if (shown_) host_.RunModal(*this);
}

void Form::Hide() {
  if (!shown_) return;
  shown_ = false;
  host_.FormHidden(*this);
}

void Form::Unload() {
  Hide();
  loaded_ = false;
}

void Form::SetPointer(MousePointer pointer) {
  if (pointer_ == pointer) return;
  pointer_ = pointer;
  host_.PointerChanged(*this);
}

void Form::Add(const std::vector<Design>& designs) {
  for (const Design& design : designs) {
    design.control->SetName(design.name, design.index);
    design.control->SetCaption(design.caption);
    design.control->SetContainer(design.container);
    design.control->SetPlace(design.place);
    controls_.push_back(design.control);
    designed_places_.push_back(design.place);
  }
}

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
