// Controls that hold a value. Setting a value from code raises the same event as the user's action,
// at once: store, tell the skin, raise; so a handler that sets the same control again finds all in
// step. Leaving a text box is the user's alone.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "controls/control.h"

namespace vistaplot {

class EntryControl;

/// What a text box is filled with, for skins that can offer more than typing.
enum class TextContent { kPlain, kDrive, kFolder };

class TextBox : public Control {
 public:
  TextBox() : Control(ControlKind::kTextBox) {}

  TextContent content = TextContent::kPlain;
  /// The list that typing here moves through; its key Down leads into it. Null for most.
  EntryControl* searched = nullptr;
  std::function<void()> Change;
  std::function<void()> LostFocus;

  const std::string& Text() const { return text_; }
  /// Raises Change when the text differs.
  void SetText(std::string_view text);

  void RaiseLostFocus() {
    if (LostFocus) LostFocus();
  }

  /// Why the text does not do; empty when it does. Skins show such a text as wrong.
  const std::string& Fault() const { return fault_; }
  void SetFault(std::string_view why);

 private:
  std::string text_;
  std::string fault_;
};

class CheckBox : public Control {
 public:
  CheckBox() : Control(ControlKind::kCheckBox) {}

  std::function<void()> Click;

  bool Checked() const { return checked_; }
  /// Raises Click when it changes.
  void SetChecked(bool checked);

 private:
  bool checked_ = false;
};

/// A scroll bar; Value stays within Min and Max.
class ScrollBar : public Control {
 public:
  ScrollBar() : Control(ControlKind::kScrollBar) {}

  std::function<void()> Change;

  int Min() const { return min_; }
  int Max() const { return max_; }
  int Value() const { return value_; }

  /// A bound that passes Value moves it along, which raises Change.
  void SetMin(int min);
  void SetMax(int max);
  /// Brought within the bounds; raises Change when it changes.
  void SetValue(int value);

 private:
  int min_ = 0;
  int max_ = 32767;
  int value_ = 0;
};

}  // namespace vistaplot
