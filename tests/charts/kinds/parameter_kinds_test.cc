// Contour and surface charts as the layout draws them and as they are read.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "charts/kinds/cell_grid.h"
#include "charts/kinds/facet_raster.h"
#include "charts/kinds/iso_regions.h"
#include "charts/kinds/kind.h"
#include "charts/kinds/surface.h"
#include "charts/kinds/surface_scene.h"
#include "charts/layout/layout.h"
#include "support/chart_pictures.h"

namespace vistaplot::test {
namespace {

// Buy 10, 20, 30 across, sell 5, 10, ... upwards.
ChartView Chart(std::string_view lines, FigureKind kind) {
  ChartView view;
  FillCellView(lines, view);
  view.TitleText = "Avg Annual %";
  view.Legend.Location.Visible = true;
  view.Plot.Axis[0].AxisTitle.Text = "Sell";
  view.Plot.Axis[3].AxisTitle.Text = "Buy";
  view.facts.kind = kind;
  view.facts.cells.first_x = 10.0;
  view.facts.cells.step_x = 10.0;
  view.facts.cells.first_y = 5.0 * view.rowcount();
  view.facts.cells.step_y = 5.0;
  return view;
}

ChartPicture Draw(const ChartView& view, double width = 640.0) {
  return LayOut(view, {width, 480.0});
}

template <class Item>
int Count(const ChartPicture& picture) {
  return static_cast<int>(ItemsOf<Item>(picture).size());
}

bool Says(const ChartPicture& picture, std::string_view text) {
  return std::ranges::count(ItemsOf<DrawText>(picture), text, &DrawText::text) > 0;
}

FillFacets FacesOf(const ChartPicture& picture) {
  return ItemsOf<FillFacets>(picture).front();
}

TEST(ContourChart, NumbersOfTheParametersStandAtColumnsAndRows) {
  const ChartPicture picture = Draw(Chart("1 2 3\n4 5 6", FigureKind::kContour));
  for (const char* text : {"10", "20", "30", "5", "Buy", "Sell", "best", "best plateau"}) {
    EXPECT_TRUE(Says(picture, text)) << text;
  }
  for (const DrawText& text : ItemsOf<DrawText>(picture)) {
    if (text.text != "20" && text.text != "30") continue;
    EXPECT_EQ(text.at.x, picture.scale.X(LeadingNumber(text.text) / 10.0)) << text.text;
  }
  EXPECT_EQ(picture.scale.X(1.0), picture.scale.box.left);
  EXPECT_GT(Count<FillRegion>(picture), 5) << "a region a band";
  const ChartPicture bars = Draw(Chart("1 2 3", FigureKind::kContour));
  EXPECT_EQ(Count<FillRegion>(bars), 0) << "a single row is bars of colour";
  EXPECT_EQ(bars.scale.first_position, 0.5);
}

TEST(ContourChart, ASquareWithAnEmptyCornerIsHatchedAndItsCellsKeepABox) {
  const ChartPicture full = Draw(Chart("1 2 3\n4 5 6\n7 8 9", FigureKind::kContour));
  const ChartPicture empty = Draw(Chart("1 2 -\n4 - 6\n7 - 9", FigureKind::kContour));
  EXPECT_EQ(Count<FillRegion>(empty), Count<FillRegion>(full));
  EXPECT_GT(Count<StrokeLine>(empty), Count<StrokeLine>(full) + 50) << "the hatch";
  EXPECT_EQ(Count<FillBox>(empty), Count<FillBox>(full) + 6) << "cells outside full squares";
}

TEST(ContourChart, LabelsStandAtRoundNumbersWhereThereAreAny) {
  struct Case {
    double first, step;
    int count;
    double least;
    std::vector<int> places;
  };
  for (const Case& c : {Case{1, 1, 1000, 201.0, {500, 1000}},
                        Case{5, 5, 6, 1.2, {2, 4, 6}},
                        Case{0.25, 0.25, 8, 3.0, {5}},
                        Case{7, 10, 5, 2.0, {1, 3, 5}},
                        Case{20, 10, 2, 1e9, {1}},
                        Case{3, 9996, 1, 0.1, {1}}}) {
    ChartView view;
    view.ColumnCount(c.count);
    view.rowcount(c.count);
    view.facts.cells.first_x = c.first;
    view.facts.cells.step_x = view.facts.cells.step_y = c.step;
    view.facts.cells.first_y = c.first + (c.count - 1) * c.step;
    EXPECT_EQ(LabelledColumns(view, c.least), c.places) << c.first;
    EXPECT_EQ(LabelledRows(view, c.least), c.places) << c.first;
  }
}

TEST(ContourChart, TheCrossHairGoesFromCellToCellAndReadsRankAndPlateau) {
  const ChartView view = Chart("1 2 3\n4 9 6\n7 8 -", FigureKind::kContour);
  const StopList stops = KindOf(view).Stops(view);
  EXPECT_EQ(stops.Count(), 8);
  const int middle = stops.Find(2, 2);
  EXPECT_EQ(stops.At(stops.Above(middle, 1)).row, 1);
  EXPECT_EQ(stops.At(stops.Beside(middle, 1)).column, 3);
  const ReadOut read = ReadRow(view, 2, false, 2);
  EXPECT_EQ(read.at, "Buy 20, Sell 10");
  ASSERT_EQ(read.entries.size(), 3U);
  EXPECT_EQ(read.entries[0].values[0].value, 9.0);
  EXPECT_EQ(read.entries[1].text, "1 of 8");
  EXPECT_NEAR(read.entries[2].values[0].value, (1 + 2 + 3 + 4 + 6 + 7 + 8) / 7.0, 1e-12);
  EXPECT_TRUE(ReadRow(view, 3, false, 3).entries.empty());
}

TEST(ContourChart, TheCellUnderThePointerIsFoundAndEmptyOnesAreNot) {
  const ChartView view = Chart("1 2 3\n4 5 -", FigureKind::kContour);
  const ChartPicture picture = Draw(view);
  const PlotScale& scale = picture.scale;
  const auto hit = FindPoint(view, picture, {scale.X(1.8), scale.Y(1.9)});
  ASSERT_TRUE(hit);
  EXPECT_EQ(hit->series, 2);
  EXPECT_EQ(hit->point, 1);
  EXPECT_FALSE(FindPoint(view, picture, {scale.X(2.9), scale.Y(1.1)}));
}

TEST(SurfaceChart, DrawsAFaceASquareAndTurnsWithoutTouchingTheData) {
  ChartView view = Chart("1 2 3\n4 5 6\n7 8 9", FigureKind::kSurface);
  const FillFacets before = FacesOf(Draw(view));
  EXPECT_EQ(before.facets.size(), 4U);
  StepSurface(view, 3, 1);
  const FillFacets turned = FacesOf(Draw(view));
  EXPECT_NE(turned.facets[0].corners[0].x, before.facets[0].corners[0].x);
  EXPECT_EQ(view.DataAt(2, 2), 5.0);
  ResetSurface(view);
  EXPECT_EQ(FacesOf(Draw(view)).facets[0].corners[0].x, before.facets[0].corners[0].x);
  EXPECT_TRUE(KindOf(view).Turns());
}

TEST(SurfaceChart, CellsThatNoFaceReachesStandAsPins) {
  for (const auto& [cells, facets] : {std::pair{"1 - 3\n- 5 -\n7 - 9", 10U},
                                      {"1 2 3", 6U},
                                      {"4", 2U},
                                      {"1 2 -\n4 5 -\n- - 9", 3U}}) {
    const ChartPicture picture = Draw(Chart(cells, FigureKind::kSurface));
    EXPECT_EQ(FacesOf(picture).facets.size(), facets) << cells;
  }
}

TEST(SurfaceChart, AMarkBehindTheSurfaceIsAnOutlineAndBothMarksOfOneCellAreSeen) {
  for (const double elevation : {30.0, 90.0}) {
    ChartView view = Chart("9 9 9 9\n9 1 1 9\n9 1 0 9\n9 9 9 9", FigureKind::kSurface);
    view.facts.cells.lower_is_better = true;
    view.facts.cells.turn.elevation = elevation;
    const auto marks = ItemsOf<FillShape>(Draw(view));
    ASSERT_GE(marks.size(), 2U);
    EXPECT_EQ(marks.back().fill.alpha, elevation < 90.0 ? 0 : 255) << elevation;
  }
  const auto marks = ItemsOf<FillShape>(
      Draw(Chart("1 1 1 1 1\n1 8 8 8 1\n1 8 9 8 1\n1 8 8 8 1\n1 1 1 1 1", FigureKind::kContour)));
  EXPECT_GT(marks[marks.size() - 2].width, 1.5 * marks.back().width) << "a diamond about the star";
}

TEST(SurfaceChart, TheCellUnderThePointerIsTheOneSeen) {
  const ChartView view = Chart("1 2 3\n4 5 6\n7 8 9", FigureKind::kSurface);
  const ChartPicture picture = Draw(view);
  // The last face is the nearest: rows 2 and 3, columns 1 and 2.
  const auto hit = FindPoint(view, picture, FacesOf(picture).facets.back().corners[2]);
  ASSERT_TRUE(hit);
  EXPECT_EQ(hit->point, 3);
  EXPECT_EQ(hit->series, 1);
}

TEST(SurfaceChart, TextsStayOnThePictureFromEverySide) {
  ChartView view = Chart("1 2 3\n4 5 6\n7 8 9", FigureKind::kSurface);
  for (int step = 0; step < 36; ++step) {
    StepSurface(view, 2, step % 3 - 1);
    const ChartPicture picture = Draw(view);
    for (const DrawText& text : ItemsOf<DrawText>(picture)) {
      const PictureBox box = BoxOf(text);
      EXPECT_GE(box.left, 0.0) << text.text;
      EXPECT_LE(box.right, picture.width) << text.text;
      EXPECT_LE(box.bottom, picture.height) << text.text;
    }
  }
}

CellGrid Grid(std::string_view lines) {
  ChartView view;
  FillCellView(lines, view);
  return CellGrid(view);
}

constexpr auto kReadingOrder = [](GridCell a, GridCell b) {
  return a.row < b.row || (a.row == b.row && a.column < b.column);
};

TEST(CellGrid, EqualCellsShareTheBetterRankAndTheFirstIsBest) {
  const CellGrid grid = Grid("5 9 -\n9 1 5");
  EXPECT_EQ(grid.FilledCount(), 5);
  EXPECT_EQ(grid.RankOf(9, false), 1);
  EXPECT_EQ(grid.RankOf(5, false), 3);
  EXPECT_EQ(grid.RankOf(1, false), 5);
  EXPECT_EQ(grid.RankOf(1, true), 1) << "of draw-downs the lowest is best";
  EXPECT_EQ(grid.RankOf(9, true), 4);
  // The first of equal best cells is marked.
  EXPECT_EQ(grid.Best(false, kReadingOrder), (GridCell{1, 2}));
  EXPECT_EQ(grid.Best(true, kReadingOrder), (GridCell{2, 2}));
  const auto from_below = [](GridCell a, GridCell b) { return kReadingOrder(b, a); };
  EXPECT_EQ(grid.Best(false, from_below), (GridCell{2, 1}));
  EXPECT_EQ(Grid("- -").Best(false, kReadingOrder), std::nullopt);
}

TEST(CellGrid, APlateauNeedsThreeNeighbours) {
  EXPECT_DOUBLE_EQ(Grid("1 2 3\n4 90 6\n7 8 -").PlateauOf({1, 1}).value(), (2 + 4 + 90) / 3.0);
  EXPECT_EQ(Grid("1 2\n3 -").PlateauOf({1, 1}), std::nullopt) << "two neighbours are too few";
}

TEST(CellGrid, ALonePeakIsNotTheBestPlateau) {
  const CellGrid grid = Grid("1 1 1 1 1 5 5 5\n1 1 1 1 1 5 6 5\n1 1 20 1 1 5 5 5\n1 1 1 1 1 5 5 5");
  EXPECT_EQ(grid.Best(false, kReadingOrder), (GridCell{3, 3}));
  EXPECT_EQ(grid.BestPlateau(false), (GridCell{1, 8})) << "(5 + 6 + 5) / 3";
  EXPECT_EQ(grid.BestPlateau(true), (GridCell{1, 1})) << "the first whose neighbours are all 1";
}

IsoRegion Region(std::string_view lines, double level) {
  return TraceRegions(Grid(lines), {level}).front();
}

// Twice the area would be counted twice, a hole is taken away: the shoelace formula over all rings.
double AreaOf(const std::vector<GridLine>& rings) {
  double twice = 0.0;
  for (const GridLine& ring : rings) {
    for (std::size_t i = 0; i < ring.size(); ++i) {
      const PicturePoint& a = ring[i];
      const PicturePoint& b = ring[(i + 1) % ring.size()];
      twice += a.x * b.y - b.x * a.y;
    }
  }
  return std::abs(twice) / 2.0;
}

double LengthOf(const std::vector<GridLine>& lines) {
  double length = 0.0;
  for (const GridLine& line : lines) {
    for (std::size_t i = 1; i < line.size(); ++i) {
      length += std::hypot(line[i].x - line[i - 1].x, line[i].y - line[i - 1].y);
    }
  }
  return length;
}

TEST(IsoRegions, APlaneIsCutByAStraightLineFromEdgeToEdge) {
  const IsoRegion region = Region("0 10 20\n0 10 20\n0 10 20", 15);
  EXPECT_DOUBLE_EQ(AreaOf(region.rings), 0.5 * 2.0);
  ASSERT_EQ(region.lines.size(), 1U);
  EXPECT_DOUBLE_EQ(LengthOf(region.lines), 2.0);
  for (const PicturePoint& p : region.lines.front()) EXPECT_DOUBLE_EQ(p.x, 2.5);
}

TEST(IsoRegions, APeakIsOneClosedLineAndAPitAHole) {
  const IsoRegion peak = Region("0 0 0\n0 4 0\n0 0 0", 1);
  ASSERT_EQ(peak.lines.size(), 1U);
  EXPECT_EQ(peak.lines.front().front(), peak.lines.front().back());
  EXPECT_DOUBLE_EQ(AreaOf(peak.rings), 2 * 0.75 * 0.75) << "a diamond, its tips at 3/4";
  const IsoRegion pit = Region("4 4 4\n4 0 4\n4 4 4", 1);
  EXPECT_DOUBLE_EQ(AreaOf(pit.rings), 4.0 - 2 * 0.25 * 0.25);
  EXPECT_DOUBLE_EQ(LengthOf(pit.lines), 4 * 0.25 * std::sqrt(2.0)) << "not along the edge";
}

TEST(IsoRegions, ASaddleIsJoinedOrPartedByTheMeanOfItsCorners) {
  EXPECT_DOUBLE_EQ(AreaOf(Region("3 0\n0 3", 1).rings), 1.0 - 2 * 0.5 * (1 / 3.0) * (1 / 3.0));
  EXPECT_DOUBLE_EQ(AreaOf(Region("3 0\n0 3", 2).rings), 2 * 0.5 * (1 / 3.0) * (1 / 3.0));
}

TEST(IsoRegions, ASquareWithAnEmptyCornerBelongsToNoRegion) {
  const CellGrid grid = Grid("1 1 1 1\n1 - 1 1\n1 1 1 1\n1 1 1 1");
  EXPECT_DOUBLE_EQ(AreaOf(TraceFilledSquares(grid)), 9.0 - 4.0);
  EXPECT_DOUBLE_EQ(AreaOf(TraceRegions(grid, {0.5}).front().rings), 5.0);
  EXPECT_TRUE(TraceRegions(grid, {0.5}).front().lines.empty());
  EXPECT_TRUE(TraceRegions(grid, {1.5}).front().rings.empty());
  EXPECT_TRUE(TraceFilledSquares(Grid("1 2 3")).empty()) << "a single row has no square";
  EXPECT_DOUBLE_EQ(AreaOf(TraceFilledSquares(Grid("1 1 -\n1 1 1\n- 1 1"))), 2.0)
      << "squares that touch at a corner are both counted";
}

TEST(IsoRegions, RegionsOfRisingLevelsLieInsideEachOther) {
  const CellGrid grid = Grid("3 1 4 1 5\n9 2 6 5 3\n5 8 9 7 9\n3 2 3 8 4\n6 2 6 4 3");
  double before = 16.0;
  for (const IsoRegion& region : TraceRegions(grid, {1, 2.5, 4, 5.5, 7, 8.5})) {
    const double area = AreaOf(region.rings);
    EXPECT_LE(area, before);
    before = area;
  }
  EXPECT_GT(before, 0.0);
  EXPECT_LT(before, 1.0);
}

constexpr PictureBox kRoom{0, 0, 400, 300};

struct World {
  explicit World(std::string_view lines, SurfaceTurn turn = {})
      : grid((FillCellView(lines, view), view)),
        scene(grid, BandsOf(grid.Lowest(), grid.Highest()), turn, kRoom) {}
  ChartView view;
  CellGrid grid;
  SurfaceScene scene;
};

TEST(SurfaceScene, TheBoxStaysInItsRoomFromEverySide) {
  const PictureBox room{-1e-6, -1e-6, kRoom.right + 1e-6, kRoom.bottom + 1e-6};
  for (int turn = 0; turn < 24 * 3 * 8; ++turn) {
    const World world("1 2\n3 4",
                      {turn / 24 * 15.0, turn / 8 % 3 == 0 ? 5.0 : turn / 8 % 3 * 45.0});
    const PicturePoint at = world.scene.Project(
        {turn % 2 == 0 ? -1.0 : 1.0, turn / 2 % 2 == 0 ? -1.0 : 1.0, turn / 4 % 2 * 1.0});
    EXPECT_TRUE(room.Contains(at)) << turn << ": " << at.x << " " << at.y;
  }
}

TEST(SurfaceScene, AtFirstTheSmallestParametersAreNearest) {
  const World world("1 2\n3 4");
  EXPECT_EQ(world.scene.NearestCorner().x, -1.0);
  EXPECT_EQ(world.scene.NearestCorner().y, -1.0);
  const PicturePoint near = world.scene.Project({-1, -1, 0});
  EXPECT_GT(near.y, world.scene.Project({1, 1, 0}).y) << "what is near stands low";
  EXPECT_LT(world.scene.Project({-1, -1, 1}).y, near.y) << "what is high stands high";
  EXPECT_GT(world.scene.Project({1, -1, 0}).x, near.x) << "X grows to the right";
}

TEST(SurfaceScene, FacesComeFromBehindAndEmptyCornersHaveNone) {
  for (const double azimuth : {20.0, 110.0, 225.0, 300.0}) {
    const World world("1 1 1 1\n1 1 1 1\n1 1 1 -", {azimuth, 30.0});
    const FillFacets drawn = world.scene.Facets(1, false);
    EXPECT_EQ(drawn.facets.size(), 5U);
    EXPECT_GT(drawn.facets.back().corners[0].y, drawn.facets.front().corners[0].y);
  }
}

TEST(SurfaceScene, StridesKeepTheLastRowAndColumn) {
  const World world("1 1 1 1\n1 1 1 1\n1 1 1 1\n1 1 1 1");
  const FillFacets drawn = world.scene.Facets(2, false);
  EXPECT_EQ(drawn.facets.size(), 4U);
  const PicturePoint far = world.scene.Project(world.scene.PointAt(1, 4, 1));
  const auto touches = [&](const PictureFacet& facet) {
    return std::any_of(facet.corners.begin(), facet.corners.end(), [&](const PicturePoint& p) {
      return std::abs(p.x - far.x) < 1e-6 && std::abs(p.y - far.y) < 1e-6;
    });
  };
  EXPECT_TRUE(std::any_of(drawn.facets.begin(), drawn.facets.end(), touches));
}

TEST(SurfaceScene, TheLeftSideOfARidgeIsLit) {
  const World world("0 5 0\n0 5 0", {270.0, 30.0});
  const FillFacets drawn = world.scene.Facets(1, false);
  ASSERT_EQ(drawn.facets.size(), 2U);
  const bool first_is_left = drawn.facets[0].corners[0].x < drawn.facets[1].corners[0].x;
  const PictureFacet& left = drawn.facets[first_is_left ? 0 : 1];
  const PictureFacet& right = drawn.facets[first_is_left ? 1 : 0];
  EXPECT_GT(left.color.green, right.color.green);
}

TEST(SurfaceTurn, GoesRoundAndStaysAboveTheBase) {
  EXPECT_EQ(TurnedBy({350.0, 30.0}, 20.0, 0.0), (SurfaceTurn{10.0, 30.0}));
  EXPECT_EQ(TurnedBy({10.0, 30.0}, -20.0, 500.0), (SurfaceTurn{350.0, 90.0}));
  EXPECT_EQ(TurnedBy({10.0, 30.0}, 0.0, -500.0), (SurfaceTurn{10.0, 5.0}));
}

TEST(FacetRaster, LaterFacetsHideEarlierOnesAndEdgesAreSmooth) {
  FillFacets facets;
  facets.facets = {{{{{0, 0}, {10, 0}, {10, 10}, {0, 10}}}, {200, 0, 0, 255}},
                   {{{{4, 0}, {20, 0}, {20, 10}, {4, 10}}}, {0, 0, 200, 255}}};
  const PixelBlock block = RasterOf(facets, {0, 0, 12.5, 10}, 1.0);
  const auto pixel = [&](int x, int y) {
    return block.pixels[static_cast<std::size_t>((y - block.top) * block.width + x - block.left)];
  };
  EXPECT_EQ(pixel(3, 5), 0xFFC80000U);
  EXPECT_EQ(pixel(4, 5), 0xFF0000C8U);
  facets.facets = {{{{{0, 0}, {5.5, 0}, {5.5, 5}, {0, 5}}}, {200, 100, 0, 255}}};
  const PixelBlock half = RasterOf(facets, {0, 0, 100, 100}, 1.0);
  EXPECT_EQ(half.pixels[5], 0x7F643200U) << "half covered, colours multiplied by alpha";
  EXPECT_EQ(RasterOf(facets, {50, 50, 60, 60}, 1.0).pixels.size(), 0U);
}

}  // namespace
}  // namespace vistaplot::test
