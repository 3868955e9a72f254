#include "charts/layout/layout.h"

#include <algorithm>
#include <cmath>

#include "charts/layout/layout_axis.h"
#include "charts/layout/layout_frame.h"
#include "charts/layout/layout_legend.h"
#include "charts/layout/layout_parts.h"

namespace vistaplot {
namespace {

constexpr double kLeastSide = 16.0;
// Curves may touch the plot's edges with half their width.
PictureBox ClipOf(const ChartFrame& frame, double scale) {
  const double reach = std::ceil(3.0 * scale);
  return {frame.scale.box.left - reach,
          frame.plot.top - reach,
          frame.plot.right + reach,
          frame.plot.bottom + reach};
}

}  // namespace

ChartPicture LayoutChart(const ChartView& view,
                         PictureSize size,
                         const TextMeasure& measure,
                         const LayoutOptions& options) {
  const ChartTheme theme = options.dark ? DarkTheme() : LightTheme();
  ChartPicture picture;
  picture.width = size.width;
  picture.height = size.height;
  picture.background = theme.background;
  if (size.width < kLeastSide || size.height < kLeastSide) return picture;

  const DrawContext context{
      view, measure, size, theme, TextScale(size), std::max(options.detail, 1.0)};
  const ChartFrame frame = PlaceFrame(context);
  if (frame.scale.box.Width() < 1.0 || frame.scale.box.Height() < 1.0) return picture;
  picture.plot = frame.plot;
  picture.scale = frame.scale;
  DrawTitles(context, frame, picture);
  DrawLegend(context, frame.legend, frame.legend_at, picture);
  DrawValueAxis(context, frame, picture);
  DrawPositionAxis(context, frame, picture);
  picture.Add(SetClip{ClipOf(frame, context.scale)});
  KindOf(view).Draw(context, frame.scale, picture);
  picture.Add(SetClip{{0.0, 0.0, size.width, size.height}});
  return picture;
}

}  // namespace vistaplot
