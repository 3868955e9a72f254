// The surface chart: the values of the cells of two parameters as a shaded surface over a base that
// bears their contour. It is turned and tilted by the view's facts; its data stays.
#pragma once

#include "charts/kinds/kind.h"

namespace vistaplot {

/// A surface has no plane that a cross-hair could run over: what is read off is the cell under the
/// pointer, the nearest one to the reader where several lie behind each other.
class SurfaceKind : public Kind {
 public:
  PositionAxis Positions() const override { return PositionAxis::kNone; }
  std::vector<DrawnSeries> Series(const ChartView&) const override { return {}; }
  std::vector<LegendMark> Legend(const ChartView& view, const ChartTheme& theme) const override;
  AxisRanges Values(const ChartView&) const override { return {}; }
  void Draw(const DrawContext& context,
            const PlotScale& scale,
            ChartPicture& picture) const override;
  std::optional<ChartHit> HitAt(const ChartView& view,
                                const ChartPicture& picture,
                                PicturePoint at,
                                double reach) const override;
  StopList Stops(const ChartView&) const override { return {}; }
  ReadOut ReadAt(const ChartView& view,
                 int row,
                 int column,
                 const ChartTheme& theme) const override;
};

}  // namespace vistaplot
