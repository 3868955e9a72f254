#include "table/sheet.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "base/number_text.h"

namespace vistaplot {
namespace {

using Texts = std::vector<std::string>;

Texts ColumnTexts(const Sheet& sheet, int col, int rows) {
  Texts texts;
  for (int row = 1; row <= rows; ++row) texts.push_back(sheet.CellText(row, col));
  return texts;
}

// Three records of six bytes, two fields each, and the beginning of a fourth.
void ImportRecords(Sheet& sheet) {
  static constexpr std::array<FixedField, 2> kFields = {{{"name", 0, 2}, {"value", 2, 4}}};
  sheet.SetRecords(2,
                   {.bytes = "AA 1.5\xFC\xFC   7CC-2.0DD",
                    .starts = {0, 6, 12},
                    .fields = kFields,
                    .length = 6});
}

TEST(Sheet, CellsOutsideAreEmptyAndZero) {
  Sheet sheet;
  sheet.SetPriceColumn(2, "AAA", {1.5F});
  for (const auto& [row, col] :
       std::vector<std::pair<int, int>>{{0, 2}, {3, 2}, {-1, 2}, {1, 1}, {1, 0}, {1, 3}, {1, -5}}) {
    EXPECT_EQ(sheet.CellText(row, col), "") << row << " " << col;
    EXPECT_EQ(sheet.CellNumber(row, col), 0.0) << row << " " << col;
  }
  EXPECT_EQ(sheet.ColumnSingles(2, 0, 5), (std::vector<float>{0, 0, 1.5F, 0, 0}));
}

// Readers of a price must get what reading its text gives, however they read it.
TEST(Sheet, PricesReadAsTheirTexts) {
  const std::vector<float> values = {-1.0F, 12.34F, 1.0F / 3.0F, 262144.25F, 1e-9F, 12345678.0F};
  Sheet sheet;
  sheet.SetPriceColumn(3, "AAA", values);
  EXPECT_EQ(ColumnTexts(sheet, 3, 7),
            (Texts{"AAA", "-1", "12.34", "0.3333333", "262144.2", "0.000000001", "12345680"}));
  const std::vector<double> numbers = sheet.ColumnNumbers(3, 2, 6);
  const std::vector<float> singles = sheet.ColumnSingles(3, 2, 6);
  for (std::size_t i = 0; i < values.size(); ++i) {
    const double read = LeadingNumber(NumberText(values[i]));
    EXPECT_EQ(numbers[i], read);
    EXPECT_EQ(singles[i], static_cast<float>(read));
    EXPECT_EQ(sheet.PriceBlock(3)[i], singles[i]);
    EXPECT_EQ(sheet.CellText(static_cast<int>(i) + 2, 3), NumberText(values[i]));
  }
}

TEST(Sheet, APriceColumnTakesTexts) {
  Sheet sheet;
  sheet.SetPriceColumn(1, "AAA", {1.5F, 2.5F});
  sheet.SetCellText(1, 1, "BBB");
  sheet.SetCellText(3, 1, "7.25");
  EXPECT_EQ(sheet.PriceBlock(1).size(), 2U);  // still prices
  EXPECT_EQ(ColumnTexts(sheet, 1, 3), (Texts{"BBB", "1.5", "7.25"}));
  sheet.SetCellText(2, 1, "1.50");
  sheet.SetCellText(5, 1, "end");
  EXPECT_TRUE(sheet.PriceBlock(1).empty());
  EXPECT_EQ(ColumnTexts(sheet, 1, 5), (Texts{"BBB", "1.50", "7.25", "", "end"}));
  sheet.SetPriceColumn(1, "CCC", {std::nanf(""), 1.0F});
  EXPECT_EQ(ColumnTexts(sheet, 1, 5), (Texts{"CCC", "NaN", "1", "", ""}));
  EXPECT_EQ(sheet.CellNumber(2, 1), 0.0);
}

TEST(Sheet, RecordsReadAsTheirFields) {
  Sheet sheet;
  sheet.SetCellText(1, 2, "Value");
  sheet.SetCellText(3, 2, "old");
  ImportRecords(sheet);
  EXPECT_EQ(ColumnTexts(sheet, 1, 5), (Texts{"", "AA", "\xC3\xBC\xC3\xBC", "CC", ""}));
  EXPECT_EQ(ColumnTexts(sheet, 2, 5), (Texts{"Value", " 1.5", "   7", "-2.0", ""}));
  EXPECT_EQ(sheet.ColumnNumbers(2, 1, 5), (std::vector<double>{0, 1.5, 7, -2, 0}));
  sheet.SetCellText(3, 2, "x");
  EXPECT_EQ(ColumnTexts(sheet, 2, 5), (Texts{"Value", " 1.5", "x", "-2.0", ""}));
  EXPECT_EQ(sheet.CellText(4, 1), "CC");
}

TEST(Sheet, ClearAllKeepsEverythingButCells) {
  Sheet sheet;
  sheet.SheetName = "Funds";
  sheet.MaxRow = 4;
  sheet.SetColumnWidth(2, 2000);
  ImportRecords(sheet);
  sheet.ClearAll();
  EXPECT_EQ(ColumnTexts(sheet, 1, 4), (Texts{"", "", "", ""}));
  EXPECT_EQ(sheet.SheetName, "Funds");
  EXPECT_EQ(sheet.MaxRow, 4);
  EXPECT_EQ(sheet.ColumnWidth(2), 2000);
}

TEST(Sheet, FitsWidthsToTheLongestText) {
  Sheet sheet;
  sheet.MaxCol = 3;
  sheet.SetTextColumn(1, {"ab", "\xC3\xBC\xC3\xBC\xC3\xBC"});
  sheet.SetPriceColumn(2, "A", {1.5F, 0.25F, 2.0F});
  sheet.SetPriceColumn(3, "A", {-1234.567F});
  sheet.FitColumnWidths();
  const int step = (sheet.ColumnWidth(3) - sheet.ColumnWidth(2)) / 5;  // 9 and 4 characters
  EXPECT_GT(step, 0);
  EXPECT_EQ(sheet.ColumnWidth(2) - sheet.ColumnWidth(1), step);
}

TEST(Sheet, SortMovesWholeRowsWithinTheBlock) {
  Sheet sheet;
  sheet.SetTextColumn(1, {"Name", "c", "a", "b", "tail"});
  sheet.SetPriceColumn(2, "Price", {3.0F, 1.0F, 2.0F});
  sheet.SetTextColumn(3, {"", "x", "y"});
  sheet.SetTextColumn(4, {"1", "2", "3", "4", "5"});
  sheet.Sort({.SelStartRow = 2, .SelStartCol = 1, .SelEndRow = 4, .SelEndCol = 3}, {2, 0, 0});
  EXPECT_EQ(ColumnTexts(sheet, 1, 5), (Texts{"Name", "a", "b", "c", "tail"}));
  EXPECT_EQ(ColumnTexts(sheet, 2, 4), (Texts{"Price", "1", "2", "3"}));
  EXPECT_EQ(sheet.PriceBlock(2).size(), 3U);  // not turned into text
  EXPECT_EQ(ColumnTexts(sheet, 3, 4), (Texts{"", "y", "", "x"}));
  EXPECT_EQ(ColumnTexts(sheet, 4, 5), (Texts{"1", "2", "3", "4", "5"}));
}

TEST(Sheet, SortIgnoresKeysOutsideAndEmptyBlocks) {
  Sheet sheet;
  sheet.SetTextColumn(1, {"h", "b", "a"});
  sheet.SetTextColumn(2, {"h", "1", "2"});
  sheet.Sort({.SelStartRow = 2, .SelStartCol = 2, .SelEndRow = 3, .SelEndCol = 9}, {1, -9, 0});
  sheet.Sort({.SelStartRow = 3, .SelStartCol = 1, .SelEndRow = 2, .SelEndCol = 2}, {1, 0, 0});
  sheet.Sort({.SelStartRow = 5, .SelStartCol = 5, .SelEndRow = 9, .SelEndCol = 5}, {5, 0, 0});
  EXPECT_EQ(ColumnTexts(sheet, 1, 3), (Texts{"h", "b", "a"}));
  EXPECT_EQ(ColumnTexts(sheet, 2, 3), (Texts{"h", "1", "2"}));
  sheet.Sort({.SelStartRow = 2, .SelStartCol = 1, .SelEndRow = 99, .SelEndCol = 2}, {9, 1, 0});
  EXPECT_EQ(ColumnTexts(sheet, 2, 3), (Texts{"h", "2", "1"}));
}

TEST(Sheet, SortsRecordsWholeAndInPart) {
  Sheet sheet;
  ImportRecords(sheet);
  sheet.SetTextColumn(3, {"", "one", "two", "three"});
  sheet.Sort({.SelStartRow = 2, .SelStartCol = 1, .SelEndRow = 4, .SelEndCol = 3}, {-2, 0, 0});
  EXPECT_EQ(ColumnTexts(sheet, 2, 4), (Texts{"", "   7", " 1.5", "-2.0"}));
  EXPECT_EQ(ColumnTexts(sheet, 3, 4), (Texts{"", "two", "one", "three"}));
  // A block of one of the records' columns leaves the other where it is.
  sheet.Sort({.SelStartRow = 2, .SelStartCol = 1, .SelEndRow = 4, .SelEndCol = 1}, {1, 0, 0});
  EXPECT_EQ(ColumnTexts(sheet, 1, 4), (Texts{"", "AA", "CC", "\xC3\xBC\xC3\xBC"}));
  EXPECT_EQ(ColumnTexts(sheet, 2, 4), (Texts{"", "   7", " 1.5", "-2.0"}));
}

}  // namespace
}  // namespace vistaplot
