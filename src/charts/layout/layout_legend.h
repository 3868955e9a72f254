// The legend beside the plot: as many entries as fit, in columns, smaller texts before fewer.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "charts/kinds/legend_mark.h"
#include "charts/layout/layout_parts.h"

namespace vistaplot {

struct LegendEntry {
  DrawnSeries series;
  std::string text;                ///< cut to the column's width
  std::optional<LegendMark> mark;  ///< what stands for it where it is no series
};

struct LegendPlan {
  std::vector<LegendEntry> entries;  ///< column by column
  int left_out = 0;                  ///< series without an entry; told as "+12 more" at the end
  int rows = 0;                      ///< of a column
  int pixels = 0;                    ///< font size
  double row_height = 0.0;
  double column_width = 0.0;
  double width = 0.0;  ///< 0: no legend
};

/// Plans the legend of the series with a label that is not blank, in at most the room given; over
/// rows in the order of the series' last values, highest first.
/// Empty when the view hides it or the room holds no entry.
LegendPlan PlanLegend(const DrawContext& context, double most_width, double most_height);

/// Draws it with its upper left corner at `at` and notes its box in the picture.
void DrawLegend(const DrawContext& context,
                const LegendPlan& plan,
                PicturePoint at,
                ChartPicture& picture);

}  // namespace vistaplot
