// The dialog of the point-and-figure parameters: price ranges, the box value of each, and how many
// boxes against a column turn it.
#pragma once

#include <array>

#include "controls/form.h"
#include "controls/list_controls.h"
#include "controls/value_controls.h"
#include "forms/shared_state.h"

namespace vistaplot {

/// The stored parameters, settings "pfrange1" to "pfrange8" (bounds, highest first), "pfbox1" to
/// "pfbox5" and "pfrev" ("1" one box, "2" three, "3" five). A text that is no number, none that
/// single precision can hold, or no reversal that there is counts as never written and gives the
/// default.
PointAndFigureSettings ReadPointAndFigureSettings(const Settings& settings);

class Frmpfp : public Form {
 public:
  explicit Frmpfp(const Context& context);

  Label lblTitle;
  Label lblRanges;
  Label lblBoxValue;
  /// Bounds in price units, highest first: 0 the lower bound of the top range; 1 and 2, 3 and 4, 5
  /// and 6 the upper and lower ones of the next three; 7 the upper one of the bottom range.
  std::array<TextBox, 8> txtRange;
  std::array<Label, 5> lblRange;  ///< the words between and behind the bounds, one a range
  std::array<TextBox, 5> txtBox;  ///< box value of each range in price units, top range first
  Frame fraReversal;
  OptionGroup optReversal;  ///< 0 "1 box", 1 "3 box", 2 "5 box"
  Button cmdOK;
  Button cmdSave;
  Button cmdCancel;

  /// Fills the boxes with the parameters in use. For who shows the dialog.
  void ShowParameters();

  /// Keeps the bounds in step when field `index` was left: an upper bound (fields 1, 3, 5, 7)
  /// becomes the lower one above it less 0.01; a lower bound that is not between its neighbours is
  /// told and stays.
  void txtRange_LostFocus(int index);
  /// Takes the parameters for the charts to come, unsaved, and closes. A number that single
  /// precision cannot hold is told; the dialog then stays open and nothing is taken.
  void cmdOK_Click();
  /// Stores all texts in the settings as one change; neither takes the parameters nor closes.
  void cmdSave_Click();
  void cmdCancel_Click();

 private:
  void DesignRanges();
  double Range(int index) const;
  void SetUpperBound(int index);

  const Context& context_;
};

}  // namespace vistaplot
