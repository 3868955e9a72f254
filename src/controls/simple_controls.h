// Controls with a caption and at most a click: labels, panels, frames, buttons, menu items, and the
// timer.
#pragma once

#include <functional>

#include "controls/control.h"

namespace vistaplot {

class Label : public Control {
 public:
  Label() : Control(ControlKind::kLabel) {}
};

/// A panel: a tool bar, or a field of the status line. A meter shows a percentage as well.
class Panel : public Control {
 public:
  Panel() : Control(ControlKind::kPanel) {}

  int Percent() const { return percent_; }  ///< 0 to 100
  /// Stores it, and repaints when it changed.
  void SetPercent(int percent);

 private:
  int percent_ = 0;
};

class Frame : public Control {
 public:
  Frame() : Control(ControlKind::kFrame) {}
};

class Button : public Control {
 public:
  Button() : Control(ControlKind::kButton) {}

  std::function<void()> Click;
  std::function<void()> MouseMove;  ///< the pointer came over it (tool buttons)
  int tip_number = 0;               ///< number of the tool's tip; 0 for other buttons

  void RaiseClick() {
    if (Click) Click();
  }
};

/// A menu (without a Click) or one of its commands.
class MenuItem : public Control {
 public:
  MenuItem() : Control(ControlKind::kMenuItem) {}

  std::function<void()> Click;

  bool Checked() const { return checked_; }
  void SetChecked(bool checked);

  void RaiseClick() {
    if (Click) Click();
  }

 private:
  bool checked_ = false;
};

class Timer : public Control {
 public:
  Timer() : Control(ControlKind::kTimer) {}

  int interval = 0;  ///< milliseconds; 0 stands still
  std::function<void()> Tick;
};

}  // namespace vistaplot
