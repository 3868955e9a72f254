// The graph screen of three charts: prices, an analysis of them, and a spectrum.
#pragma once

#include "controls/form.h"
#include "controls/value_controls.h"
#include "controls/view_controls.h"
#include "forms/context.h"

namespace vistaplot {

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
