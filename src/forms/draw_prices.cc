// The price chart as the front door asks for it.

#include "forms/chart_drawers.h"
#include "forms/screens.h"

namespace vistaplot {

namespace {

PriceChartRequest RequestOf(const Context& context, const DrawRequest& wanted) {
  const DisplaySize display = context.host.Display();
  PriceChartRequest request;
  request.end_day = wanted.end_day;
  request.scatter = wanted.type == GraphType::kScatter;
  request.one_at_a_time = context.screens.frmTab.OneAtATime();
  request.screen = wanted.screen;
  request.display = {.width = static_cast<double>(display.width),
                     .height = static_cast<double>(display.height)};
  return request;
}

}  // namespace

Outcome DrawPriceChart(const Context& context, const DrawRequest& request) {
  SharedState& state = context.state;
  Screens& screens = context.screens;
  ChartBox& chart = request.screen == PriceScreen::kThreeCharts ? screens.frmPer.VtChart1
                                                                : screens.frmGraph.VtChart1;
  const PriceChartOutcome built = BuildPriceChart(RequestOf(context, request),
                                                  state.table.SheetAt(kPriceSheet),
                                                  state.market.calendar,
                                                  state.selection,
                                                  chart.view);
  return {.drawn = built.drawn,
          .message = built.message,
          .end_day = built.end_day,
          .scroll_to = built.scroll_to,
          .box_dates = {}};
}

}  // namespace vistaplot
