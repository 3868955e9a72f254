// Turns a chart view into a picture: margins, title, legend, date labels, guide lines, curves and
// markers are decided here, without a toolkit. The same view and size give the same picture.
//
// The plot fills what title, legend and labels leave of the picture, at any size. Of the view's
// plot rectangle (inches on a screen-filling control) the room at its left and below it is kept.
// Texts grow with the square root of the picture's size.
//
// Where the view hides its value axis, the picture still shows light guide lines at round values
// with small labels; a chart of rebased prices shows them as percent change. The legend takes its
// room beside the plot and never covers it; what does not fit is counted ("+12 more").
#pragma once

#include "charts/kinds/draw_context.h"
#include "charts/view/chart_picture.h"
#include "charts/view/chart_view.h"

namespace vistaplot {

struct LayoutOptions {
  bool dark = false;    ///< for dark desktops; exports stay on white
  double detail = 1.0;  ///< device pixels a unit: curves keep what so many columns can show
};

/// Lays `view` out on `size`. A view without rows gives a picture with its texts alone; sizes below
/// 16 by 16 give the bare ground.
ChartPicture LayoutChart(const ChartView& view,
                         PictureSize size,
                         const TextMeasure& measure,
                         const LayoutOptions& options = {});

}  // namespace vistaplot
