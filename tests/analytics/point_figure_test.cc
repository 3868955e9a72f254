#include "analytics/point_figure.h"

#include <gtest/gtest.h>

#include <vector>

namespace vistaplot {
namespace {

struct Boxes {
  std::vector<int> columns;
  std::vector<float> levels;
  std::vector<int> days;
};

Boxes Split(const std::vector<FigureBox>& boxes) {
  Boxes split;
  for (const FigureBox& box : boxes) {
    split.columns.push_back(box.column);
    split.levels.push_back(box.level);
    split.days.push_back(box.day);
  }
  return split;
}

void ExpectLevels(const std::vector<float>& levels, const std::vector<float>& expected) {
  ASSERT_EQ(levels.size(), expected.size());
  for (std::size_t i = 0; i < levels.size(); ++i) EXPECT_FLOAT_EQ(levels[i], expected[i]) << i;
}

TEST(BoxFor, TakesTheRangeOfTheLevel) {
  const PointFigureSettings settings;
  EXPECT_EQ(BoxFor(100.0F, settings), 1.0F);
  EXPECT_EQ(BoxFor(99.9F, settings), 0.4F);
  EXPECT_EQ(BoxFor(40.0F, settings), 0.4F);
  EXPECT_EQ(BoxFor(39.9999F, settings), 0.4F);  // within 1e-5 of the limit
  EXPECT_EQ(BoxFor(39.99F, settings), 0.2F);
  EXPECT_EQ(BoxFor(2.5F, settings), 0.1F);
  EXPECT_EQ(BoxFor(2.4F, settings), 0.05F);
}

// The box of the reference level serves all steps, across a limit too.
TEST(BoxLadders, LeadOneBoxOnAndRBack) {
  const PointFigureSettings settings;
  BoxLadders ladders = ComputeBoxLadders(39.8F, Direction::kNone, settings);
  ExpectLevels(ladders.up, {39.8F, 40.0F, 40.2F, 40.4F});
  ExpectLevels(ladders.down, {39.8F, 39.6F, 39.4F, 39.2F});
  ladders = ComputeBoxLadders(41.0F, Direction::kRising, settings);
  ExpectLevels(ladders.up, {41.0F, 41.4F, 41.4F, 41.4F});
  ExpectLevels(ladders.down, {41.0F, 40.6F, 40.2F, 39.8F});
  ladders = ComputeBoxLadders(41.0F, Direction::kFalling, settings);
  ExpectLevels(ladders.up, {41.0F, 41.4F, 41.8F, 42.2F});
  ExpectLevels(ladders.down, {41.0F, 40.6F, 40.6F, 40.6F});
  ladders = ComputeBoxLadders(40.0F, Direction::kFalling, settings);
  ExpectLevels(ladders.down, {40.0F, 39.6F, 39.6F, 39.6F});
  ExpectLevels(ladders.up, {40.0F, 40.4F, 40.8F, 41.2F});
}

TEST(PointFigure, StartsAtThreeBoxesFromTheRoundedPrice) {
  const PointFigureSettings settings;
  // 23.59 and 22.41 are not enough for 23.60 or 22.40.
  EXPECT_TRUE(ComputePointFigure(std::vector<float>{23.47F, 23.59F, 22.41F}, settings).x.empty());
  const PointFigure rise = ComputePointFigure(std::vector<float>{23.47F, 23.6F}, settings);
  EXPECT_EQ(rise.columns, 1);
  ExpectLevels(Split(rise.x).levels, {23.2F, 23.4F, 23.6F});
  const PointFigure fall = ComputePointFigure(std::vector<float>{23.47F, 22.4F}, settings);
  ExpectLevels(Split(fall.o).levels, {22.8F, 22.6F, 22.4F});
}

// One box a day however far the price has gone; three against the column make the next one.
TEST(PointFigure, GrowsByOneBoxADayAndReversesByThree) {
  const std::vector<float> prices = {40.0F, 41.2F, 43.0F, 43.0F, 41.6F, 40.8F, 40.8F, 42.3F};
  const PointFigure figure = ComputePointFigure(prices, {});
  const Boxes x = Split(figure.x);
  ExpectLevels(x.levels, {40.4F, 40.8F, 41.2F, 41.6F, 42.0F, 41.2F, 41.6F, 42.0F});
  EXPECT_EQ(x.columns, (std::vector<int>{1, 1, 1, 1, 1, 3, 3, 3}));
  EXPECT_EQ(x.days, (std::vector<int>{1, 1, 1, 2, 3, 7, 7, 7}));
  const Boxes o = Split(figure.o);
  ExpectLevels(o.levels, {41.6F, 41.2F, 40.8F});
  EXPECT_EQ(o.columns, (std::vector<int>{2, 2, 2}));
  EXPECT_EQ(o.days, (std::vector<int>{5, 5, 5}));
  EXPECT_EQ(figure.columns, 3);
  EXPECT_FLOAT_EQ(figure.level, 42.0F);
}

TEST(PointFigure, ReversesAtAnyMoveWithOneBox) {
  PointFigureSettings settings;
  settings.PfReversal = 0;
  const PointFigure figure =
      ComputePointFigure(std::vector<float>{50.0F, 50.4F, 50.0F, 50.4F}, settings);
  EXPECT_EQ(figure.columns, 3);
  EXPECT_EQ(figure.x.size(), 2U);
  EXPECT_EQ(figure.o.size(), 1U);
}

// A level of 0 or above is one; the halves of the start go to the even number.
TEST(PointFigure, PassesOverDaysWithoutAPrice) {
  const PointFigure figure =
      ComputePointFigure(std::vector<float>{-1.0F, -0.5F, 50.5F, -1.0F, 51.2F, -1.0F, 51.6F}, {});
  ExpectLevels(Split(figure.x).levels, {50.4F, 50.8F, 51.2F, 51.6F});
  EXPECT_EQ(Split(figure.x).days, (std::vector<int>{4, 4, 4, 6}));
  EXPECT_TRUE(ComputePointFigure(std::vector<float>{-1.0F, -1.0F}, {}).x.empty());
  EXPECT_EQ(ComputePointFigure(std::vector<float>{0.0F, 0.15F}, {}).x.size(), 3U);
}

TEST(PointFigure, StopsAtColumnFortyOne) {
  std::vector<float> prices = {50.0F};
  for (int turn = 0; turn < 60; ++turn) prices.push_back(turn % 2 == 0 ? 60.0F : 40.0F);
  PointFigureSettings settings;
  settings.PfReversal = 0;
  EXPECT_EQ(ComputePointFigure(prices, settings).columns, 41);
  EXPECT_EQ(ComputePointFigure(std::span(prices).first(41), settings).columns, 40);
}

}  // namespace
}  // namespace vistaplot
