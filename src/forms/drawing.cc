#include "forms/drawing.h"

#include <array>
#include <cstddef>

#include "forms/busy_scope.h"
#include "forms/chart_drawers.h"
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

/// By graph type.
constexpr std::array<ChartDrawer, 9> kDrawers = {DrawPriceChart,
                                                 DrawPriceChart,
                                                 DrawCandleChart,
                                                 DrawCandleChart,
                                                 DrawBoxChart,
                                                 DrawParameterChart,
                                                 DrawTestCaseChart,
                                                 DrawTestCaseChart,
                                                 DrawParameterChart};

bool IsPrices(GraphType type) {
  return type <= GraphType::kPointAndFigure;
}

bool IsLines(GraphType type) {
  return type == GraphType::kLine || type == GraphType::kScatter;
}

bool IsCandles(GraphType type) {
  return type == GraphType::kCandleLine || type == GraphType::kCandleBar;
}

}  // namespace

Outcome Drawing::Draw(const DrawRequest& request) {
  std::string refusal = IsPrices(request.type) ? Select(request) : std::string();
  Outcome outcome = refusal.empty()
                        ? kDrawers[static_cast<std::size_t>(request.type)](context_, request)
                        : RefusedBuild(std::move(refusal), request.end_day);
  Apply(request, outcome);
  return outcome;
}

std::string Drawing::Select(const DrawRequest& request) {
  const FrmTab& frmTab = context_.screens.frmTab;
  GraphSelection& selection = context_.state.selection;
  const bool correlated = IsLines(request.type) && frmTab.indicators.chkCorrelation.Checked();
  const SelectionUse use = correlated ? SelectionUse::kCorrelation : SelectionUse::kFunds;
  // The sheet of another kind of data holds no funds, whatever is selected on it.
  if (frmTab.ChosenDataType() != DataType::kPrices) {
    return ReadGraphSelection(Sheet(), use, selection);
  }
  if (NeedsSelection(selection, request.reselect)) {
    return ReadGraphSelection(context_.state.table.SheetAt(kPriceSheet), use, selection);
  }
  return correlated && selection.SelectedCount < 2 ? std::string(kTwoFundsNeeded) : std::string();
}

void Drawing::Apply(const DrawRequest& request, const Outcome& outcome) {
  Screens& screens = context_.screens;
  if (outcome.scroll_to) {
    const FlagScope moving(moving_bar_);
    BarOf(request.screen).SetValue(*outcome.scroll_to);
  }
  screens.frmGraph.lblboxdate.SetCaption(outcome.box_dates);
  if (!outcome.drawn) {
    EmptyCharts(request.screen);
    TellWhyEmpty(request.screen, outcome.on_screen.empty() ? outcome.message : outcome.on_screen);
    if (!outcome.message.empty()) context_.dialogs.Say(outcome.message);
  } else if (request.screen == PriceScreen::kThreeCharts) {
    screens.frmPer.Show();
  } else {
    screens.frmGraph.Show();
  }
  if (!outcome.notice.empty()) context_.dialogs.Say(outcome.notice);
}

// A view whose builder refused stays as the builder left it, as long as that shows no curve.
void Drawing::EmptyCharts(PriceScreen screen) {
  Screens& screens = context_.screens;
  FrmPer& frmPer = screens.frmPer;
  const bool three = screen == PriceScreen::kThreeCharts;
  for (ChartBox* chart : {three ? &frmPer.VtChart1 : &screens.frmGraph.VtChart1,
                          three ? &frmPer.VtChart2 : nullptr,
                          three ? &frmPer.VtChart3 : nullptr}) {
    if (chart == nullptr || chart->view.ColumnCount() == 0) continue;
    const RedrawPause pause(chart->view);
    chart->view.ToDefaults();
  }
  if (!three) return;
  context_.state.spectrum = {};
  screens.frmMain.tools.ShowSpectrumTools(false);
}

void Drawing::TellWhyEmpty(PriceScreen screen, const std::string& why) {
  Screens& screens = context_.screens;
  ChartView& view = screen == PriceScreen::kThreeCharts ? screens.frmPer.VtChart1.view
                                                        : screens.frmGraph.VtChart1.view;
  view.WhyEmpty = why;
  view.Refresh();
}

