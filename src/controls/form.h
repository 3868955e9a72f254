// A screen without its toolkit: an ordered list of controls, and whether it is loaded and shown.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"
#include "controls/form_host.h"

namespace vistaplot {

enum class FormStyle {
  kFrame,   ///< the main window
  kScreen,  ///< lives inside the main window
  kWindow,  ///< a window of its own beside the main window
  kDialog   ///< modal over the main window
};

enum class MousePointer { kDefault, kHourglass };

/// One row of a screen's design: the control, its name, its caption and its place.
struct Design {
  Control* control;
  std::string_view name;
  std::string_view caption;
  Place place;
  Control* container = nullptr;
  std::optional<int> index = {};  ///< position in a control array
};

/// The place of a control that has all four lengths, in twips.
inline Place At(float left, float top, float width, float height) {
  return {.Left = left, .Top = top, .Width = width, .Height = height};
}

class Form {
 public:
  Form(std::string_view name, std::string_view caption, FormStyle style, FormHost& host)
      : name_(name), caption_(caption), style_(style), host_(host) {}
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& Name() const { return name_; }
  const std::string& Caption() const { return caption_; }
  FormStyle Style() const { return style_; }

  /// All controls in the form's order; one of a control array is an entry of its own.
  const std::vector<Control*>& Controls() const { return controls_; }
  /// The control of that name, case ignored; null when there is none.
  Control* Find(std::string_view name, std::optional<int> index = {}) const;

  bool Loaded() const { return loaded_; }
  bool Shown() const { return shown_; }

  /// Puts the controls back to their designed places and runs Form_Load; nothing when loaded.
  void Load();
  void Show();       ///< loads, shows, brings to the front
  void ShowModal();  ///< the same, and returns once it is hidden or unloaded
  void Hide();
  void Unload();  ///< hides; the next Load starts afresh

  MousePointer Pointer() const { return pointer_; }
  void SetPointer(MousePointer pointer);

  /// Asks the skin to paint the whole form now.
  void Refresh() { host_.FormRepaint(*this); }

 protected:
  virtual void Form_Load() {}

  FormHost& Host() const { return host_; }

  /// Takes controls into the list, in order, with their names, captions and places.
  void Add(const std::vector<Design>& designs);

 private:
  std::string name_;
  std::string caption_;
  FormStyle style_;
  FormHost& host_;
  std::vector<Control*> controls_;
  std::vector<Place> designed_places_;
  bool loaded_ = false;
  bool shown_ = false;
  MousePointer pointer_ = MousePointer::kDefault;
};

// Fits a screen that was designed for one display size to another.

/// The display that all screens are designed for, 640 by 480 pixels, in twips.
inline constexpr float kDesignWidth = 9600.0F;
inline constexpr float kDesignHeight = 7200.0F;

/// Bit 1: the control has a Left; bit 2: a Top. 0 to 3.
int HasLeftTop(const Control& control);
/// Bit 1: the control has a Width; bit 2: a Height. 0 to 3.
int HasWidthHeight(const Control& control);

/// Multiplies the controls' lengths by display / design, in single precision. Nothing is touched
/// when both ratios are exactly 1; the form itself keeps its size, fonts are not scaled.
void ScaleControls(const Form& form,
                   float designWidth,
                   float designHeight,
                   const DisplaySize& display);

}  // namespace vistaplot
