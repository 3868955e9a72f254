// Point and figure: X and O over columns of boxes. A point is a box, its X value the column and its
// Y value the level about which the box stands; the view's facts say how high each box is. Points
// behind them are fillers that keep the chart 40 columns wide; they are not drawn.
#pragma once

#include "charts/kinds/kind.h"

namespace vistaplot {

const Kind& Boxes();

}  // namespace vistaplot
