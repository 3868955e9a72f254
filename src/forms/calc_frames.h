// The four frames of the calculations screen: their controls and where they stand.
#pragma once

#include <array>
#include <vector>

#include "controls/form.h"
#include "controls/list_controls.h"
#include "controls/value_controls.h"

namespace vistaplot {

/// The exchange's advance/decline line.
struct ExchangeFrame {
  Frame fraAdvDec;
  Label lblADFile;
  TextBox txtADFile;
  Button cmdADFile;
  Label lblADTitle;
  TextBox txtADTitle;
  Label lblADSymbol;
  TextBox txtADSymbol;
  Button cmdAD;
  Label lblADNote;  ///< what the last calculation of the frame did

  std::vector<Design> Designs();
};

/// A family's advance/decline line.
struct FamilyFrame {
  Frame fraADFam;
  Label lblADFamFam;
  TextBox txtADFamFam;
  Button cmdADFamFam;
  Label lblADFamFile;
  TextBox txtADFamFile;
  Button cmdADFamFile;
  Label lblADFamTitle;
  TextBox txtADFamTitle;
  Label lblADFamSymbol;
  TextBox txtADFamSymbol;
  Button cmdADFam;
  Label lblADFamNote;

  std::vector<Design> Designs();
};

/// A series of any beta.
struct BetaFrame {
  Frame FraBeta;
  Label lblFnuFile;
  TextBox txtFnuFile;
  Button cmdFnuFile;
  Label lblFnuTitle;
  TextBox txtFnuTitle;
  Label lblFnuSymbol;
  TextBox txtFnuSymbol;
  Label lblBeta;
  TextBox txtBeta;
  Label lblFnuNav;
  TextBox txtFnuNav;
  Button CmdBetaFnu;
  Label lblFnuNote;

  std::vector<Design> Designs();
};

/// The signal summary, from left to right in the order of work: signals, funds and days,
/// thresholds, files.
struct SignalFrame {
  Frame fraSigFam;
  Label lblSigfiles;
  ListBox lstSigfiles;  ///< signal files by name, filled before the screen is shown
  Button CmdAddSig;
  Button cmdRemSig;
  Label lblSigFam;
  ListBox lstSigFam;  ///< those chosen, in order
  Label lblSigFamFile;
  TextBox txtSigFamFile;
  Button cmdSigFamFile;
  Button CmdSaveSigFam;

  Label lblSigInFund;
  TextBox txtSigInFund;
  Label lblSigOutFund;
  TextBox txtSigOutFund;
  Label lblStartDate;
  TextBox txtStartDate;
  TextBox txtStartDate2;  ///< its market day; never shown
  Label lblEndDate;
  TextBox txtEndDate;
  TextBox txtEndDate2;
  Label lblDelay;
  TextBox txtDelay;

  CheckBox chkSigRange;
  std::array<Label, 4> lblSigRange;    ///< 0 the buy range, 1 and 2 " to", 3 the sell range
  std::array<TextBox, 4> txtSigRange;  ///< buy from, buy to, sell from, sell to

  CheckBox chkSigSumFile;
  TextBox txtSigSumFile;
  CheckBox chkSigDetFile;
  TextBox txtSigDetFile;
  CheckBox chkCompSigFile;
  TextBox txtCompSigFile;
  CheckBox chkCompFile;
  TextBox txtCompFile;
  Label lblCompTitle;
  TextBox txtCompTitle;
  Label lblCompSymbol;
  TextBox txtCompSymbol;

  Label lblSigNote;  ///< what a check changed in a box of the frame, and how the last run ended
  Button cmdLoadParms;
  Button cmdSaveParms;
  Button cmdSigSum;

  std::vector<Design> Designs();

 private:
  std::vector<Design> SignalDesigns();
  std::vector<Design> FundDesigns();
  std::vector<Design> ThresholdDesigns();
  std::vector<Design> FileDesigns();
};

}  // namespace vistaplot
