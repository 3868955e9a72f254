// The sheet chooser.
#pragma once

#include "controls/form.h"
#include "controls/list_controls.h"
#include "controls/simple_controls.h"
#include "forms/context.h"

namespace vistaplot {

class FrmSheet : public Form {
 public:
  explicit FrmSheet(const Context& context);

  Label lblSheet;
  ComboBox cboSheet;  ///< the caller fills it
  Button cmdOK;
  Button cmdCancel;

  void cmdOK_Click();
  void cmdCancel_Click();

 private:
  SharedState& state_;
};

}  // namespace vistaplot
