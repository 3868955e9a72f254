#include "forms/frm_graph.h"

#include <string>

#include "base/date.h"
#include "controls/scaling.h"
#include "forms/screens.h"

namespace vistaplot {

FrmGraph::FrmGraph(const Context& context)
    : Form("frmGraph", "Graph", FormStyle::kScreen, context.host), context_(context) {
  Add({{&VtChart1, "VtChart1", "", At(0, 0, 9600, 6810)},
       {&lblboxdate, "lblboxdate", "", At(7200, 60, 2280, 255)},
       {&HScroll1, "HScroll1", "", At(60, 6855, 9480, 300)}});
  VtChart1.SetDescription("Graph");
  HScroll1.SetDescription("Last day shown");
  HScroll1.SetEnabled(false);  // until a chart is drawn
  HScroll1.Change = [this] { HScroll1_Change(); };
  VtChart1.PointSelected = [this](PointSelection& selection) { VtChart1_PointSelected(selection); };
}

void FrmGraph::Form_Load() {
  ScaleControls(*this, kDesignWidth, kDesignHeight, Host().Display());
}

void FrmGraph::HScroll1_Change() {
  context_.screens.drawing.Scrolled(PriceScreen::kGraph);
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

}  // namespace vistaplot
