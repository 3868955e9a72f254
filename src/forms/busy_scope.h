// The signs of a long command: hourglass pointer and action text, taken back when a scope ends.
#pragma once

#include <string_view>

#include "base/progress.h"
#include "controls/form.h"

namespace vistaplot {

class BusyScope {
 public:
  BusyScope(Form& form, Progress& progress, std::string_view action)
      : form_(form), progress_(progress, action) {
    form_.SetPointer(MousePointer::kHourglass);
  }
  ~BusyScope() { form_.SetPointer(MousePointer::kDefault); }
  BusyScope(const BusyScope&) = delete;
  BusyScope& operator=(const BusyScope&) = delete;

 private:
  Form& form_;
  ProgressScope progress_;
};

}  // namespace vistaplot
