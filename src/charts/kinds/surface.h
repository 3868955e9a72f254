// The surface chart: the values of the cells of two parameters as a shaded surface over a base that
// bears their contour. It is turned and tilted by the view's facts; its data stays.
#pragma once

#include "charts/kinds/cell_grid.h"

namespace vistaplot {

/// A surface has no plane that a cross-hair could run over: what is read off is the cell under the
/// pointer, the nearest one to the reader where several lie behind each other, or the cell that
/// keys have led to.
class SurfaceKind : public ParameterKind {
 public:
  PositionAxis Positions() const override { return PositionAxis::kNone; }
  AxisRanges Values(const ChartView&) const override { return {}; }
  void Draw(const DrawContext& context,
            const PlotScale& scale,
            ChartPicture& picture) const override;
  std::optional<ChartHit> HitAt(const ChartView& view,
                                const ChartPicture& picture,
                                PicturePoint at,
                                double reach) const override;
  bool Turns() const override { return true; }
  std::optional<PicturePoint> PlaceOf(const ChartView& view,
                                      const ChartPicture& picture,
                                      int row,
                                      int column) const override;
  ReadOut ReadAt(const ChartView& view,
                 int row,
                 int column,
                 const ChartTheme& theme) const override;
};

/// Turns a surface as a hand that drags it does: so many units to the right and downwards. Other
/// kinds stay as they are.
void TurnSurface(ChartView& view, double right, double down);

/// By steps of an arrow key, to the right and upwards.
void StepSurface(ChartView& view, int right, int up);

/// Back to the side that it shows at first.
void ResetSurface(ChartView& view);

}  // namespace vistaplot
