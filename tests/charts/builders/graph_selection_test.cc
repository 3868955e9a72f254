#include "charts/builders/graph_selection.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace vistaplot {
namespace {

constexpr const char* kSelectAFund = "Please select a fund on the Graph Data tab";
constexpr const char* kSelectTwo = "Two funds must be selected to graph correlation";

CellRange Columns(int first, int last) {
  return {.SelStartRow = 3, .SelStartCol = first, .SelEndRow = 3, .SelEndCol = last};
}

TEST(GraphSelection, ReadsTheColumnsOfEveryRange) {
  struct Case {
    std::vector<CellRange> ranges;
    SelectionUse use;
    std::vector<std::int16_t> columns;
    std::string message;
  };
  using enum SelectionUse;
  const std::vector<Case> cases = {
      {{Columns(1, 3)}, kFunds, {2, 3}, ""},  // the dates are no fund
      {{Columns(9, 20)}, kFunds, {9, 10}, ""},
      {{Columns(4, 5), Columns(2, 4)}, kFunds, {4, 5, 2, 3, 4}, ""},
      {{Columns(1, 1)}, kFunds, {}, kSelectAFund},
      {{Columns(11, 12)}, kFunds, {}, kSelectAFund},
      {{}, kCorrelation, {}, kSelectAFund},
      {{Columns(1, 4)}, kCorrelation, {2, 3}, ""},
      {{Columns(7, 7), Columns(3, 5)}, kCorrelation, {7, 3}, ""},
      {{Columns(5, 5)}, kCorrelation, {5}, kSelectTwo},
  };
  for (std::size_t i = 0; i < cases.size(); ++i) {
    SCOPED_TRACE(i);
    Sheet prices;
    prices.MaxCol = 10;
    prices.selection = cases[i].ranges;
    GraphSelection selection;
    selection.SelectedColumns = {8};
    selection.SelectedCount = 1;
    selection.CurrentFund = 6;
    EXPECT_EQ(ReadGraphSelection(prices, cases[i].use, selection), cases[i].message);
    EXPECT_EQ(selection.SelectedColumns, cases[i].columns);
    EXPECT_EQ(selection.SelectedCount, static_cast<int>(cases[i].columns.size()));
    EXPECT_EQ(selection.CurrentFund, cases[i].message.empty() ? 1 : 6);
  }
}

TEST(GraphSelection, IsReadAgainWhenAskedForOrMissing) {
  GraphSelection selection;
  EXPECT_TRUE(NeedsSelection(selection, false));
  selection.SelectedCount = 2;
  EXPECT_TRUE(NeedsSelection(selection, false));
  selection.CurrentFund = 1;
  EXPECT_FALSE(NeedsSelection(selection, false));
  EXPECT_TRUE(NeedsSelection(selection, true));
}

TEST(GraphSelection, StepsAroundTheEnds) {
  GraphSelection selection;
  selection.SelectedCount = 3;
  const std::vector<std::array<std::int16_t, 3>> steps = {
      {1, 1, 2}, {3, 1, 1}, {3, -1, 2}, {1, -1, 3}, {9, -1, 1}};
  for (const auto& [from, step, to] : steps) {
    selection.CurrentFund = from;
    EXPECT_EQ(SteppedFund(selection, step), to) << from << " " << step;
  }
}

}  // namespace
}  // namespace vistaplot
