// The family-analysis dialog: the window of days and the six gain periods of the family summary.
#pragma once

#include <array>

#include "controls/form.h"
#include "controls/value_controls.h"
#include "forms/shared_state.h"
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

// The directory chooser: a drive, a directory on it, and what the directory is wanted for.

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
