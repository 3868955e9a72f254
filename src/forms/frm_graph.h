// The graph screen of one chart.
#pragma once

#include "controls/form.h"
#include "controls/simple_controls.h"
#include "controls/value_controls.h"
#include "controls/view_controls.h"
#include "forms/context.h"

namespace vistaplot {

class FrmGraph : public Form {
 public:
  explicit FrmGraph(const Context& context);

  ChartBox VtChart1;
  Label lblboxdate;    ///< dates of the last X and O box of a point-and-figure chart, else empty
  ScrollBar HScroll1;  ///< the chart's last market day

  /// Draws the chosen kind of graph up to the bar's day, with the same funds.
  void HScroll1_Change();
  /// Tells the date of the clicked row and the value in sheet column Series + 1 in a box; cancelled
  /// for result files, and where the funds of the chart are no longer loaded.
  void VtChart1_PointSelected(PointSelection& selection);

  /// Shows the row of the data screen that a cell of a chart over two parameters was made from,
  /// selected as a whole. Nothing happens for an empty cell, or when another sheet is active.
  void ShowCase(int row, int column);

 protected:
  void Form_Load() override;

 private:
  const Context& context_;
};

}  // namespace vistaplot
