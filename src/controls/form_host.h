// Where forms are shown: a desktop's windows, or nowhere when a script plays the user.
#pragma once

namespace vistaplot {

class Form;

enum class WindowArrangement { kCascade, kTile, kArrangeIcons };

/// Places are told in twips; a pixel of every display has as many.
inline constexpr float kTwipsPerPixel = 15.0F;

/// Lengths in twips.
struct DisplaySize {
  float width = 9600.0F;
  float height = 7200.0F;
};

class FormHost {
 public:
  virtual ~FormHost() = default;

  /// The size that screens are scaled to.
  virtual DisplaySize Display() const = 0;

  virtual void FormShown(Form& form) = 0;   ///< shown, or brought to the front
  virtual void FormHidden(Form& form) = 0;  ///< hidden or unloaded
  virtual void FormRepaint(Form& form) = 0;
  virtual void PointerChanged(Form& form) = 0;

  /// Lets the user work on a form that is already shown, and nowhere else, until it is hidden.
  virtual void RunModal(Form& form) = 0;

  /// The screen that the user looks at; null when none is shown.
  virtual Form* FrontScreen() const = 0;

  virtual void Arrange(WindowArrangement arrangement) = 0;

  // Comforts of a desktop; nothing where there are no windows.
  virtual void StepScreen(bool forward) = 0;  ///< the next or previous screen comes to the front
  virtual void SwitchFullScreen() = 0;        ///< the front screen on the whole display, or back
  /// True once the user pressed Esc since a form's pointer became the hourglass; lets the skin look
  /// for it, and nothing else, between two steps of a long run. A script is never interrupted.
  virtual bool StopWanted() { return false; }

  virtual void ShowKeys() = 0;  ///< a list of the keys that do something
  /// The manual, at the section about the control that has the keyboard.
  virtual void ShowManual() = 0;
};

}  // namespace vistaplot
