// The graph screen of one chart.
#pragma once

#include "controls/form.h"
#include "controls/value_controls.h"
#include "forms/shared_state.h"

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

// The graph screen of three charts: prices, an analysis of them, and a spectrum.

class FrmPer : public Form {
 public:
  explicit FrmPer(const Context& context);

  ChartBox VtChart1;   ///< prices, with trend and forecast of the maximum-entropy analysis
  ChartBox VtChart2;   ///< Hurst exponent, correlation, or dominant periods and peaks, by day
  ChartBox VtChart3;   ///< power by period of one day; maximum entropy alone
  ScrollBar HScroll1;  ///< the charts' last market day

  /// Draws again up to the bar's day, with the same funds.
  void HScroll1_Change();
  /// On a maximum-entropy screen, adds the forecast that is made from the clicked day.
  void VtChart1_PointSelected(PointSelection& selection);

  /// Shows the spectrum beside the prices, which then leave room for it, or hides it.
  void ShowSpectrum(bool shown);

 protected:
  void Form_Load() override;

 private:
  const Context& context_;
};

}  // namespace vistaplot
