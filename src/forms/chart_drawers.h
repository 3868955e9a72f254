// One drawer a kind of chart: what the front door calls once the selection is known. A drawer reads
// the boxes of the screens, makes the request of its builder, lets it fill the chart's view, and
// hands back what came of it. It shows no message and no screen and moves no scroll bar: the front
// door (drawing.h) does, for all kinds alike.
#pragma once

#include "forms/context.h"
#include "forms/drawing.h"

namespace vistaplot {

using ChartDrawer = Outcome (*)(const Context& context, const DrawRequest& request);

/// Lines or markers of the selected funds' prices on the request's screen, up to its end day.
Outcome DrawPriceChart(const Context& context, const DrawRequest& request);

}  // namespace vistaplot
