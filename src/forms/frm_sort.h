// The sort dialog: up to three keys, each ascending or descending, for one sheet or several.
#pragma once

#include <string>

#include "controls/form.h"
#include "controls/list_controls.h"
#include "controls/value_controls.h"
#include "forms/shared_state.h"

namespace vistaplot {

class FrmSort : public Form {
 public:
  explicit FrmSort(const Context& context);

  Label lblBlock;  ///< what will be sorted: sheets, rows and columns
  Label lblSort1;
  ComboBox cboSort1;  ///< one entry a key column of the active sheet
  Frame fraOrder1;
  OptionGroup optOrder1;  ///< 0 ascending, 1 descending; likewise below
  Label lblSort2;
  ComboBox cboSort2;  ///< the same and "None" behind; likewise below
  Frame fraOrder2;
  OptionGroup optOrder2;
  Label lblSort3;
  ComboBox cboSort3;
  Frame fraOrder3;
  OptionGroup optOrder3;
  Button cmdSort;
  Button cmdCancel;

  /// Prepares the selections of sheets SortFirstSheet to SortLastSheet, offers the headings of the
  /// active sheet as keys and shows the dialog until it is closed.
  void ShowSortDialog();

  void cmdSort_Click();
  void cmdCancel_Click();

 private:
  void DesignKey(int number, Label& label, ComboBox& keys, Frame& frame, OptionGroup& order);
  void FillKeys();
  std::string BlockText() const;
  int FirstKeyColumn() const;
  int KeyOf(const ComboBox& keys, const OptionGroup& order, bool may_be_none) const;

  const Context& context_;
};

// The sheet chooser.

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
