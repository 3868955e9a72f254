#include "charts/kinds/surface.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "charts/kinds/iso_regions.h"
#include "charts/kinds/surface_scene.h"

namespace vistaplot {
namespace {

// Room for the labels around the box, as parts of the plot.
constexpr double kSideRoom = 0.09;
constexpr double kTopRoom = 0.01;
constexpr double kBottomRoom = 0.13;

constexpr double kTick = 6.0;  // lengths at scale 1
constexpr double kMarkSize = 13.0;
constexpr double kLeastFacet = 1.0;  // pixels of the device; smaller ones are drawn by twos, threes
constexpr int kWholeFacets = 10000;  // while turning, larger surfaces are drawn by twos
constexpr double kCapPart = 0.36;    // half the height of capitals, in font sizes
constexpr double kLoneCell = 0.35;   // half the side of its box on the base, in columns

PictureBox RoomOf(const PictureBox& plot) {
  return {plot.left + kSideRoom * plot.Width(),
          plot.top + kTopRoom * plot.Height(),
          plot.right - kSideRoom * plot.Width(),
          plot.bottom - kBottomRoom * plot.Height()};
}

SurfaceScene SceneOf(const ChartView& view, const CellGrid& grid, const PictureBox& plot) {
  return {grid, BandsOf(grid.Lowest(), grid.Highest()), view.facts.cells.turn, RoomOf(plot)};
}

int StrideOf(const DrawContext& context, const ParameterCells& cells, const SurfaceScene& scene) {
  const double pixels = scene.FacetWidth() * context.detail;
  const int stride = std::max(1, static_cast<int>(std::ceil(kLeastFacet / pixels)));
  const bool large = static_cast<double>(cells.grid.Rows()) * cells.grid.Columns() > kWholeFacets;
  return context.view.facts.cells.turning && large ? std::max(stride, 2) : stride;
}

class Painter {
 public:
  Painter(const DrawContext& context,
          const ParameterCells& cells,
          const SurfaceScene& scene,
          const PictureBox& plot,
          ChartPicture& picture)
      : context_(context),
        cells_(cells),
        scene_(scene),
        plot_(plot),
        picture_(picture),
        near_(scene.NearestCorner()),
        label_pixels_(context.FontPixels(context.view.Plot.Axis[3].Labels.VtFont.Size)) {}

  void DrawAll() {
    DrawBase();
    DrawWalls();
    picture_.Add(scene_.Facets(StrideOf(context_, cells_, scene_), context_.theme.dark));
    const double size = kMarkSize * context_.scale;
    DrawMark(cells_.plateau, false, MarksMeet(size) ? kBehindStar * size : size);
    DrawMark(cells_.best, true, size);
    const CellGrid& grid = cells_.grid;
    const int rows = grid.Rows();
    DrawEdge({.labels = [&](double least) { return LabelledColumns(context_.view, least); },
              .count = grid.Columns(),
              .at =
                  [&](int i) {
                    return BoxPoint{scene_.OnBase(1, i).x, near_.y, 0.0};
                  },
              .outwards = {0.0, near_.y, 0.0},
              .text = [&](int i) { return ColumnNumber(context_.view, i); },
              .axis = 3});
    DrawEdge({.labels = [&](double least) { return LabelledRows(context_.view, least); },
              .count = rows,
              .at =
                  [&](int i) {
                    return BoxPoint{near_.x, scene_.OnBase(rows + 1 - i, 1).y, 0.0};
                  },
              .outwards = {near_.x, 0.0, 0.0},
              .text = [&](int i) { return RowNumber(context_.view, rows + 1 - i); },
              .axis = 0});
    DrawHeights();
  }

 private:
  // One side of the base with the numbers of a parameter.
  struct Edge {
    std::function<std::vector<int>(double)> labels;  // those that bear a number, apart by so many
    int count;
    std::function<BoxPoint(int)> at;  // from 1
    BoxPoint outwards;
    std::function<std::string(int)> text;
    std::size_t axis;
  };

  void Line(const std::vector<BoxPoint>& points, PictureColor ink) {
    StrokeLine line{{}, ink, std::max(1.0, std::floor(context_.scale))};
    for (const BoxPoint& point : points) line.points.push_back(scene_.Project(point));
    picture_.Add(std::move(line));
  }

