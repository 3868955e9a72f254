// The calculations screen.
#pragma once

#include "controls/form.h"
#include "controls/list_controls.h"
#include "controls/simple_controls.h"
#include "forms/context.h"

namespace vistaplot {

class FrmCalc : public Form {
 public:
  explicit FrmCalc(const Context& context);

  Label lblSigfiles;
  ListBox lstSigfiles;  ///< signal files by name, filled before the screen is shown

 protected:
  void Form_Load() override;
};

}  // namespace vistaplot
