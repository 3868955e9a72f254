// Which point of curves or markers lies under the pointer.
#pragma once

#include <optional>
#include <vector>

#include "charts/kinds/draw_context.h"
#include "charts/view/chart_picture.h"
#include "charts/view/chart_view.h"

namespace vistaplot {

/// The point of `all` nearest to `at`, at most `reach` units away; between two points of a drawn
/// line the nearer one when the line itself passes within reach.
std::optional<ChartHit> FindOnLines(const ChartView& view,
                                    const std::vector<DrawnSeries>& all,
                                    const PlotScale& scale,
                                    PicturePoint at,
                                    double reach);

}  // namespace vistaplot
