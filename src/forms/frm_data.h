// The data screen: the active sheet of the data table as a spreadsheet.
#pragma once

#include "controls/form.h"
#include "controls/value_controls.h"
#include "forms/shared_state.h"

namespace vistaplot {

class FrmData : public Form {
 public:
  explicit FrmData(const Context& context);

  Grid F1Book1;

  /// Sorts the family summary (sheet 2) by the clicked column, each click the other way round.
  void F1Book1_Click(int row, int col);
  /// Charts the issue of the clicked row of the family summary.
  void F1Book1_RClick(int row, int col);

 protected:
  void Form_Load() override;

 private:
  const Context& context_;
};

}  // namespace vistaplot
