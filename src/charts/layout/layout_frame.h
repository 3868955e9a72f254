// Where the parts of a chart stand on the picture: plot, scale, title, legend, labels.
#pragma once

#include <vector>

#include "charts/kinds/value_marks.h"
#include "charts/layout/layout_legend.h"
#include "charts/layout/layout_parts.h"

namespace vistaplot {

struct ChartFrame {
  PictureBox plot;
  PlotScale scale;               ///< its box lies inside the plot, beside the guides' labels
  std::vector<ValueMark> marks;  ///< of the value axis; empty when it shows none
  bool guides = true;
  bool labels_inside = true;  ///< the marks' texts stand inside the plot (hidden scale)
  double label_base = 0.0;    ///< base line of the labels below the plot
  PictureBox title;           ///< empty without one
  LegendPlan legend;
  PicturePoint legend_at;
};

/// How much larger than at 640 by 480 texts and margins are.
double TextScale(PictureSize size);

/// Divides the picture. Plot and legend never overlap, and all boxes lie on the picture. Charts
/// that share their days (ChartView::days_with) get the same left and right edges of their data.
ChartFrame PlaceFrame(const DrawContext& context);

/// Draws title, footnote and the titles of the axes.
void DrawTitles(const DrawContext& context, const ChartFrame& frame, ChartPicture& picture);

}  // namespace vistaplot
