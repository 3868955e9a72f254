#include "charts/kinds/contour.h"

#include <algorithm>
#include <cmath>

#include "charts/kinds/iso_regions.h"

namespace vistaplot {
namespace {

constexpr double kLineLight = 0.62;  // of a contour line, as part of the colour above it
constexpr double kMarkSize = 13.0;   // at scale 1
constexpr double kHatchSpacing = 7.0;
constexpr double kLoneCell = 0.35;  // half the side of its box, in columns

// From grid units (columns and rows) to the picture.
class GridPlace {
 public:
  GridPlace(const PlotScale& scale, int rows) : scale_(scale), rows_(rows) {}
  const PictureBox& Plot() const { return scale_.box; }
  PicturePoint At(double row, double column) const {
    return {scale_.X(column), scale_.Y(rows_ + 1.0 - row)};
  }
  PictureBox Box(double top, double left, double bottom, double right) const {
    const PicturePoint a = At(top, left);
    const PicturePoint b = At(bottom, right);
    return {a.x, a.y, b.x, b.y};
  }
  std::vector<PicturePoint> Line(const GridLine& line) const {
    std::vector<PicturePoint> points;
    points.reserve(line.size());
    for (const PicturePoint& p : line) points.push_back(At(p.y, p.x));
    return points;
  }
  FillRegion Region(const std::vector<GridLine>& rings, PictureColor color) const {
    FillRegion region{{}, color};
    for (const GridLine& ring : rings) region.rings.push_back(Line(ring));
    return region;
  }

