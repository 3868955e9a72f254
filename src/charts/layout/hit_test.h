// Which data point of a chart lies under the pointer.
#pragma once

#include <optional>

#include "charts/view/chart_picture.h"
#include "charts/view/chart_view.h"

namespace vistaplot {

struct ChartHit {
  int series = 0;  ///< from 1; in an XY chart a series is a pair of columns
  int point = 0;   ///< row, from 1
};

/// The point of `view` nearest to `at`, at most `reach` units away; between two points of a drawn
/// line the nearer one when the line itself passes within reach. Nothing outside the plot or far
/// from every point. `picture` must be laid out from this view as it is now.
std::optional<ChartHit> FindPoint(const ChartView& view,
                                  const ChartPicture& picture,
                                  PicturePoint at,
                                  double reach = 6.0);

}  // namespace vistaplot
