#include "forms/price_graph.h"

#include <string>

#include "forms/busy_scope.h"
#include "forms/screens.h"

namespace vistaplot {

namespace {

/// Raises a flag for as long as the scope lasts.
class FlagScope {
 public:
  explicit FlagScope(bool& flag) : flag_(flag) { flag_ = true; }
  ~FlagScope() { flag_ = false; }
  FlagScope(const FlagScope&) = delete;
  FlagScope& operator=(const FlagScope&) = delete;

 private:
  bool& flag_;
};

}  // namespace

ScrollBar& PriceGraph::EndDayBar() const {
  Screens& screens = context_.screens;
  return screens.frmTab.AnalysisTicked() ? screens.frmPer.HScroll1 : screens.frmGraph.HScroll1;
}

void PriceGraph::ShowLineGraph() {
  ScrollBar& bar = EndDayBar();
  const int last_day = context_.state.market.calendar.MaxNumDays;
  bar.SetVisible(true);
  if (bar.Max() != last_day || bar.Value() <= 0) {
    const FlagScope moving(moving_bar_);
    bar.SetMax(last_day);
    bar.SetValue(last_day);
    bar.SetMin(1);
  }
  StartPriceGraph(bar.Value(), "y");
}

void PriceGraph::StartPriceGraph(int endDay, std::string_view reselect) {
  GraphSelection& selection = context_.state.selection;
  drawn_ = false;
  if (NeedsSelection(selection, reselect == "y")) {
    const SelectionUse use = context_.screens.frmTab.chkCorrelation.Checked()
                                 ? SelectionUse::kCorrelation
                                 : SelectionUse::kFunds;
    const std::string refusal = ReadGraphSelection(context_.state.table.SheetAt(1), use, selection);
    if (!refusal.empty()) {
      context_.dialogs.Say(refusal);
      return;
    }
  }
  Build(endDay);
}

void PriceGraph::Build(int endDay) {
  SharedState& state = context_.state;
  Screens& screens = context_.screens;
  const PriceChartRequest request = Request(endDay);
  const bool three_charts = request.screen == PriceScreen::kThreeCharts;
  ChartBox& chart = three_charts ? screens.frmPer.VtChart1 : screens.frmGraph.VtChart1;
  const PriceChartOutcome outcome = BuildPriceChart(
      request, state.table.SheetAt(1), state.market.calendar, state.selection, chart.view);
  if (outcome.scroll_to) {
    const FlagScope moving(moving_bar_);
    EndDayBar().SetValue(*outcome.scroll_to);
  }
  drawn_ = outcome.drawn;
  if (!outcome.message.empty()) context_.dialogs.Say(outcome.message);
  if (!drawn_) return;
  if (three_charts) {
    screens.frmPer.Show();
  } else {
    screens.frmGraph.Show();
  }
}

PriceChartRequest PriceGraph::Request(int endDay) const {
  const FrmTab& frmTab = context_.screens.frmTab;
  const DisplaySize display = context_.host.Display();
  PriceChartRequest request;
  request.end_day = endDay;
  request.scatter = frmTab.ChosenPriceGraph() == PriceGraphType::kScatter;
  request.one_at_a_time = frmTab.OneAtATime();
  request.screen = frmTab.AnalysisTicked() ? PriceScreen::kThreeCharts : PriceScreen::kGraph;
  request.screen_width = static_cast<double>(display.width);
  request.screen_height = static_cast<double>(display.height);
  return request;
}

void PriceGraph::Draw(int endDay, std::string_view reselect) {
  switch (context_.screens.frmTab.ChosenPriceGraph()) {
    case PriceGraphType::kLine:
    case PriceGraphType::kScatter:
      if (reselect == "y") {
        ShowLineGraph();
      } else {
        StartPriceGraph(endDay, reselect);
      }
      return;
    case PriceGraphType::kCandleLine:
    case PriceGraphType::kCandleBar:
    case PriceGraphType::kPointAndFigure:
      drawn_ = false;
      context_.dialogs.Say("This version draws the graph types \"XY Line\" and \"Scatter\" only");
      return;
  }
}

void PriceGraph::Graph() {
  Draw(EndDayBar().Value(), "y");
}

void PriceGraph::Redraw() {
  Draw(EndDayBar().Value(), "n");
}

void PriceGraph::Scrolled(int endDay, ScrolledScreen screen) {
  if (moving_bar_) return;
  const BusyScope busy(context_.screens.frmTab, context_.screens.frmMain.progress, kGraphingAction);
  if (screen == ScrolledScreen::kGraph) context_.state.table.SetActiveSheet(1);
  Draw(endDay, "n");
}

}  // namespace vistaplot
