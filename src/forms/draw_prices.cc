// The charts of prices as the front door asks for them.

#include <algorithm>

#include "charts/builders/analysis_charts.h"
#include "charts/builders/candle_chart.h"
#include "charts/builders/point_figure_chart.h"
#include "forms/chart_drawers.h"
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

}  // namespace vistaplot
