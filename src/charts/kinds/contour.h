// The contour chart: the values of the cells of two parameters as filled bands, seen from above.
#pragma once

#include "charts/kinds/cell_grid.h"

namespace vistaplot {

/// Columns stand at the positions 1, 2, ...; row r of R at the height R + 1 - r of the vertical
/// scale. Squares of four cells are filled by linear interpolation; one with an empty corner is
/// hatched, and a cell that belongs to no full square keeps a small box of its colour. A single row
/// or column is drawn as bars.
class ContourKind : public ParameterKind {
 public:
  PositionAxis Positions() const override { return PositionAxis::kCells; }
  AxisRanges Values(const ChartView& view) const override;
  void Draw(const DrawContext& context,
            const PlotScale& scale,
            ChartPicture& picture) const override;
  std::optional<ChartHit> HitAt(const ChartView& view,
                                const ChartPicture& picture,
                                PicturePoint at,
                                double reach) const override;
  std::string ColumnText(const ChartView& view, int column) const override;
  std::string RowText(const ChartView& view, int row) const override;
  ReadOut ReadAt(const ChartView& view,
                 int row,
                 int column,
                 const ChartTheme& theme) const override;
};

}  // namespace vistaplot