  // Where a place of a thinned grid lies on the whole one.
  static double Unthinned(const std::vector<int>& nodes, double place) {
    const auto before = static_cast<std::size_t>(place) - 1;
    const int next = nodes[std::min(before + 1, nodes.size() - 1)];
    return nodes[before] + (place - std::floor(place)) * (next - nodes[before]);
  }

  FillRegion OnBase(std::vector<GridLine> rings, int band, int stride) const {
    const std::vector<int> rows = CellGrid::Nodes(cells_.grid.Rows(), stride);
    const std::vector<int> columns = CellGrid::Nodes(cells_.grid.Columns(), stride);
    for (GridLine& ring : rings) {
      for (PicturePoint& p : ring) p = {Unthinned(columns, p.x), Unthinned(rows, p.y)};
    }
    return OnBase(rings, band);
  }

  FillRegion OnBase(const std::vector<GridLine>& rings, int band) const {
    FillRegion region{{}, BandColor(cells_.bands, band, context_.theme.dark)};
    for (const GridLine& ring : rings) {
      auto& points = region.rings.emplace_back();
      for (const PicturePoint& p : ring) {
        points.push_back(scene_.Project(scene_.OnBase(p.y, p.x)));
      }
    }
    return region;
  }

  void DrawBase() {
    const int stride = StrideOf(context_, cells_, scene_);
    const CellGrid grid = cells_.grid.Thinned(stride);
    picture_.Add(OnBase(TraceFilledSquares(grid), 0, stride));
    int band = 0;
    for (const IsoRegion& region : TraceRegions(grid, cells_.bands.InnerLimits())) {
      picture_.Add(OnBase(region.rings, ++band, stride));
    }
    DrawLoneCells();
    Line({{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}, {-1, -1, 0}}, context_.theme.axis);
  }

  // Filled cells that no band reaches, as on a contour.
  void DrawLoneCells() {
    const CellGrid& grid = cells_.grid;
    const auto inside = [](double number, int count) {
      return std::clamp(number, 1.0, 1.0 * count);
    };
    for (int row = 1; row <= grid.Rows(); ++row) {
      for (int column = 1; column <= grid.Columns(); ++column) {
        if (!grid.Lone(row, column)) continue;
        const double left = inside(column - kLoneCell, grid.Columns());
        const double right = inside(column + kLoneCell, grid.Columns());
        const double top = inside(row - kLoneCell, grid.Rows());
        const double bottom = inside(row + kLoneCell, grid.Rows());
        picture_.Add(OnBase({{{left, top}, {right, top}, {right, bottom}, {left, bottom}}},
                            cells_.bands.BandOf(grid.At(row, column))));
      }
    }
  }

  // The two sides of the box behind the surface, with the heights that are labelled.
  void DrawWalls() {
    const auto wall = [&](double z) {
      return std::vector<BoxPoint>{
          {-near_.x, near_.y, z}, {-near_.x, -near_.y, z}, {near_.x, -near_.y, z}};
    };
    for (int i = 0; i <= cells_.bands.count; i += HeightStep()) {
      Line(wall(HeightOf(i)), context_.theme.guide);
    }
    for (const BoxPoint& foot : wall(0.0)) {
      Line({foot, {foot.x, foot.y, 1.0}}, context_.theme.guide_zero);
    }
    Line(wall(1.0), context_.theme.guide_zero);
  }

  double HeightOf(int limit) const {
    return scene_.PointAt(1, 1, cells_.bands.LowerLimit(limit)).z;
  }

  // Limits of bands from label to label.
  int HeightStep() const {
    const double between =
        scene_.Project({0, 0, HeightOf(0)}).y - scene_.Project({0, 0, HeightOf(1)}).y;
    if (between < 1.0) return cells_.bands.count;  // seen from above
    return WholeStep(1.4 * label_pixels_ / between);
  }

