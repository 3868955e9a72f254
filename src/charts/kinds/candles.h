// Weekly bars: four columns a fund (open, high, low, close), one figure a row. SeriesType 20 draws
// bodies, hollow where the week gained and filled where it lost; 19 a line with a tick for the open
// at its left and one for the close at its right. Several funds share a row side by side, each in
// its own hue; the bars of a single fund have the gain and loss colours of the view.
#pragma once

#include "charts/kinds/kind.h"

namespace vistaplot {

const Kind& Candles();

/// The width of a body, in device pixels, at `spacing` device pixels from bar to bar: as wide as
/// the spacing below 2.5 and 3 up to 4 (of a plain display), then a part of it that falls from 1 to
/// 0.8, with a gap of at least one such pixel. A whole number, at least 1, odd when `wick` is odd.
/// `ratio`: device pixels a pixel of a plain display.
int BodyWidth(double spacing, int wick, double ratio);

}  // namespace vistaplot
