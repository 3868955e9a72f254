// One drawer a kind of chart: what the front door calls once the selection is known. A drawer reads
// the boxes of the screens, makes the request of its builder, lets it fill the chart's view, and
// hands back what came of it. It shows no message and no screen and moves no scroll bar: the front
// door (drawing.h) does, for all kinds alike.
#pragma once

#include "charts/builders/chart_parts.h"
#include "charts/builders/spectrum_chart.h"
#include "forms/drawing.h"
#include "forms/shared_state.h"

namespace vistaplot {

using ChartDrawer = Outcome (*)(const Context& context, const DrawRequest& request);

/// Lines or markers of the selected funds' prices with the ticked overlays; on the screen of three
/// charts with the ticked analysis, whose tools and spectrum are shown or hidden.
Outcome DrawPriceChart(const Context& context, const DrawRequest& request);

/// Weekly bars of the selected funds.
Outcome DrawCandleChart(const Context& context, const DrawRequest& request);

/// Boxes of the fund at CurrentFund, by the point-and-figure parameters in use.
Outcome DrawBoxChart(const Context& context, const DrawRequest& request);

/// The chosen statistic of every test case, one series a loaded sheet; of a computed summary its
/// sheet alone.
Outcome DrawTestCaseChart(const Context& context, const DrawRequest& request);

/// The chosen data field of the active sheet over its two parameters.
Outcome DrawParameterChart(const Context& context, const DrawRequest& request);

/// Size of the display as builders want it.
ChartDisplay DisplayOf(const Context& context);

/// The views of the screen of three charts.
ThreeCharts ThreeChartsOf(const Context& context);

}  // namespace vistaplot
