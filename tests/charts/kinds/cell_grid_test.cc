#include "charts/kinds/cell_grid.h"

#include <gtest/gtest.h>

#include "support/cell_views.h"

namespace vistaplot {
namespace {

CellGrid Grid(std::string_view lines) {
  ChartView view;
  FillCellView(lines, view);
  return CellGrid(view);
}

constexpr auto kReadingOrder = [](GridCell a, GridCell b) {
  return a.row < b.row || (a.row == b.row && a.column < b.column);
};

TEST(CellGrid, RanksShareTheBetterPlaceAndPassOverEmptyCells) {
  const CellGrid grid = Grid("5 9 -\n9 1 5");
  EXPECT_EQ(grid.FilledCount(), 5);
  EXPECT_EQ(grid.RankOf(9, false), 1);
  EXPECT_EQ(grid.RankOf(5, false), 3);
  EXPECT_EQ(grid.RankOf(1, false), 5);
  EXPECT_EQ(grid.RankOf(1, true), 1) << "of draw-downs the lowest is best";
  EXPECT_EQ(grid.RankOf(9, true), 4);
}

TEST(CellGrid, TheFirstOfEqualBestCellsIsMarked) {
  const CellGrid grid = Grid("5 9 -\n9 1 5");
  EXPECT_EQ(grid.Best(false, kReadingOrder), (GridCell{1, 2}));
  EXPECT_EQ(grid.Best(true, kReadingOrder), (GridCell{2, 2}));
  const auto from_below = [](GridCell a, GridCell b) { return kReadingOrder(b, a); };
  EXPECT_EQ(grid.Best(false, from_below), (GridCell{2, 1}));
  EXPECT_EQ(Grid("- -").Best(false, kReadingOrder), std::nullopt);
}

TEST(CellGrid, APlateauIsTheMeanOfTheNeighboursWithoutTheCellItself) {
  const CellGrid grid = Grid("1 2 3\n4 90 6\n7 8 -");
  EXPECT_DOUBLE_EQ(grid.PlateauOf({2, 2}).value(), (1 + 2 + 3 + 4 + 6 + 7 + 8) / 7.0);
  EXPECT_DOUBLE_EQ(grid.PlateauOf({1, 1}).value(), (2 + 4 + 90) / 3.0);
  EXPECT_EQ(Grid("1 2\n3 -").PlateauOf({1, 1}), std::nullopt) << "two neighbours are too few";
}

TEST(CellGrid, ALonePeakIsNotTheBestPlateau) {
  const CellGrid grid = Grid("1 1 1 1 1 5 5 5\n1 1 1 1 1 5 6 5\n1 1 20 1 1 5 5 5\n1 1 1 1 1 5 5 5");
  EXPECT_EQ(grid.Best(false, kReadingOrder), (GridCell{3, 3}));
  EXPECT_EQ(grid.BestPlateau(false), (GridCell{1, 8})) << "(5 + 6 + 5) / 3";
  EXPECT_EQ(grid.BestPlateau(true), (GridCell{1, 1})) << "the first whose neighbours are all 1";
}

}  // namespace
}  // namespace vistaplot
