#include "ui/grid/grid_selection.h"

#include <gtest/gtest.h>

#include "table/sheet_text.h"
#include "ui/grid/grid_world.h"

namespace vistaplot::test {
namespace {

GridSelection Of(int rows, int cols) {
  GridSelection selection;
  selection.SetExtent(rows, cols);
  return selection;
}

TEST(GridSelection, RangesKeepTheOrderInWhichTheyWereMade) {
  GridSelection selection = Of(9, 6);
  selection.Start(GridUnit::kColumn, {1, 5});
  selection.Toggle(GridUnit::kColumn, {1, 2});
  selection.ExtendTo({4, 3});
  selection.Toggle(GridUnit::kCell, {7, 6});
  EXPECT_EQ(Shown(selection.Ranges()), "1,5-9,5 1,2-9,3 7,6-7,6");
}

TEST(GridSelection, TakingOutLeavesTheRestAroundIt) {
  // From rows 2 to 6 of columns 2 to 5.
  const std::tuple<const char*, GridUnit, GridCell, const char*> cases[] = {
      {"a cell inside", GridUnit::kCell, {4, 3}, "2,2-3,5 4,2-4,2 4,4-4,5 5,2-6,5"},
      {"a corner", GridUnit::kCell, {2, 2}, "2,3-2,5 3,2-6,5"},
      {"a cell beside it is added", GridUnit::kCell, {7, 2}, "2,2-6,5 7,2-7,2"},
      {"a column that reaches further is added", GridUnit::kColumn, {1, 3}, "2,2-6,5 1,3-9,3"}};
  for (const auto& [title, unit, cell, rest] : cases) {
    GridSelection selection = Of(9, 6);
    selection.Start(GridUnit::kCell, {2, 2});
    selection.ExtendTo({6, 5});
    selection.Toggle(unit, cell);
    EXPECT_EQ(Shown(selection.Ranges()), rest) << title;
  }
}

TEST(GridSelection, ExtendingAfterTakingOutStartsAnotherRange) {
  GridSelection selection = Of(9, 6);
  selection.Start(GridUnit::kColumn, {1, 2});
  selection.Toggle(GridUnit::kColumn, {1, 4});
  selection.Toggle(GridUnit::kColumn, {1, 4});
  selection.ExtendTo({1, 5});
  EXPECT_EQ(Shown(selection.Ranges()), "1,2-9,2 1,4-9,5");
}

TEST(GridSelection, ExtendsASelectionThatWasMadeElsewhereInItsOwnUnits) {
  GridSelection selection = Of(9, 6);
  selection.Adopt({{1, 2, 9, 3}});
  selection.ExtendTo({5, 4});
  EXPECT_EQ(Shown(selection.Ranges()), "1,2-9,4") << "whole columns";
  selection.Adopt({{1, 1, 1, 1}, {3, 2, 4, 2}});
  selection.ExtendTo({6, 2});
  EXPECT_EQ(Shown(selection.Ranges()), "1,1-1,1 3,2-6,2") << "cells";
}

TEST(GridSelection, KeepsTheCurrentCellInsideAShorterSheet) {
  GridSelection selection = Of(100, 50);
  selection.Start(GridUnit::kCell, {90, 40});
  selection.SetExtent(10, 5);
  EXPECT_EQ(selection.Current(), (GridCell{10, 5}));
}

TEST(GridSelection, TextOfRangesStandsAsTheyStandOnTheSheet) {
  const Sheet sheet = SheetOf({"a,b,c,d", "1,2,3,4  ", "5,6,7,8"});
  const std::pair<std::vector<CellRange>, const char*> cases[] = {
      {{{1, 2, 2, 3}}, "b\tc\n2\t3\n"},
      // Columns side by side in the sheet's order; blanks at the end of a cell are dropped.
      {{{1, 4, 3, 4}, {1, 1, 3, 1}}, "a\td\n1\t4\n5\t8\n"},
      // Ranges of the same columns one below the other.
      {{{1, 1, 1, 2}, {3, 1, 3, 2}}, "a\tb\n5\t6\n"},
      // A cell that only shares its row and column with others stays empty.
      {{{1, 1, 1, 1}, {2, 3, 2, 3}}, "a\t\n\t3\n"},
      // Overlaps count once, nothing is taken from beyond the extent.
      {{{3, 3, 99, 99}, {3, 4, 3, 4}}, "7\t8\n"},
      {{{9, 9, 12, 12}}, ""},
      {{}, ""}};
  for (const auto& [ranges, text] : cases) EXPECT_EQ(TabbedText(sheet, ranges), text);
}

}  // namespace
}  // namespace vistaplot::test
