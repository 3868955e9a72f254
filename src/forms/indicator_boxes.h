// The indicators of the parameter screen: a check box each, text boxes for their parameters, and
// which of them can be drawn together.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "charts/builders/overlays.h"
#include "controls/form.h"
#include "controls/value_controls.h"

namespace vistaplot {

/// The controls of all seven. Four overlays lie on the price curves and combine freely; the Hurst
/// exponent, the correlation and the maximum-entropy analysis stand alone, each on the screen of
/// three charts. Text boxes hold what the user typed; who draws reads their leading number.
struct IndicatorBoxes {
  CheckBox chkMoveAvg;
  TextBox txtMoveAvg;  ///< market days, "50"
  CheckBox chkAMA;
  TextBox txtAMA;  ///< market days, "150"
  CheckBox chkParabolic;
  Label lblParabolic;
  TextBox txtPBStart;  ///< fractions: "0.02", "0.2", "0.0001"
  TextBox txtPBMax;
  TextBox txtPBAcc;
  CheckBox chkBollinger;
  Label lblBollinger;
  TextBox txtBollinger;  ///< market days, "20"
  CheckBox chkHurst;
  Label lblHurstDays;
  TextBox txtHurstDays;  ///< market days, "100"
  Label lblHurstPeriod;
  TextBox txtHurstPeriod;  ///< number of subdivisions, "5"
  CheckBox chkCorrelation;
  Label lblCorrPeriod;
  TextBox txtCorrPeriod;  ///< market days, "50"
  CheckBox chkMem;
  Label lblMemPeriod;
  TextBox txtMemPeriod;  ///< longest period in market days, "50"
  Label lblMemPoles;
  TextBox txtMemPoles;  ///< order of the model, "15"

  /// All controls in the order of the form, the check boxes first.
  std::vector<Design> Designs();
  /// Fills the parameter boxes with their defaults.
  void SetDefaults();
  /// Each box explains itself by its indicator's section of the manual.
  void SetHelpTopics();

  std::array<CheckBox*, 7> CheckBoxes();
  std::array<CheckBox*, 4> Overlays();

  void Show(bool shown);  ///< all controls
  void ClearAll();
  void ClearOverlays();

  /// An analysis is ticked that has a chart of its own: maximum entropy, Hurst or correlation.
  bool AnalysisTicked() const;

  /// The ticked indicators with the leading numbers of their boxes, 0 where there is none; a number
  /// beyond single precision is infinite.
  IndicatorNumbers Numbers() const;
  /// The two boxes of the maximum-entropy analysis, ticked or not.
  IndicatorNumbers::Mem MemNumbers() const;
};

}  // namespace vistaplot
