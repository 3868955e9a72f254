// The signs of a long command: hourglass pointer and action text, taken back when a scope ends.
#pragma once

#include <string_view>

#include "base/progress.h"
#include "controls/form.h"
#include "controls/simple_controls.h"

namespace vistaplot {

/// The pointer alone, for a command whose steps tell their action themselves.
class HourglassScope {
 public:
  explicit HourglassScope(Form& form) : form_(form) { form_.SetPointer(MousePointer::kHourglass); }
  ~HourglassScope() { form_.SetPointer(MousePointer::kDefault); }
  HourglassScope(const HourglassScope&) = delete;
  HourglassScope& operator=(const HourglassScope&) = delete;

 private:
  Form& form_;
};

/// Empties a panel when a scope ends: declared ahead of what shows text in it.
class EmptiedPanelScope {
 public:
  explicit EmptiedPanelScope(Panel& panel) : panel_(panel) {}
  ~EmptiedPanelScope() { panel_.SetCaption(""); }
  EmptiedPanelScope(const EmptiedPanelScope&) = delete;
  EmptiedPanelScope& operator=(const EmptiedPanelScope&) = delete;

 private:
  Panel& panel_;
};

/// Pointer of `form` and action text together.
class BusyScope {
 public:
  BusyScope(Form& form, Progress& progress, std::string_view action)
      : progress_(progress, action), pointer_(form) {}

 private:
  ProgressScope progress_;
  HourglassScope pointer_;
};

}  // namespace vistaplot
