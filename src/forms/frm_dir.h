// The directory chooser: a drive, a directory on it, and what the directory is wanted for.
#pragma once

#include "controls/form.h"
#include "controls/simple_controls.h"
#include "controls/value_controls.h"
#include "forms/context.h"

namespace vistaplot {

class FrmDir : public Form {
 public:
  explicit FrmDir(const Context& context);

  Label lblDirectory;  ///< the prompt; the caller sets its caption before showing the dialog
  TextBox Drive1;      ///< the drive, e.g. "d:"
  TextBox Dir1;        ///< path of the chosen directory; empty: none
  Button cmdOK;

  void Drive1_Change();
  void cmdOK_Click();

 protected:
  void Form_Load() override;  ///< no directory is chosen

 private:
  const Context& context_;
};

}  // namespace vistaplot
