#include <gtest/gtest.h>

#include "table/sorting.h"

namespace vistaplot {
namespace {

using Texts = std::vector<std::string>;

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
  const CellRange whole{.SelStartRow = 3, .SelStartCol = 1, .SelEndRow = 5, .SelEndCol = 3};
  Sheet sheet = MakeSheet();
  SelectForSort(sheet);
  EXPECT_EQ(SortBlock(sheet), whole) << "nothing selected";
  sheet = MakeSheet();
  sheet.Select({.SelStartRow = 5, .SelStartCol = 3, .SelEndRow = 5, .SelEndCol = 3});
  SelectForSort(sheet);
  EXPECT_EQ(sheet.selection, std::vector<CellRange>{whole});
  sheet.Select({.SelStartRow = 5, .SelStartCol = 3, .SelEndRow = 9, .SelEndCol = 9});
  SelectForSort(sheet);
  EXPECT_EQ(sheet.selection.front().SelEndRow, 9) << "the selection's end is kept";
  EXPECT_EQ(SortBlock(sheet), whole);
}

TEST(SheetSort, AnyOtherSelectionIsCutToTheDataRows) {
  struct Case {
    CellRange selected;
    CellRange block;
  };
  const Case cases[] = {{{2, 2, 4, 3}, {3, 2, 4, 3}},
                        {{1, 1, 99, 99}, {3, 1, 5, 3}},
                        {{5, 2, 5, 3}, {5, 2, 5, 3}},
                        {{4, 3, 5, 3}, {4, 3, 5, 3}}};
  for (const Case& c : cases) {
    Sheet sheet = MakeSheet();
    sheet.Select(c.selected);
    SelectForSort(sheet);
    EXPECT_EQ(sheet.selection.front(), c.selected);
    EXPECT_EQ(SortBlock(sheet), c.block) << c.selected.SelStartRow << " " << c.selected.SelStartCol;
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
  sheet.Select({.SelStartRow = 3, .SelStartCol = 2, .SelEndRow = 4, .SelEndCol = 9});
  EXPECT_EQ(SortKeyNames(sheet, false), (Texts{"AVG ANN %", "MDD "}));
  sheet.FixedRows = 1;
  EXPECT_EQ(SortKeyNames(sheet, false), (Texts{"AVG", "MDD"}));
}

}  // namespace
}  // namespace vistaplot