GraphType Drawing::ChosenPrices() const {
  const int position = context_.screens.frmTab.cboGraphType.ListIndex();
  const bool known = position >= 0 && position < static_cast<int>(GraphType::kPointAndFigure);
  return known ? static_cast<GraphType>(position) : GraphType::kPointAndFigure;
}

PriceScreen Drawing::ScreenOf(GraphType type) const {
  const bool three_charts = IsLines(type) && context_.screens.frmTab.AnalysisTicked();
  return three_charts ? PriceScreen::kThreeCharts : PriceScreen::kGraph;
}

ScrollBar& Drawing::BarOf(PriceScreen screen) const {
  Screens& screens = context_.screens;
  return screen == PriceScreen::kThreeCharts ? screens.frmPer.HScroll1 : screens.frmGraph.HScroll1;
}

bool Drawing::IsSetUp(const ScrollBar& bar) const {
  return bar.Max() == context_.state.market.calendar.MaxNumDays && bar.Value() > 0;
}

void Drawing::SetUpBar(PriceScreen screen, bool newest) {
  ScrollBar& bar = BarOf(screen);
  const int last_day = context_.state.market.calendar.MaxNumDays;
  bar.SetVisible(true);
  bar.SetEnabled(true);
  if (!newest && IsSetUp(bar)) return;
  const FlagScope moving(moving_bar_);
  bar.SetMax(last_day);
  bar.SetValue(last_day);
  bar.SetMin(1);
}

void Drawing::CalendarLoaded() {
  for (const PriceScreen screen : {PriceScreen::kGraph, PriceScreen::kThreeCharts}) {
    ScrollBar& bar = BarOf(screen);
    bar.SetEnabled(IsSetUp(bar));
  }
}

Outcome Drawing::DrawPrices(GraphType type, int end_day, bool reselect) {
  return Draw({.type = type, .screen = ScreenOf(type), .end_day = end_day, .reselect = reselect});
}

Outcome Drawing::DrawAgain(int end_day) {
  const GraphType type = ChosenPrices();
  if (IsLines(type)) return StartPriceGraph(end_day, "n");
  if (IsCandles(type)) return StartCandleGraph(end_day, "n");
  return StartPointAndFigure(end_day, "n");
}

Outcome Drawing::Graph() {
  const GraphType type = context_.screens.frmTab.ChosenGraph();
  if (IsLines(type)) return ShowLineGraph();
  if (IsCandles(type)) return ShowCandleGraph();
  if (!IsPrices(type)) {
    return Draw({.type = type, .screen = PriceScreen::kGraph, .end_day = 0, .reselect = false});
  }
  SetUpBar(PriceScreen::kGraph, false);
  return StartPointAndFigure(BarOf(PriceScreen::kGraph).Value(), "y");
}

Outcome Drawing::Redraw() {
  const PriceScreen screen = ScreenOf(ChosenPrices());
  SetUpBar(screen, false);
  return DrawAgain(BarOf(screen).Value());
}

void Drawing::Scrolled(PriceScreen screen) {
  if (moving_bar_) return;
  const BusyScope busy(context_.screens.frmTab, context_.screens.frmMain.progress, kGraphingAction);
  if (screen == PriceScreen::kGraph) context_.state.table.SetActiveSheet(kPriceSheet);
  DrawAgain(BarOf(screen).Value());
}

Outcome Drawing::ShowLineGraph() {
  const PriceScreen screen = ScreenOf(GraphType::kLine);
  SetUpBar(screen, false);
  return StartPriceGraph(BarOf(screen).Value(), "y");
}

Outcome Drawing::StartPriceGraph(int endDay, std::string_view reselect) {
  return DrawPrices(ChosenPrices(), endDay, reselect == "y");
}

Outcome Drawing::ShowCandleGraph() {
  SetUpBar(PriceScreen::kGraph, true);
  return StartCandleGraph(BarOf(PriceScreen::kGraph).Value(), "y");
}

Outcome Drawing::StartCandleGraph(int endDay, std::string_view reselect) {
  return DrawPrices(ChosenPrices(), endDay, reselect == "y");
}

Outcome Drawing::StartPointAndFigure(int endDay, std::string_view reselect) {
  return DrawPrices(GraphType::kPointAndFigure, endDay, reselect == "y");
}

}  // namespace vistaplot
