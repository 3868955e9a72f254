// The signs of a long command: hourglass pointer and action text, taken back when a scope ends.
#pragma once

#include <string_view>

#include "base/progress.h"
#include "controls/form.h"

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

class BusyScope {
 public:
  BusyScope(Form& form, Progress& progress, std::string_view action)
      : progress_(progress, action), pointer_(form) {}

 private:
  ProgressScope progress_;
  HourglassScope pointer_;
};

}  // namespace vistaplot
