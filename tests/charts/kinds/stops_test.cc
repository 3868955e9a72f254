#include <gtest/gtest.h>

#include "charts/kinds/cross_hair.h"

namespace vistaplot {
namespace {

// Columns of boxes: X from 10 to 12 in column 1, O from 11 down to 8 in column 2, X at 9 in
// column 4.
StopList Boxes() {
  return StopList({{.position = 1.0, .row = 1, .value = 10.0},
                   {.position = 1.0, .row = 2, .value = 11.0},
                   {.position = 1.0, .row = 3, .value = 12.0},
                   {.position = 4.0, .row = 4, .value = 9.0},
                   {.position = 2.0, .row = 5, .value = 11.0},
                   {.position = 2.0, .row = 6, .value = 9.5},
                   {.position = 2.0, .row = 7, .value = 8.0}},
                  /*stacked=*/true);
}

int RowBeside(const StopList& stops, int row, int steps) {
  return stops.At(stops.Beside(stops.Find(row), steps)).row;
}

int RowAbove(const StopList& stops, int row, int steps) {
  return stops.At(stops.Above(stops.Find(row), steps)).row;
}

TEST(Stops, KeysGoFromColumnToColumnAndWithinOne) {
  const StopList stops = Boxes();
  EXPECT_EQ(RowBeside(stops, 3, 1), 5) << "the box of the next column at the nearest level";
  EXPECT_EQ(RowBeside(stops, 1, 1), 6);
  EXPECT_EQ(RowBeside(stops, 7, 1), 4) << "over a column without boxes";
  EXPECT_EQ(RowBeside(stops, 4, -2), 1);
  EXPECT_EQ(RowBeside(stops, 4, 1), 4) << "the last column";
  EXPECT_EQ(RowBeside(stops, 2, -9), 2);
  EXPECT_EQ(RowAbove(stops, 6, 1), 5);
  EXPECT_EQ(RowAbove(stops, 5, 1), 5) << "the top of its column";
  EXPECT_EQ(RowAbove(stops, 3, -5), 1);
}

TEST(Stops, ThePointerFindsTheNearestColumnThenTheNearestLevel) {
  const StopList stops = Boxes();
  EXPECT_EQ(stops.At(stops.Nearest(2.3, 8.6)).row, 7);
  EXPECT_EQ(stops.At(stops.Nearest(2.3, 50.0)).row, 5);
  EXPECT_EQ(stops.At(stops.Nearest(3.4, 50.0)).row, 4);
  EXPECT_EQ(stops.At(stops.Nearest(-7.0, 10.4)).row, 1);
  EXPECT_EQ(StopList().Nearest(1.0, 0.0), -1);
}

}  // namespace
}  // namespace vistaplot