  // Along the upright that stands farthest left.
  void DrawHeights() {
    const BoxPoint a{-near_.x, near_.y, 0.0};
    const BoxPoint b{near_.x, -near_.y, 0.0};
    const BoxPoint foot = scene_.Project(a).x < scene_.Project(b).x ? a : b;
    if (scene_.Project({0, 0, 0}).y - scene_.Project({0, 0, 1}).y < 2.0 * label_pixels_) return;
    for (int i = 0; i <= cells_.bands.count; i += HeightStep()) {
      const PicturePoint at = scene_.Project({foot.x, foot.y, HeightOf(i)});
      const double tick = kTick * context_.scale;
      picture_.Add(StrokeLine{{at, {at.x - tick, at.y}}, context_.theme.axis, 1.0});
      Text(PlainValueText(static_cast<float>(cells_.bands.LowerLimit(i))),
           {at.x - 1.5 * tick, at.y},
           TextAlign::kRight,
           label_pixels_);
    }
  }

  void DrawEdge(const Edge& edge) {
    const PicturePoint middle = scene_.Project({});
    const PicturePoint end = scene_.Project(edge.outwards);
    const double length = std::hypot(end.x - middle.x, end.y - middle.y);
    if (length < 1.0) return;
    const PicturePoint out{(end.x - middle.x) / length, (end.y - middle.y) / length};
    const TextAlign align = out.x < -0.35  ? TextAlign::kRight
                            : out.x > 0.35 ? TextAlign::kLeft
                                           : TextAlign::kCenter;
    double widest = 0.0;
    for (const int i : {1, edge.count / 2 + 1, edge.count}) {
      widest = std::max(widest, context_.measure.Width(edge.text(i), label_pixels_, false));
    }
    const double tick = kTick * context_.scale;
    for (const int i : edge.labels(LeastApart(edge, widest))) {
      const PicturePoint at = scene_.Project(edge.at(i));
      const PicturePoint tip{at.x + out.x * tick, at.y + out.y * tick};
      picture_.Add(StrokeLine{{at, tip}, context_.theme.axis, 1.0});
      const double down = out.y * 0.7 * label_pixels_;
      Text(edge.text(i), {tip.x + out.x * 0.5 * tick, tip.y + down}, align, label_pixels_);
    }
    DrawEdgeTitle(edge, out, align, 2.0 * tick + std::abs(out.x) * widest + 1.9 * label_pixels_);
  }

  // At the edge's middle, or as far along the edge as it takes to stand on the plot whole.
  void DrawEdgeTitle(const Edge& edge, PicturePoint out, TextAlign align, double reach) {
    const auto& title = context_.view.Plot.Axis[edge.axis].AxisTitle;
    const int pixels = context_.FontPixels(title.VtFont.Size);
    const PicturePoint from = scene_.Project(edge.at(1));
    const PicturePoint to = scene_.Project(edge.at(edge.count));
    PicturePoint at{(from.x + to.x) / 2.0 + out.x * reach, (from.y + to.y) / 2.0 + out.y * reach};
    const double aside =
        LeftOf(title.Text, at.x, align, pixels) - BesideOf(title.Text, at.x, align, pixels);
    if (std::abs(to.x - from.x) > 1.0) at.y += aside * (to.y - from.y) / (to.x - from.x);
    Text(title.Text, at, align, pixels);
  }

  // Numbers from label to label, at least, so that neighbours keep apart to the side or in height.
  double LeastApart(const Edge& edge, double widest) const {
    if (edge.count < 2) return 1.0;
    const PicturePoint a = scene_.Project(edge.at(1));
    const PicturePoint b = scene_.Project(edge.at(2));
    const double across = std::abs(b.x - a.x) / (widest + 0.8 * label_pixels_);
    const double down = std::abs(b.y - a.y) / (1.2 * label_pixels_);
    return 1.0 / std::max({across, down, 1e-6});
  }

  BoxPoint PointOf(GridCell cell) const {
    return scene_.PointAt(cell.row, cell.column, cells_.grid.At(cell.row, cell.column));
  }

  bool MarksMeet(double size) const {
    if (!cells_.best || !cells_.plateau) return false;
    const PicturePoint a = scene_.Project(PointOf(*cells_.best));
    const PicturePoint b = scene_.Project(PointOf(*cells_.plateau));
    return std::hypot(a.x - b.x, a.y - b.y) < size;
  }

  // Behind a part of the surface a mark is a pale outline.
  void DrawMark(const std::optional<GridCell>& cell, bool best, double size) {
    if (!cell) return;
    const BoxPoint point = PointOf(*cell);
    FillShape mark = CellMark(best, scene_.Project(point), size);
    if (scene_.Hidden(point)) {
      mark.fill.alpha = 0;
      mark.outline = {255, 255, 255, 150};
    }
    picture_.Add(std::move(mark));
  }

