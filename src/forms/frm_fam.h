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
  Label lblBegNote;  ///< beside a date box whose text is no date; else empty
  Label lblEndNote;
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

  /// What the boxes hold, for a summary; a date that was typed last counts also when its box was
  /// not left.
  FamilyWindow Window();

 protected:
  void Form_Load() override;

 private:
  void CheckDates();

  const Context& context_;
};

}  // namespace vistaplot
