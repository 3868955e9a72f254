// The sort dialog.
#pragma once

#include "controls/form.h"
#include "forms/context.h"

namespace vistaplot {

class FrmSort : public Form {
 public:
  explicit FrmSort(const Context& context)
      : Form("frmSort", "Sort", FormStyle::kDialog, context.host) {}
};

}  // namespace vistaplot
