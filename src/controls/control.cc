#include "controls/control.h"

#include <array>
#include <cstddef>

namespace vistaplot {

std::string_view KindName(ControlKind kind) {
  static constexpr std::array<std::string_view, 14> kNames = {"Label",
                                                              "TextBox",
                                                              "CheckBox",
                                                              "OptionGroup",
                                                              "ComboBox",
                                                              "ListBox",
                                                              "Button",
                                                              "MenuItem",
                                                              "Panel",
                                                              "Frame",
                                                              "ScrollBar",
                                                              "Timer",
                                                              "Grid",
                                                              "ChartBox"};
  return kNames[static_cast<std::size_t>(kind)];
}

void Control::SetName(std::string_view name, std::optional<int> index) {
  name_ = name;
  index_ = index;
}

void Control::SetCaption(std::string_view caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  Tell(ControlAspect::kCaption);
}

void Control::SetDescription(std::string_view description) {
  if (description_ == description) return;
  description_ = description;
  Tell(ControlAspect::kCaption);
}

std::string_view Control::HelpTopic() const {
  return help_topic_.empty() && container_ != nullptr ? container_->HelpTopic() : help_topic_;
}

void Control::SetVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  Tell(ControlAspect::kVisible);
}

void Control::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Tell(ControlAspect::kEnabled);
}

bool Control::Shown() const {
  return visible_ && (container_ == nullptr || container_->Shown());
}

bool Control::Usable() const {
  return visible_ && enabled_ && (container_ == nullptr || container_->Usable());
}

void Control::SetPlace(const Place& place) {
  if (place_ == place) return;
  place_ = place;
  Tell(ControlAspect::kPlace);
}

}  // namespace vistaplot
