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
  Label lblboxdate;    ///< date of a clicked point-and-figure box
  ScrollBar HScroll1;  ///< the chart's last market day

  void HScroll1_Change();
  /// Shows the clicked day's value in a box.
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
