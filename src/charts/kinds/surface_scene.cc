#include "charts/kinds/surface_scene.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "charts/view/palette.h"

namespace vistaplot {
namespace {

constexpr double kRadians = 3.14159265358979323846 / 180.0;
constexpr double kLowest = 5.0;  // degrees above the base
constexpr double kHighest = 90.0;
constexpr double kHeight = 1.15;  // of the box, where a side of the base is 2
constexpr double kGap = 0.22;     // between base and lowest value, as part of the height
constexpr double kRoot2 = 1.41421356237309504880;
constexpr int kShades = 256;
constexpr double kLeastLight = 0.35;
constexpr double kWideFacet = 6.0;  // pixels from which facets show their edges
constexpr double kEdgeLight = 0.78;
constexpr double kPin = 0.12;       // half the width of a pin, in columns
constexpr double kPinHead = 0.3;    // half the width of its head
constexpr double kWidestPin = 5.0;  // half the widest one, in pixels

// The entry of the ramp's table for a height of the box.
std::size_t ShadeOf(double z) {
  return static_cast<std::size_t>(std::lround((z - kGap) / (1.0 - kGap) * (kShades - 1)));
}

std::vector<PictureColor> RampTable(bool dark) {
  std::vector<PictureColor> table;
  for (int i = 0; i < kShades; ++i) {
    table.push_back(RampColor(static_cast<double>(i) / (kShades - 1), dark));
  }
  return table;
}

}  // namespace

SurfaceTurn TurnedBy(SurfaceTurn turn, double azimuth, double elevation) {
  turn.azimuth = std::fmod(turn.azimuth + azimuth + 360.0, 360.0);
  turn.elevation = std::clamp(turn.elevation + elevation, kLowest, kHighest);
  return turn;
}

SurfaceScene::SurfaceScene(const CellGrid& grid,
                           const ValueBands& bands,
                           SurfaceTurn turn,
                           PictureBox room)
    : grid_(grid),
      bottom_(bands.LowerLimit(0)),
      top_(bands.LowerLimit(bands.count)),
      near_x_(std::cos(turn.azimuth * kRadians)),
      near_y_(std::sin(turn.azimuth * kRadians)),
      rise_(std::cos(turn.elevation * kRadians)),
      tilt_(std::sin(turn.elevation * kRadians)) {
  right_x_ = -near_y_;
  right_y_ = near_x_;
  const double high = 2.0 * kRoot2 * tilt_ + kHeight * rise_;
  radius_ = std::max(1.0, std::min(room.Width() / (2.0 * kRoot2), room.Height() / high));
  // The base's middle: half of what the height takes lies below it.
  middle_ = {(room.left + room.right) / 2.0,
             (room.top + room.bottom) / 2.0 + radius_ * kHeight * rise_ / 2.0};
}

PicturePoint SurfaceScene::Project(const BoxPoint& point) const {
  const double right = point.x * right_x_ + point.y * right_y_;
  const double near = point.x * near_x_ + point.y * near_y_;
  return {middle_.x + radius_ * right,
          middle_.y + radius_ * (near * tilt_ - point.z * kHeight * rise_)};
}

double SurfaceScene::Nearness(const BoxPoint& point) const {
  return (point.x * near_x_ + point.y * near_y_) * rise_ + point.z * kHeight * tilt_;
}

BoxPoint SurfaceScene::OnBase(double row, double column) const {
  const auto along = [](double number, int count) {
    return count < 2 ? 0.0 : 2.0 * (number - 1.0) / (count - 1) - 1.0;
  };
  return {along(column, grid_.Columns()), -along(row, grid_.Rows()), 0.0};
}

BoxPoint SurfaceScene::PointAt(double row, double column, double value) const {
  BoxPoint point = OnBase(row, column);
  const double part = std::clamp((value - bottom_) / (top_ - bottom_), 0.0, 1.0);
  point.z = kGap + (1.0 - kGap) * part;
  return point;
}

BoxPoint SurfaceScene::NearestCorner() const {
  return {near_x_ < 0.0 ? -1.0 : 1.0, near_y_ < 0.0 ? -1.0 : 1.0, 0.0};
}

double SurfaceScene::FacetWidth() const {
  return 2.0 * radius_ / std::max({1, grid_.Columns() - 1, grid_.Rows() - 1});
}

// Lambert's law on a face whose upper side is lit, from behind the reader's left shoulder.
PictureColor SurfaceScene::FacetColor(const std::array<BoxPoint, 4>& p,
                                      const PictureColor& full) const {
  const double ax = p[2].x - p[0].x;
  const double ay = p[2].y - p[0].y;
  const double az = (p[2].z - p[0].z) * kHeight;
  const double bx = p[3].x - p[1].x;
  const double by = p[3].y - p[1].y;
  const double bz = (p[3].z - p[1].z) * kHeight;
  const double nx = ay * bz - az * by;
  const double ny = az * bx - ax * bz;
  const double nz = ax * by - ay * bx;
  const double length = std::sqrt(nx * nx + ny * ny + nz * nz);
  if (length <= 0.0) return full;
  const double up = std::abs(nz) / length;  // seen from above whichever way the corners run
  const double sign = nz < 0.0 ? -1.0 : 1.0;
  const double right = sign * (nx * right_x_ + ny * right_y_) / length;
  const double near = sign * (nx * near_x_ + ny * near_y_) / length;
  // Light from the sky reaches what is turned from the lamp, so that its colour can still be named.
  const double light = 0.5 + 0.5 * (-0.55 * right + 0.30 * near + 0.78 * up);
  return Shaded(full, kLeastLight + (1.0 - kLeastLight) * std::clamp(light, 0.0, 1.0));
}

// The height of the surface over a place of the base; below everything where it has none.
double SurfaceScene::HeightAt(double x, double y) const {
  const double column = 1.0 + (x + 1.0) / 2.0 * (grid_.Columns() - 1);
  const double row = 1.0 + (1.0 - y) / 2.0 * (grid_.Rows() - 1);
  const int left = static_cast<int>(column);
  const int top = static_cast<int>(row);
  if (!grid_.SquareFilled(top, left)) return -1.0;
  const auto height = [&](int r, int c) { return PointAt(r, c, grid_.At(r, c)).z; };
  const double u = column - left;
  const double v = row - top;
  return (1.0 - v) * ((1.0 - u) * height(top, left) + u * height(top, left + 1)) +
         v * ((1.0 - u) * height(top + 1, left) + u * height(top + 1, left + 1));
}

// Goes from the point towards the reader, by half a cell a step.
bool SurfaceScene::Hidden(const BoxPoint& point) const {
  constexpr double kClear = 0.08;  // what stands that little before a mark does not hide it
  if (rise_ < 1e-6) return false;  // seen from above
  const double along = rise_ / std::max({1, grid_.Columns(), grid_.Rows()});
  const double up = along * tilt_ / (rise_ * kHeight);
  BoxPoint at = point;
  while (std::abs(at.x) <= 1.0 && std::abs(at.y) <= 1.0 && at.z <= 1.0) {
    if (HeightAt(at.x, at.y) > at.z + kClear) return true;
    at = {at.x + along * near_x_, at.y + along * near_y_, at.z + up};
  }
  return false;
}

// A stem as wide as a part of a column and a head, both turned to the reader.
void SurfaceScene::AddPin(GridCell cell, PictureColor color, FillFacets& drawn) const {
  const PicturePoint foot = Project(OnBase(cell.row, cell.column));
  const PicturePoint top = Project(PointAt(cell.row, cell.column, grid_.At(cell.row, cell.column)));
  const double half = std::clamp(kPin * FacetWidth(), 0.75, kWidestPin);
  const double head = std::clamp(kPinHead * FacetWidth(), 1.5, 2.0 * kWidestPin);
  drawn.facets.push_back({{{{foot.x - half, foot.y},
                            {foot.x + half, foot.y},
                            {top.x + half, top.y},
                            {top.x - half, top.y}}},
                          Shaded(color, kEdgeLight)});
  drawn.facets.push_back({{{{top.x, top.y - head},
                            {top.x + head, top.y},
                            {top.x, top.y + head},
                            {top.x - head, top.y}}},
                          color});
}

FillFacets SurfaceScene::Facets(int stride, bool dark) const {
  FillFacets drawn;
  if (FacetWidth() * stride > kWideFacet) drawn.outline = kEdgeLight;
  std::vector<int> rows = CellGrid::Nodes(grid_.Rows(), stride);
  std::vector<int> columns = CellGrid::Nodes(grid_.Columns(), stride);
  // Towards the reader: rows count against y, columns with x.
  if (near_y_ > 0.0) std::reverse(rows.begin(), rows.end());
  if (near_x_ < 0.0) std::reverse(columns.begin(), columns.end());
  const std::vector<PictureColor> ramp = RampTable(dark);
  drawn.facets.reserve(rows.size() * columns.size());
  for (std::size_t r = 0; r < rows.size(); ++r) {
    for (const int column : columns) {
      if (!grid_.Lone(rows[r], column)) continue;
      const double z = PointAt(rows[r], column, grid_.At(rows[r], column)).z;
      AddPin({rows[r], column}, ramp[ShadeOf(z)], drawn);
    }
    for (std::size_t c = 0; r + 1 < rows.size() && c + 1 < columns.size(); ++c) {
      const std::array<GridCell, 4> cells = {{{rows[r], columns[c]},
                                              {rows[r], columns[c + 1]},
                                              {rows[r + 1], columns[c + 1]},
                                              {rows[r + 1], columns[c]}}};
      std::array<BoxPoint, 4> corners;
      PictureFacet facet;
      double height = 0.0;
      for (std::size_t i = 0; i < cells.size(); ++i) {
        corners[i] =
            PointAt(cells[i].row, cells[i].column, grid_.At(cells[i].row, cells[i].column));
        facet.corners[i] = Project(corners[i]);
        height += corners[i].z / 4.0;
      }
      if (!std::isfinite(height)) continue;
      facet.color = FacetColor(corners, ramp[ShadeOf(height)]);
      drawn.facets.push_back(facet);
    }
  }
  return drawn;
}

}  // namespace vistaplot
