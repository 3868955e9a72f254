#include "forms/frm_per.h"

#include <string>

#include "charts/builders/spectrum_chart.h"
#include "controls/scaling.h"
#include "forms/screens.h"

namespace vistaplot {

FrmPer::FrmPer(const Context& context)
    : Form("frmPer", "Graph", FormStyle::kScreen, context.host), context_(context) {
  Add({{&VtChart1, "VtChart1", "", At(0, 0, 9600, 3420)},
       {&VtChart2, "VtChart2", "", At(0, 3420, 9600, 3390)},
       {&VtChart3, "VtChart3", "", At(8100, 60, 1500, 3000)},
       {&HScroll1, "HScroll1", "", At(60, 6855, 9480, 300)}});
  VtChart1.SetDescription("Prices");
  VtChart2.SetDescription("Analysis");
  VtChart3.SetDescription("Spectrum");
  VtChart3.SetVisible(false);
  VtChart1.ShareDaysWith(VtChart2);
  HScroll1.SetDescription("Last day shown");
  HScroll1.SetEnabled(false);  // until a chart is drawn
  HScroll1.Change = [this] { HScroll1_Change(); };
  VtChart1.PointSelected = [this](PointSelection& selection) { VtChart1_PointSelected(selection); };
}

void FrmPer::Form_Load() {
  ScaleControls(*this, kDesignWidth, kDesignHeight, Host().Display());
}

void FrmPer::HScroll1_Change() {
  context_.screens.drawing.Scrolled(PriceScreen::kThreeCharts);
}

void FrmPer::VtChart1_PointSelected(PointSelection& selection) {
  SharedState& state = context_.state;
  const IndicatorBoxes& indicators = context_.screens.frmTab.indicators;
  // Without the funds of the chart there is nothing to predict from.
  if (!indicators.chkMem.Checked() || state.selection.SelectedCount == 0) {
    selection.Cancel = true;
    return;
  }
  const std::string refusal = AddForecast(selection.DataPoint,
                                          indicators.MemNumbers(),
                                          state.table.SheetAt(kPriceSheet),
                                          state.selection,
                                          state.spectrum,
                                          VtChart1.view);
  if (!refusal.empty()) context_.dialogs.Say(refusal);
}

void FrmPer::ShowSpectrum(bool shown) {
  VtChart3.SetVisible(shown);
}

}  // namespace vistaplot
