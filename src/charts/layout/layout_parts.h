// The parts of the layout: text metrics that they share, legend, frame and axes. For the layout's
// own sources.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "charts/kinds/draw_context.h"
#include "charts/kinds/kind.h"
#include "charts/kinds/value_range.h"

namespace vistaplot {

/// Text metrics of the charts' fonts as parts of the pixel size.
inline constexpr double kCapHeight = 0.73;
inline constexpr double kLineHeight = 1.35;

/// `text` cut to `width` with an ellipsis two thirds along it, so that names that differ at their
/// end alone stay apart; at least one letter stays. A text that fits comes back whole.
std::string ElideText(const DrawContext& context,
                      const std::string& text,
                      int pixels,
                      double width);

// The legend beside the plot: as many entries as fit, in columns, smaller texts before fewer.

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

// Where the parts of a chart stand on the picture: plot, scale, title, legend, labels.

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

/// The numbers of the axes whose labels and titles stand below and beside the plot.
struct FrameAxes {
  std::size_t across = 0;
  std::size_t upright = 1;
};
FrameAxes AxesOf(const ChartView& view);

/// How much larger than at 640 by 480 texts and margins are.
double TextScale(PictureSize size);

/// Divides the picture. Plot and legend never overlap, and all boxes lie on the picture. Charts
/// that share their days (ChartView::days_with) get the same left and right edges of their data.
ChartFrame PlaceFrame(const DrawContext& context);

/// Draws title, footnote and the titles of the axes.
void DrawTitles(const DrawContext& context, const ChartFrame& frame, ChartPicture& picture);

// Axes: round values with their texts, guide lines, and the labels and ticks below the plot.

/// Draws the horizontal guides at the frame's value marks, with their labels.
void DrawValueAxis(const DrawContext& context, const ChartFrame& frame, ChartPicture& picture);

/// Draws the base line, and below it the labels and ticks of the rows or of the X values.
///
/// Row labels stand at row 1 and every DivisionsPerLabel rows on, ticks every DivisionsPerTick rows
/// from each label on. Where labels would touch, the spacing becomes the next multiple that keeps
/// them apart; ticks likewise. Blank labels and those under the title are left away.
void DrawPositionAxis(const DrawContext& context, const ChartFrame& frame, ChartPicture& picture);

}  // namespace vistaplot
