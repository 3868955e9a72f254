#include "table/sorting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "base/text.h"

namespace vistaplot {
namespace {

using Texts = std::vector<std::string>;

SortColumn ColumnOf(const Texts& texts, bool is_descending) {
  return {.is_descending = is_descending,
          .key = [&texts](std::uint32_t row) { return KeyOfText(texts[row]); }};
}

Texts Sorted(const Texts& texts, bool is_descending) {
  const SortColumn column = ColumnOf(texts, is_descending);
  Texts sorted;
  for (const std::uint32_t row :
       SortedOrder(static_cast<std::uint32_t>(texts.size()), {&column, 1})) {
    sorted.push_back(texts[row]);
  }
  return sorted;
}

TEST(SortedOrder, PutsNumbersBeforeTextsAndEmptyCellsLast) {
  const Texts texts = {"b", "10", "", "A", "-0", " 9.5 ", "12 days", "0", "1e1", "  ", "a", "-3"};
  EXPECT_EQ(Sorted(texts, false),
            (Texts{"-3", "-0", "0", " 9.5 ", "10", "1e1", "12 days", "A", "a", "b", "", "  "}));
  EXPECT_EQ(Sorted(texts, true),
            (Texts{"b", "A", "a", "12 days", "10", "1e1", " 9.5 ", "-0", "0", "-3", "", "  "}));
}

TEST(SortedOrder, DatesStandBetweenNumbersAndTextsByDay) {
  Texts texts;
  for (const auto text :
       Split("12/31/99|1/2/2000|x|1999/12/30|99|02/30/99|01/01/29|1-1-90||01/01/30", '|')) {
    texts.emplace_back(text);
  }
  const Texts dates = {"01/01/30", "12/31/99", "1/2/2000", "01/01/29"};
  Texts ascending = {"99"};
  ascending.insert(ascending.end(), dates.begin(), dates.end());
  for (const char* text : {"02/30/99", "1-1-90", "1999/12/30", "x", ""}) ascending.push_back(text);
  EXPECT_EQ(Sorted(texts, false), ascending);
  Texts descending(ascending.rbegin() + 1, ascending.rend());
  descending.emplace_back("");
  EXPECT_EQ(Sorted(texts, true), descending);
}

TEST(SortedOrder, LaterKeysOrderRowsThatAreEqualInTheFirst) {
  const Texts first = {"1", "x", "1.0", "", "X", "", "1"};
  const Texts second = {"b", "2", "c", "5", "1", "6", "a"};
  const Texts third = {"0", "0", "0", "0", "0", "0", "0"};
  const std::vector<SortColumn> columns = {
      ColumnOf(first, false), ColumnOf(second, true), ColumnOf(third, true)};
  // 1 with c, b, a; x with 2, 1; empty with 6, 5.
  EXPECT_EQ(SortedOrder(7, columns), (RowOrder{2, 0, 6, 1, 4, 5, 3}));
}

// Many rows take another way than few; both must agree with sorting by comparison.
TEST(SortedOrder, ManyRowsAreStableInBothDirections) {
  constexpr std::uint32_t kRows = 3000;
  std::mt19937 random(3);
  std::vector<std::vector<double>> numbers(3, std::vector<double>(kRows));
  for (auto& column : numbers) {
    for (double& number : column) number = static_cast<double>(random() % 25) / 4.0 - 3.0;
  }
  const std::vector<bool> descending = {true, false, true};
  std::vector<SortColumn> columns;
  for (std::size_t i = 0; i < 3; ++i) {
    columns.push_back({.is_descending = descending[i], .key = [&numbers, i](std::uint32_t row) {
                         return CellKey{
                             .kind = CellKey::Kind::kNumber, .number = numbers[i][row], .text = {}};
                       }});
  }
  RowOrder expected(kRows);
  std::iota(expected.begin(), expected.end(), 0U);
  std::stable_sort(expected.begin(), expected.end(), [&](std::uint32_t a, std::uint32_t b) {
    for (std::size_t i = 0; i < 3; ++i) {
      const double x = numbers[i][a];
      const double y = numbers[i][b];
      if (x != y) return descending[i] ? x > y : x < y;
    }
    return false;
  });
  EXPECT_EQ(SortedOrder(kRows, columns), expected);
}

/// Two heading rows and data to row 5, three columns; nothing selected.
Sheet MakeSheet() {
  Sheet sheet;
  sheet.SetTextColumn(1, {"", " CASE ", "1", "2", "3"});
  sheet.SetTextColumn(2, {"  AVG ", "ANN % ", "7", "5", "6"});
  sheet.SetTextColumn(3, {"MDD", "", "c", "b", "a"});
  sheet.MaxRow = 5;
  sheet.MaxCol = 3;
  sheet.FixedRows = 2;
  return sheet;
}

TEST(SheetSort, ASelectionAtTheBottomRightCellBecomesTheWholeDataArea) {
  const CellRange whole{3, 1, 5, 3};
  Sheet sheet = MakeSheet();
  SelectForSort(sheet);
  EXPECT_EQ(SortBlock(sheet), whole) << "nothing selected";
  sheet = MakeSheet();
  sheet.Select({5, 3, 5, 3});
  SelectForSort(sheet);
  EXPECT_EQ(sheet.selection, std::vector<CellRange>{whole});
  sheet.Select({5, 3, 9, 9});
  SelectForSort(sheet);
  EXPECT_EQ(sheet.selection.front().SelEndRow, 9) << "the selection's end is kept";
  EXPECT_EQ(SortBlock(sheet), whole);
}

TEST(SheetSort, AnyOtherSelectionIsCutToTheDataRows) {
  const std::vector<std::pair<CellRange, CellRange>> cases = {{{2, 2, 4, 3}, {3, 2, 4, 3}},
                                                              {{1, 1, 99, 99}, {3, 1, 5, 3}},
                                                              {{5, 2, 5, 3}, {5, 2, 5, 3}},
                                                              {{4, 3, 5, 3}, {4, 3, 5, 3}}};
  for (const auto& [selected, block] : cases) {
    Sheet sheet = MakeSheet();
    sheet.Select(selected);
    SelectForSort(sheet);
    EXPECT_EQ(sheet.selection.front(), selected);
    EXPECT_EQ(SortBlock(sheet), block) << selected.SelStartRow << " " << selected.SelStartCol;
  }
  Sheet headings = MakeSheet();
  headings.MaxRow = 2;
  SelectForSort(headings);
  EXPECT_TRUE(IsEmpty(SortBlock(headings)));
}

TEST(SheetSort, KeysAreNamedByTheHeadingsOfTheSelectedColumns) {
  Sheet sheet = MakeSheet();
  SelectForSort(sheet);
  EXPECT_EQ(SortKeyNames(sheet, false), (Texts{" CASE", "AVG ANN %", "MDD "}));
  EXPECT_EQ(SortKeyNames(sheet, true), (Texts{"CASE", "ANN %", ""}));
  sheet.Select({3, 2, 4, 9});
  EXPECT_EQ(SortKeyNames(sheet, false), (Texts{"AVG ANN %", "MDD "}));
  sheet.FixedRows = 1;
  EXPECT_EQ(SortKeyNames(sheet, false), (Texts{"AVG", "MDD"}));
}

}  // namespace
}  // namespace vistaplot
