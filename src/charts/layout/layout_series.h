// Curves, markers and point labels of the series.
#pragma once

#include "charts/layout/layout_parts.h"

namespace vistaplot {

/// Draws the series of a combination or XY chart in their order: lines first, then markers, then
/// the points' labels. A line breaks where a point is missing; a point alone between two gaps is
/// drawn as a dot. Of the points in one pixel column a line keeps the first, lowest, highest and
/// last; of markers on one pixel one is kept. Points with a marker of their own show that one.
void DrawSeries(const LayoutContext& context, const PlotScale& scale, ChartPicture& picture);

}  // namespace vistaplot