  // The left end of a text that stands at `x`, and the same on the plot.
  double BesideOf(const std::string& text, double x, TextAlign align, int pixels) const {
    const double before = align == TextAlign::kLeft ? 0.0 : align == TextAlign::kRight ? 1.0 : 0.5;
    return x - before * context_.measure.Width(text, pixels, false);
  }
  double LeftOf(const std::string& text, double x, TextAlign align, int pixels) const {
    const double last = plot_.right - context_.measure.Width(text, pixels, false);
    return std::clamp(BesideOf(text, x, align, pixels), plot_.left, std::max(plot_.left, last));
  }

  void Text(const std::string& text, PicturePoint at, TextAlign align, int pixels) {
    const double left = LeftOf(text, at.x, align, pixels);
    picture_.Add(DrawText{.text = text,
                          .at = {std::round(left), std::round(at.y + kCapPart * pixels)},
                          .pixel_size = pixels,
                          .color = context_.theme.label});
  }

  const DrawContext& context_;
  const ParameterCells& cells_;
  const SurfaceScene& scene_;
  const PictureBox& plot_;
  ChartPicture& picture_;
  BoxPoint near_;
  int label_pixels_;
};

}  // namespace

void SurfaceKind::Draw(const DrawContext& context,
                       const PlotScale& scale,
                       ChartPicture& picture) const {
  const ParameterCells cells(context.view);
  if (cells.grid.FilledCount() == 0) return;
  const SurfaceScene scene = SceneOf(context.view, cells.grid, scale.box);
  Painter(context, cells, scene, scale.box, picture).DrawAll();
}

std::optional<ChartHit> SurfaceKind::HitAt(const ChartView& view,
                                           const ChartPicture& picture,
                                           PicturePoint at,
                                           double reach) const {
  const CellGrid grid(view);
  if (grid.FilledCount() == 0) return std::nullopt;
  const SurfaceScene scene = SceneOf(view, grid, picture.scale.box);
  const double most = std::max(reach, 0.75 * scene.FacetWidth());
  std::optional<ChartHit> hit;
  double nearest = 0.0;
  for (int row = 1; row <= grid.Rows(); ++row) {
    for (int column = 1; column <= grid.Columns(); ++column) {
      if (!grid.Filled(row, column)) continue;
      const BoxPoint point = scene.PointAt(row, column, grid.At(row, column));
      const PicturePoint seen = scene.Project(point);
      const double away = std::hypot(seen.x - at.x, seen.y - at.y);
      if (away > most) continue;
      // Of the cells around the pointer the nearest to it; one clearly in front hides the others.
      const double rating = scene.Nearness(point) - 0.5 * away / most;
      if (hit && rating <= nearest) continue;
      nearest = rating;
      hit = ChartHit{column, row};
    }
  }
  return hit;
}

std::optional<PicturePoint> SurfaceKind::PlaceOf(const ChartView& view,
                                                 const ChartPicture& picture,
                                                 int row,
                                                 int column) const {
  if (!view.HasPoint(row, column)) return std::nullopt;
  const CellGrid grid(view);
  const SurfaceScene scene = SceneOf(view, grid, picture.scale.box);
  return scene.Project(scene.PointAt(row, column, grid.At(row, column)));
}

ReadOut SurfaceKind::ReadAt(const ChartView& view,
                            int row,
                            int column,
                            const ChartTheme& theme) const {
  ReadOut read_out = ReadCell(view, row, column, theme);
  if (!read_out.entries.empty()) read_out.entries.front().at = PicturePoint{};  // PlaceOf tells it
  return read_out;
}

void TurnSurface(ChartView& view, double right, double down) {
  constexpr double kDegrees = 0.4;  // of a unit
  SurfaceTurn& turn = view.facts.cells.turn;
  turn = TurnedBy(turn, -kDegrees * right, kDegrees * down);
}

void StepSurface(ChartView& view, int right, int up) {
  constexpr double kDegrees = 5.0;
  SurfaceTurn& turn = view.facts.cells.turn;
  turn = TurnedBy(turn, -kDegrees * right, kDegrees * up);
}

void ResetSurface(ChartView& view) {
  view.facts.cells.turn = {};
}

}  // namespace vistaplot
