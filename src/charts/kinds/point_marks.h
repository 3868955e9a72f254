// Markers and labels of points, and where the points of a series lie on the picture.
#pragma once

#include <cmath>
#include <vector>

#include "charts/kinds/draw_context.h"

namespace vistaplot {

/// False for a point that PlacePoints found missing.
inline bool IsThere(PicturePoint point) {
  return !std::isnan(point.y);
}

/// The series' points on the picture, row by row; y is not a number where the point is missing.
void PlacePoints(const ChartView& view,
                 const DrawnSeries& series,
                 const PlotScale& scale,
                 std::vector<PicturePoint>& points);

/// Dots of `size` on the points that are there, one a pixel.
void StampDots(const DrawContext& context,
               const std::vector<PicturePoint>& points,
               const PlotScale& scale,
               PictureColor color,
               double size,
               ChartPicture& picture);

/// Draws the markers of the series that show them and of the points that have their own, then the
/// points' labels above all. Of markers on one pixel one is kept; of labels that would cover each
/// other the first.
void DrawPointMarks(const DrawContext& context,
                    const std::vector<DrawnSeries>& all,
                    const PlotScale& scale,
                    ChartPicture& picture);

}  // namespace vistaplot
