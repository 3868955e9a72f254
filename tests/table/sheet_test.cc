#include "table/sheet.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "base/number_text.h"
#include "table/data_table.h"
#include "table/sheet_text.h"

namespace vistaplot {
namespace {

/// The texts of a column's first rows, with "|" between them.
std::string ColumnTexts(const Sheet& sheet, int col, int rows) {
  std::string texts = sheet.CellText(1, col);
  for (int row = 2; row <= rows; ++row) texts.append("|").append(sheet.CellText(row, col));
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
  EXPECT_EQ(ColumnTexts(sheet, 3, 7), "AAA|-1|12.34|0.3333333|262144.2|0.000000001|12345680");
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
  EXPECT_EQ(ColumnTexts(sheet, 1, 3), "BBB|1.5|7.25");
  sheet.SetCellText(2, 1, "1.50");
  sheet.SetCellText(5, 1, "end");
  EXPECT_TRUE(sheet.PriceBlock(1).empty());
  EXPECT_EQ(ColumnTexts(sheet, 1, 5), "BBB|1.50|7.25||end");
  sheet.SetPriceColumn(1, "CCC", {std::nanf(""), 1.0F});
  EXPECT_EQ(ColumnTexts(sheet, 1, 5), "CCC|NaN|1||");
  EXPECT_EQ(sheet.CellNumber(2, 1), 0.0);
}

TEST(Sheet, RecordsReadAsTheirFields) {
  Sheet sheet;
  sheet.SetCellText(1, 2, "Value");
  sheet.SetCellText(3, 2, "old");
  ImportRecords(sheet);
  EXPECT_EQ(ColumnTexts(sheet, 1, 5), "|AA|\xC3\xBC\xC3\xBC|CC|");
  EXPECT_EQ(ColumnTexts(sheet, 2, 5), "Value| 1.5|   7|-2.0|");
  EXPECT_EQ(sheet.ColumnNumbers(2, 1, 5), (std::vector<double>{0, 1.5, 7, -2, 0}));
  sheet.SetCellText(3, 2, "x");
  EXPECT_EQ(ColumnTexts(sheet, 2, 5), "Value| 1.5|x|-2.0|");
  EXPECT_EQ(sheet.CellText(4, 1), "CC");
}

TEST(Sheet, ClearAllKeepsEverythingButCells) {
  Sheet sheet;
  sheet.SheetName = "Funds";
  sheet.MaxRow = 4;
  sheet.SetColumnWidth(2, 2000);
  ImportRecords(sheet);
  sheet.ClearAll();
  EXPECT_EQ(ColumnTexts(sheet, 1, 4), "|||");
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
  sheet.Sort({2, 1, 4, 3}, {2, 0, 0});
  EXPECT_EQ(ColumnTexts(sheet, 1, 5), "Name|a|b|c|tail");
  EXPECT_EQ(ColumnTexts(sheet, 2, 4), "Price|1|2|3");
  EXPECT_EQ(sheet.PriceBlock(2).size(), 3U);  // not turned into text
  EXPECT_EQ(ColumnTexts(sheet, 3, 4), "|y||x");
  EXPECT_EQ(ColumnTexts(sheet, 4, 5), "1|2|3|4|5");
}

TEST(Sheet, SortIgnoresKeysOutsideAndEmptyBlocks) {
  Sheet sheet;
  sheet.SetTextColumn(1, {"h", "b", "a"});
  sheet.SetTextColumn(2, {"h", "1", "2"});
  sheet.Sort({2, 2, 3, 9}, {1, -9, 0});
  sheet.Sort({3, 1, 2, 2}, {1, 0, 0});
  sheet.Sort({5, 5, 9, 5}, {5, 0, 0});
  EXPECT_EQ(ColumnTexts(sheet, 1, 3) + ColumnTexts(sheet, 2, 3), "h|b|ah|1|2");
  sheet.Sort({2, 1, 99, 2}, {9, 1, 0});
  EXPECT_EQ(ColumnTexts(sheet, 2, 3), "h|2|1");
}

TEST(Sheet, SortsRecordsWholeAndInPart) {
  Sheet sheet;
  ImportRecords(sheet);
  sheet.SetTextColumn(3, {"", "one", "two", "three"});
  sheet.Sort({2, 1, 4, 3}, {-2, 0, 0});
  EXPECT_EQ(ColumnTexts(sheet, 2, 4), "|   7| 1.5|-2.0");
  EXPECT_EQ(ColumnTexts(sheet, 3, 4), "|two|one|three");
  // A block of one of the records' columns leaves the other where it is.
  sheet.Sort({2, 1, 4, 1}, {1, 0, 0});
  EXPECT_EQ(ColumnTexts(sheet, 1, 4), "|AA|CC|\xC3\xBC\xC3\xBC");
  EXPECT_EQ(ColumnTexts(sheet, 2, 4), "|   7| 1.5|-2.0");
}

// Reads the table as a view would when it is told.
class Recorder : public TableObserver {
 public:
  explicit Recorder(const DataTable& table) : table_(table) {}

  void ActiveSheetChanged() override { log += "active " + table_.Active().SheetName + "; "; }
  void SheetsChanged() override {
    log += std::to_string(table_.SheetCount()) + " sheets, " + table_.Active().SheetName + "; ";
  }
  void ContentChanged(int sheet) override { log += "content " + std::to_string(sheet) + "; "; }

  std::string log;

 private:
  const DataTable& table_;
};

TEST(DataTable, ActiveSheetGivesWayWhenItIsRemoved) {
  DataTable table;
  Recorder recorder(table);
  table.SetObserver(&recorder);
  table.SetSheetCount(3);
  table.SetActiveSheet(3);
  table.SetActiveSheet(4);
  table.SetActiveSheet(0);
  table.SetSheetCount(2);
  table.SetSheetCount(0);
  EXPECT_EQ(recorder.log,
            "3 sheets, Sheet1; active Sheet3; 2 sheets, Sheet2; active Sheet2; "
            "1 sheets, Sheet1; active Sheet1; ");
}

TEST(DataTable, ResetLeavesOneClearedSheetAndSpares) {
  DataTable table;
  table.SetSheetCount(4);
  table.SheetAt(1).SheetName = "Funds";
  table.SheetAt(1).SetPriceColumn(2, "AAA", {1.0F});
  table.SheetAt(2).SetCellText(1, 1, "Symbol");
  table.SetActiveSheet(2);
  table.Reset(1);
  EXPECT_EQ(table.SheetCount(), 2);
  EXPECT_EQ(table.ActiveSheet(), 1);
  EXPECT_EQ(table.Active().SheetName, "Sheet1");
  EXPECT_EQ(table.Active().CellText(2, 2), "");
  EXPECT_EQ(table.SheetAt(2).CellText(1, 1), "");
  EXPECT_EQ(table.SheetAt(2).SheetName, "Sheet2");
}

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
  EXPECT_EQ(PlacesFromPoint("12.50"), 3) << "numbers stand on their points";
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
