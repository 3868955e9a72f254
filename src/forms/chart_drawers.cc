// The charts of prices as the front door asks for them.
#include "forms/chart_drawers.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "charts/builders/analysis_charts.h"
#include "charts/builders/candle_chart.h"
#include "charts/builders/point_figure_chart.h"
#include "charts/builders/summary_chart.h"
#include "charts/builders/summary_parameters.h"
#include "forms/screens.h"

namespace vistaplot {

namespace {

PriceChartRequest RequestOf(const Context& context, const DrawRequest& wanted) {
  const FrmTab& frmTab = context.screens.frmTab;
  return {.end_day = wanted.end_day,
          .scatter = wanted.type == GraphType::kScatter,
          .one_at_a_time = frmTab.OneAtATime(),
          .screen = wanted.screen,
          .display = DisplayOf(context),
          .indicators = frmTab.indicators.Numbers()};
}

PointFigureSettings SettingsOf(const PointAndFigureSettings& used) {
  PointFigureSettings settings;
  settings.PfRange = used.PfRange;
  std::copy_n(used.PfBox.begin(), settings.PfBox.size(), settings.PfBox.begin());
  settings.PfReversal = used.PfReversal;
  return settings;
}

Outcome DrawThreeCharts(const Context& context, const DrawRequest& request) {
  SharedState& state = context.state;
  Screens& screens = context.screens;
  Outcome outcome = BuildAnalysisCharts(RequestOf(context, request),
                                        state.table.SheetAt(kPriceSheet),
                                        state.market.calendar,
                                        state.selection,
                                        state.spectrum,
                                        ThreeChartsOf(context));
  const bool spectrum = outcome.drawn && screens.frmTab.indicators.chkMem.Checked();
  if (!spectrum) state.spectrum = {};  // of an earlier screen, whose charts are gone
  screens.frmMain.tools.ShowSpectrumTools(spectrum);
  screens.frmPer.ShowSpectrum(spectrum);
  return outcome;
}

}  // namespace

ChartDisplay DisplayOf(const Context& context) {
  const DisplaySize display = context.host.Display();
  return {.width = static_cast<double>(display.width),
          .height = static_cast<double>(display.height)};
}

ThreeCharts ThreeChartsOf(const Context& context) {
  FrmPer& frmPer = context.screens.frmPer;
  return {.prices = frmPer.VtChart1.view,
          .analysis = frmPer.VtChart2.view,
          .spectrum = frmPer.VtChart3.view};
}

Outcome DrawPriceChart(const Context& context, const DrawRequest& request) {
  if (request.screen == PriceScreen::kThreeCharts) return DrawThreeCharts(context, request);
  SharedState& state = context.state;
  return BuildPriceChart(RequestOf(context, request),
                         state.table.SheetAt(kPriceSheet),
                         state.market.calendar,
                         state.selection,
                         context.screens.frmGraph.VtChart1.view);
}

Outcome DrawCandleChart(const Context& context, const DrawRequest& request) {
  SharedState& state = context.state;
  return BuildCandleChart({.end_day = request.end_day,
                           .bars = request.type == GraphType::kCandleBar,
                           .one_at_a_time = context.screens.frmTab.OneAtATime(),
                           .display = DisplayOf(context)},
                          state.table.SheetAt(kPriceSheet),
                          state.market.calendar,
                          state.selection,
                          context.screens.frmGraph.VtChart1.view);
}

Outcome DrawBoxChart(const Context& context, const DrawRequest& request) {
  SharedState& state = context.state;
  return DrawPointAndFigure({.end_day = request.end_day,
                             .settings = SettingsOf(state.point_and_figure),
                             .display = DisplayOf(context)},
                            state.table.SheetAt(kPriceSheet),
                            state.market.calendar,
                            state.selection,
                            context.screens.frmGraph.VtChart1.view);
}

// The charts of result files as the front door asks for them.

namespace {

// The sheet column behind the chosen entry of a list; 0 without a choice.
int ChosenColumn(const ComboBox& list, const std::vector<ChartField>& fields) {
  const int index = list.ListIndex();
  if (index < 0 || index >= static_cast<int>(fields.size())) return 0;
  return fields[static_cast<std::size_t>(index)].column;
}

ParameterColumn ChosenField(const ComboBox& list, const std::vector<ChartField>& fields) {
  return {std::string(list.CurrentText()), ChosenColumn(list, fields)};
}

}  // namespace

Outcome DrawTestCaseChart(const Context& context, const DrawRequest& request) {
  SharedState& state = context.state;
  const FrmTab& frmTab = context.screens.frmTab;
  FrmGraph& frmGraph = context.screens.frmGraph;
  frmGraph.HScroll1.SetVisible(false);
  const ChartFields fields = TestCaseFields(frmTab.Fields());
  const bool computed =
      frmTab.ChosenDataType() == DataType::kSummary && state.flags.ComputedSummaryShown;
  const TestCaseRequest wanted{.sheets = TestCaseSheets(state.table, computed),
                               .statistic = std::string(frmTab.cboYParm.CurrentText()),
                               .statistic_column = ChosenColumn(frmTab.cboYParm, fields.y),
                               .GraphFraction = state.flags.GraphFraction,
                               .scatter = request.type == GraphType::kCaseScatter,
                               .display = DisplayOf(context)};
  Outcome outcome = BuildTestCaseChart(wanted, state.table, frmGraph.VtChart1.view);
  outcome.end_day = request.end_day;
  return outcome;
}

Outcome DrawParameterChart(const Context& context, const DrawRequest& request) {
  SharedState& state = context.state;
  const FrmTab& frmTab = context.screens.frmTab;
  FrmGraph& frmGraph = context.screens.frmGraph;
  frmGraph.HScroll1.SetVisible(false);
  const ChartFields fields = ParameterFields(frmTab.Fields());
  const ParameterRequest wanted{.x = ChosenField(frmTab.cboXParm, fields.x),
                                .y = ChosenField(frmTab.cboYParm, fields.y),
                                .data = ChosenField(frmTab.cboDataField, fields.data),
                                .GraphFraction = state.flags.GraphFraction,
                                .surface = request.type == GraphType::kSurface,
                                .lower_is_better = LowerIsBetter(frmTab.cboDataField.CurrentText()),
                                .display = DisplayOf(context)};
  Outcome outcome = BuildParameterChart(wanted, state.table, frmGraph.VtChart1.view);
  outcome.end_day = request.end_day;
  return outcome;
}

}  // namespace vistaplot
