// The family-analysis dialog: the window of days and the six gain periods of the family summary.
#pragma once

#include <array>

#include "controls/form.h"
#include "controls/simple_controls.h"
#include "controls/value_controls.h"
#include "forms/context.h"
#include "import/family_summary.h"

namespace vistaplot {

class FrmFam : public Form {
 public:
  explicit FrmFam(const Context& context);

  Label lblbegdate;
  Label lblEndDate;
  Label lblDays;
  TextBox txtbegDate;   ///< begin date, "mm/dd/yyyy"
  TextBox txtBegDate2;  ///< its market day
  TextBox txtEndDate;
  TextBox txtEndDate2;
  std::array<TextBox, kGainPeriods> txtDays;  ///< gain periods in market days
  Button cmdOK;
  Button cmdSave;

  void txtbegDate_LostFocus();
  void txtEndDate_LostFocus();
  void cmdOK_Click();
  void cmdSave_Click();

  /// What the boxes hold, for a summary. Error 6 names the box whose day is beyond 16 bits.
  Result<FamilyWindow> Window() const;

 protected:
  void Form_Load() override;

 private:
  const Context& context_;
};

}  // namespace vistaplot
