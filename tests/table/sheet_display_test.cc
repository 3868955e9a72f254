#include <gtest/gtest.h>

#include "table/sheet_text.h"

namespace vistaplot {
namespace {

// Two issues over six days: A has prices from day 3 on and none of its own on day 5, B from day 4.
Sheet Prices() {
  Sheet sheet;
  sheet.SetTextColumn(1, {"", "d1", "d2", "d3", "d4", "d5", "d6"});
  sheet.SetPriceColumn(2, "A", {-1.0F, -1.0F, 10.0F, 11.0F, 11.0F, 10.5F});
  sheet.SetPriceColumn(3, "B", {-1.0F, -1.0F, -1.0F, 5.0F, 5.25F, 5.25F});
  sheet.MaxRow = 7;
  sheet.MaxCol = 3;
  sheet.FixedRows = 1;
  sheet.FixedCols = 1;
  return sheet;
}

TEST(SheetDisplay, PricesOpenAtTheFirstOneAndOtherSheetsAtTheirFirstRow) {
  Sheet sheet = Prices();
  EXPECT_EQ(FirstRowToShow(sheet), 4);
  sheet.MaxCol = 1;
  EXPECT_EQ(FirstRowToShow(sheet), 2) << "no issue";
  sheet.MaxCol = 2;
  sheet.SetPriceColumn(2, "A", std::vector<float>(6, -1.0F));
  EXPECT_EQ(FirstRowToShow(sheet), 2) << "no price";
  EXPECT_EQ(FirstRowToShow(Sheet()), 1);
}

TEST(SheetDisplay, CellsThatTellNothingNewAreFaint) {
  const Sheet sheet = Prices();
  std::string faint;
  for (int col = 1; col <= 3; ++col) {
    for (int row = 1; row <= 8; ++row) faint += IsFaint(sheet, row, col) ? 'f' : '.';
    faint += ' ';
  }
  EXPECT_EQ(faint, "........ .ff..f.. .fff..f. ");
}

TEST(SheetDisplay, HeadingsTellWhatTheyMean) {
  Sheet sheet = Prices();
  EXPECT_EQ(HeadingTip(sheet, 2).substr(0, 18), "Daily prices of A.");
  EXPECT_EQ(HeadingTip(sheet, 1), "");
  sheet.heading_tips = {"The day", "Return"};
  EXPECT_EQ(HeadingTip(sheet, 2), "Return");
  EXPECT_EQ(HeadingTip(sheet, 0) + HeadingTip(sheet, 9), "");
  sheet.ClearAll();
  EXPECT_EQ(HeadingTip(sheet, 2), "");
}

TEST(SheetDisplay, NumbersStandOnTheirPoints) {
  EXPECT_EQ(PlacesFromPoint("12.50"), 3);
  EXPECT_EQ(PlacesFromPoint(" -1 "), 0);
  EXPECT_EQ(PlacesFromPoint(".5  "), 2);
}

TEST(SheetDisplay, ASortIsRememberedUntilTheSheetIsFilledAnew) {
  Sheet sheet = Prices();
  sheet.Sort({2, 1, 7, 3}, {9, -2, 0});
  EXPECT_EQ(sheet.SortedBy, -2);
  EXPECT_EQ(sheet.CellText(2, 2), "11");
  sheet.ClearAll();
  EXPECT_EQ(sheet.SortedBy, 0);
}

TEST(SheetCsv, SavedCellsLoseTheBlanksThatPadThem) {
  Sheet sheet;
  sheet.SetTextColumn(1, {" A  ", "x,  "});
  sheet.MaxRow = 2;
  sheet.MaxCol = 1;
  EXPECT_EQ(SheetCsv(sheet, CellEnds::kAsTheyStand), " A  \r\n\"x,  \"\r\n");
  EXPECT_EQ(SheetCsv(sheet, CellEnds::kTrimmed), " A\r\n\"x,\"\r\n");
}

}  // namespace
}  // namespace vistaplot