 private:
  const PlotScale& scale_;
  int rows_;
};

// From the lowest band up, each over what it shares with those below.
void DrawBands(const ParameterCells& cells,
               const GridPlace& place,
               const DrawContext& context,
               ChartPicture& picture) {
  const bool dark = context.theme.dark;
  picture.Add(place.Region(TraceFilledSquares(cells.grid), BandColor(cells.bands, 0, dark)));
  const std::vector<IsoRegion> regions = TraceRegions(cells.grid, cells.bands.InnerLimits());
  for (std::size_t i = 0; i < regions.size(); ++i) {
    const PictureColor color = BandColor(cells.bands, static_cast<int>(i) + 1, dark);
    picture.Add(place.Region(regions[i].rings, color));
  }
  const double width = std::max(1.0, 0.8 * context.scale);
  for (std::size_t i = 0; i < regions.size(); ++i) {
    const PictureColor color = BandColor(cells.bands, static_cast<int>(i) + 1, dark);
    for (const GridLine& line : regions[i].lines) {
      picture.Add(StrokeLine{place.Line(line), Shaded(color, kLineLight), width});
    }
  }
}

// Slanting lines over the box, at places that neighbouring boxes share.
void Hatch(const PictureBox& box, double spacing, PictureColor ink, ChartPicture& picture) {
  const double first = std::ceil((box.left + box.top) / spacing) * spacing;
  for (double sum = first; sum < box.right + box.bottom; sum += spacing) {
    const double left = std::max(box.left, sum - box.bottom);
    const double right = std::min(box.right, sum - box.top);
    if (right - left < 0.5) continue;
    picture.Add(StrokeLine{{{left, sum - left}, {right, sum - right}}, ink, 1.0});
  }
}

// Runs of squares without a value at each corner.
void HatchEmptySquares(const CellGrid& grid,
                       const GridPlace& place,
                       const DrawContext& context,
                       ChartPicture& picture) {
  const double spacing = std::round(kHatchSpacing * context.scale);
  for (int row = 1; row < grid.Rows(); ++row) {
    for (int column = 1; column < grid.Columns(); ++column) {
      const int first = column;
      while (column < grid.Columns() && !grid.SquareFilled(row, column)) ++column;
      if (column == first) continue;
      Hatch(place.Box(row, first, row + 1, column), spacing, context.theme.guide_zero, picture);
    }
  }
}

// Filled cells that no band reaches.
void DrawLoneCells(const ParameterCells& cells,
                   const GridPlace& place,
                   const DrawContext& context,
                   double half_row,
                   double half_column,
                   ChartPicture& picture) {
  for (int row = 1; row <= cells.grid.Rows(); ++row) {
    for (int column = 1; column <= cells.grid.Columns(); ++column) {
      if (!cells.grid.Lone(row, column)) continue;
      const int band = cells.bands.BandOf(cells.grid.At(row, column));
      PictureBox box =
          place.Box(row - half_row, column - half_column, row + half_row, column + half_column);
      const PictureBox& plot = place.Plot();
      box = {std::round(std::max(box.left, plot.left)),
             std::round(std::max(box.top, plot.top)),
             std::round(std::min(box.right, plot.right)),
             std::round(std::min(box.bottom, plot.bottom))};
      picture.Add(FillBox{box, BandColor(cells.bands, band, context.theme.dark)});
    }
  }
}

ValueRange Span(int count) {
  return count < 2 ? ValueRange{0.5, 1.5} : ValueRange{1.0, static_cast<double>(count)};
}

}  // namespace

AxisRanges ContourKind::Values(const ChartView& view) const {
  // Bars of a single row or column are as wide as the cells are apart.
  const bool bars = view.rowcount() < 2 || view.ColumnCount() < 2;
  AxisRanges ranges{Span(view.ColumnCount()), Span(view.rowcount())};
  if (!bars) return ranges;
  if (view.ColumnCount() > 1) ranges.positions = {0.5, view.ColumnCount() + 0.5};
  if (view.rowcount() > 1) ranges.values = {0.5, view.rowcount() + 0.5};
  return ranges;
}

void ContourKind::Draw(const DrawContext& context,
                       const PlotScale& scale,
                       ChartPicture& picture) const {
  const ParameterCells cells(context.view);
  if (cells.grid.FilledCount() == 0) return;
  const GridPlace place(scale, cells.grid.Rows());
  if (cells.grid.Rows() < 2 || cells.grid.Columns() < 2) {
    DrawLoneCells(cells, place, context, 0.5, 0.5, picture);
  } else {
    HatchEmptySquares(cells.grid, place, context, picture);
    DrawBands(cells, place, context, picture);
    DrawLoneCells(cells, place, context, kLoneCell, kLoneCell, picture);
  }
  const double size = kMarkSize * context.scale;
  if (cells.plateau) {
    const PicturePoint at = place.At(cells.plateau->row, cells.plateau->column);
    picture.Add(CellMark(false, at, cells.plateau == cells.best ? kBehindStar * size : size));
  }
  if (cells.best) picture.Add(CellMark(true, place.At(cells.best->row, cells.best->column), size));
}

std::optional<ChartHit> ContourKind::HitAt(const ChartView& view,
                                           const ChartPicture& picture,
                                           PicturePoint at,
                                           double /*reach*/) const {
  const PlotScale& scale = picture.scale;
  const double column = scale.first_position + (at.x - scale.box.left) / scale.box.Width() *
                                                   (scale.last_position - scale.first_position);
  const double height = scale.lowest + (scale.box.bottom - at.y) / scale.box.Height() *
                                           (scale.highest - scale.lowest);
  const ChartHit hit{static_cast<int>(std::lround(column)),
                     view.rowcount() + 1 - static_cast<int>(std::lround(height))};
  if (!view.HasPoint(hit.point, hit.series)) return std::nullopt;
  return hit;
}

std::string ContourKind::ColumnText(const ChartView& view, int column) const {
  return ColumnNumber(view, column);
}

std::string ContourKind::RowText(const ChartView& view, int row) const {
  return RowNumber(view, row);
}

ReadOut ContourKind::ReadAt(const ChartView& view,
                            int row,
                            int column,
                            const ChartTheme& theme) const {
  ReadOut read_out = ReadCell(view, row, column, theme);
  if (!read_out.entries.empty()) {
    read_out.entries.front().at = PicturePoint{1.0 * column, view.rowcount() + 1.0 - row};
  }
  return read_out;
}

}  // namespace vistaplot
