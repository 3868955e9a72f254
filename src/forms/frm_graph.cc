#include "forms/frm_graph.h"

#include <string>

#include "base/date.h"
#include "charts/builders/spectrum_chart.h"
#include "charts/builders/summary_chart.h"
#include "controls/form.h"
#include "forms/screens.h"

namespace vistaplot {

FrmGraph::FrmGraph(const Context& context)
    : Form("frmGraph", "Graph", FormStyle::kScreen, context.host), context_(context) {
  Add({{&VtChart1, "VtChart1", "", At(0, 0, 9600, 6810)},
       {&lblboxdate, "lblboxdate", "", At(90, 45, 4800, 255)},
       {&HScroll1, "HScroll1", "", At(60, 6855, 9480, 300)}});
  VtChart1.SetDescription("Graph");
  VtChart1.SetHelpTopic("Chart");
  HScroll1.SetDescription("Last day shown");
  HScroll1.SetEnabled(false);  // until a chart is drawn
  HScroll1.Change = [this] { HScroll1_Change(); };
  VtChart1.PointSelected = [this](PointSelection& selection) { VtChart1_PointSelected(selection); };
  VtChart1.CellOpened = [this](int row, int column) { ShowCase(row, column); };
}

void FrmGraph::Form_Load() {
  ScaleControls(*this, kDesignWidth, kDesignHeight, Host().Display());
}

void FrmGraph::HScroll1_Change() {
  context_.screens.drawing.Scrolled(PriceScreen::kGraph);
}

void FrmGraph::ShowCase(int row, int column) {
  DataTable& table = context_.state.table;
  Sheet& sheet = table.Active();
  const int sheet_row = CaseRow(VtChart1.view, sheet, row, column);
  if (sheet_row < 1) return;
  sheet.Select({.SelStartRow = sheet_row,
                .SelStartCol = 1,
                .SelEndRow = sheet_row,
                .SelEndCol = sheet.MaxCol});
  sheet.Row = sheet_row;
  sheet.Col = 1;
  table.NotifyContent(table.ActiveSheet());
  context_.screens.frmMain.cmdShowData_Click();
}

void FrmGraph::VtChart1_PointSelected(PointSelection& selection) {
  const GraphSelection& drawn = context_.state.selection;
  const bool is_prices = context_.screens.frmTab.ChosenDataType() == DataType::kPrices;
  if (!is_prices || drawn.SelectedCount == 0) {
    selection.Cancel = true;  // no prices, or others than those of the chart
    return;
  }
  const Sheet& prices = context_.state.table.SheetAt(kPriceSheet);
  const int row = selection.DataPoint + drawn.FirstDay;
  const auto date = ParseDate(prices.CellText(row, 1));
  if (!date) {
    selection.Cancel = true;
    return;
  }
  const std::string day = DateText(*date, DatePattern::kMonthDayShortYear);
  context_.dialogs.Say("NAV on " + day + " was " + prices.CellText(row, selection.Series + 1));
}

FrmPer::FrmPer(const Context& context)
    : Form("frmPer", "Graph", FormStyle::kScreen, context.host), context_(context) {
  Add({{&VtChart1, "VtChart1", "", At(0, 0, 9600, 3420)},
       {&VtChart2, "VtChart2", "", At(0, 3420, 9600, 3390)},
       {&VtChart3, "VtChart3", "", At(8100, 60, 1500, 3000)},
       {&HScroll1, "HScroll1", "", At(60, 6855, 9480, 300)}});
  VtChart1.SetDescription("Prices");
  VtChart2.SetDescription("Analysis");
  VtChart3.SetDescription("Spectrum");
  VtChart1.SetHelpTopic("Chart");
  VtChart2.SetHelpTopic("Averages, bands and analyses");
  VtChart3.SetHelpTopic("Maximum entropy (MEM)");
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
