#include "charts/kinds/iso_regions.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/cell_views.h"

namespace vistaplot {
namespace {

CellGrid Grid(std::string_view lines) {
  ChartView view;
  FillCellView(lines, view);
  return CellGrid(view);
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
}

TEST(IsoRegions, FilledSquaresThatTouchAtACornerAreBothCounted) {
  EXPECT_DOUBLE_EQ(AreaOf(TraceFilledSquares(Grid("1 1 -\n1 1 1\n- 1 1"))), 2.0);
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

}  // namespace
}  // namespace vistaplot
