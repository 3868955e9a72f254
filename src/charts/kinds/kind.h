// The one interface of all kinds of figures, and the only question of what kind a chart is. A new
// kind is a file beside this one and a line in the table of kind.cc.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "charts/kinds/cross_hair.h"
#include "charts/kinds/draw_context.h"
#include "charts/kinds/read_out.h"
#include "charts/kinds/value_range.h"
#include "charts/view/chart_picture.h"
#include "charts/view/chart_view.h"

namespace vistaplot {

/// What stands behind the labels of the horizontal axis.
enum class PositionAxis {
  kRowLabels,  ///< positions are rows; the view labels them
  kNumbers,    ///< positions are values
  kCells,      ///< positions and heights are columns and rows of cells, with a parameter's number
  kNone,       ///< the kind draws its axes itself
};

class Kind {
 public:
  virtual ~Kind() = default;

  virtual PositionAxis Positions() const { return PositionAxis::kRowLabels; }

  /// The series in the order of the legend; a series is what one click means.
  virtual std::vector<DrawnSeries> Series(const ChartView& view) const = 0;

  /// The legend where its entries are no series; empty: one entry a series.
  virtual std::vector<LegendMark> Legend(const ChartView& /*view*/,
                                         const ChartTheme& /*theme*/) const {
    return {};
  }

  /// What the axes span: positions, and values with a margin or the bounds that the view fixes.
  /// low < high always.
  virtual AxisRanges Values(const ChartView& view) const = 0;

  /// Adds the figures to the picture, between guides and titles.
  virtual void Draw(const DrawContext& context,
                    const PlotScale& scale,
                    ChartPicture& picture) const = 0;

  /// A series' mark in the legend, within `box`.
  virtual void DrawSwatch(const DrawContext& context,
                          const DrawnSeries& series,
                          const PictureBox& box,
                          ChartPicture& picture) const = 0;

  /// The point nearest to `at` within `reach`, beside the picture's hit regions; `at` lies on the
  /// plot or within reach of it. Nothing where all figures have hit regions, as bars and boxes do.
  virtual std::optional<ChartHit> HitAt(const ChartView& /*view*/,
                                        const ChartPicture& /*picture*/,
                                        PicturePoint /*at*/,
                                        double /*reach*/) const {
    return std::nullopt;
  }

  /// The parameter's number of a column or row of cells (kCells), from 1.
  virtual std::string ColumnText(const ChartView& /*view*/, int /*column*/) const { return {}; }
  virtual std::string RowText(const ChartView& /*view*/, int /*row*/) const { return {}; }

  /// The figure is turned by dragging it and by the arrow keys; a ring in the place of a cross-hair
  /// marks the cell that is read off.
  virtual bool Turns() const { return false; }

  /// Where a cell of a figure that turns is seen; nothing where the view has none.
  virtual std::optional<PicturePoint> PlaceOf(const ChartView& /*view*/,
                                              const ChartPicture& /*picture*/,
                                              int /*row*/,
                                              int /*column*/) const {
    return std::nullopt;
  }

  /// Where the cross-hair rests.
  virtual StopList Stops(const ChartView& view) const = 0;

  /// What is read off at a row (of charts over two parameters: and column) that the view has.
  virtual ReadOut ReadAt(const ChartView& view,
                         int row,
                         int column,
                         const ChartTheme& theme) const = 0;

 protected:
  Kind() = default;
};

/// The kind of figure that the view's facts name. Lives for ever.
const Kind& KindOf(const ChartView& view);

/// The point under the pointer: that of the topmost hit region which holds `at`, else the kind's
/// nearest one within `reach` units. Nothing outside the plot or far from every point. `picture`
/// must be laid out from this view as it is now.
std::optional<ChartHit> FindPoint(const ChartView& view,
                                  const ChartPicture& picture,
                                  PicturePoint at,
                                  double reach = 6.0);

}  // namespace vistaplot
