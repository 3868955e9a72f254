#include "charts/builders/summary_chart.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "base/text.h"

namespace vistaplot {
namespace {

// Sheets with two heading rows and data rows of blank-separated cells; a spare sheet at the end.
struct World {
  Sheet& AddSheet(const std::string& name, const std::string& rows) {
    table.SetSheetCount(++sheets + 1);
    Sheet& sheet = table.SheetAt(sheets);
    sheet.SheetName = name;
    sheet.FixedRows = 2;
    sheet.MaxRow = 2;
    for (const std::string_view line : Split(rows, '\n')) {
      int column = 0;
      ++sheet.MaxRow;
      for (const std::string_view cell : Split(line, ' ')) {
        sheet.SetCellText(sheet.MaxRow, ++column, cell);
      }
    }
    return sheet;
  }

  // `rows` data rows whose statistic (column 5) is the row's number.
  void AddCases(int rows) {
    Sheet& sheet = AddSheet("CASES", "");
    for (int row = 1; row <= rows; ++row) sheet.SetCellText(row + 2, 5, std::to_string(row));
    sheet.MaxRow = rows + 2;
  }

  BuildOutcome DrawCases(float fraction = 1.0F) {
    const TestCaseRequest request{.sheets = TestCaseSheets(table, false),
                                  .statistic = "Avg Annual %",
                                  .statistic_column = 5,
                                  .GraphFraction = fraction,
                                  .scatter = true,
                                  .display = {}};
    return BuildTestCaseChart(request, table, view);
  }

  BuildOutcome DrawCells(float fraction = 1.0F) {
    const ParameterRequest request{.x = {"Buy", 1},
                                   .y = {"Sell", 2},
                                   .data = {"Gain", 3},
                                   .GraphFraction = fraction,
                                   .surface = false,
                                   .display = {}};
    return BuildParameterChart(request, table, view);
  }

  // "12 -/3 4": the grid's values row by row, "-" where a cell is empty.
  std::string Cells() const {
    std::string text;
    for (int row = 1; row <= view.rowcount(); ++row) {
      if (row > 1) text += '/';
      for (int column = 1; column <= view.ColumnCount(); ++column) {
        if (column > 1) text += ' ';
        text += view.HasPoint(row, column) ? std::to_string(std::lround(view.DataAt(row, column)))
                                           : "-";
      }
    }
    return text;
  }

  DataTable table;
  int sheets = 0;
  ChartView view;
};

struct TestCaseChart : testing::Test, World {};

TEST_F(TestCaseChart, EachSheetIsASeriesOverThePlacesOfItsRows) {
  AddSheet("A.SUM", "9 x x x 1.5\n3 x x x none\n7 x x x -2");
  AddSheet("B.SUM", "1 x x x 8");
  EXPECT_TRUE(DrawCases().drawn);
  EXPECT_EQ(view.ChartType, 16);
  EXPECT_EQ(view.rowcount(), 3);
  EXPECT_EQ(view.ColumnCount(), 4);
  EXPECT_EQ(Cells(), "1 2 1 8/2 0 - -/3 -2 - -");
  EXPECT_EQ(view.DataAt(1, 2), 1.5);
  EXPECT_EQ(view.ColumnLabelAt(3), "B.SUM");
  EXPECT_EQ(view.TitleText, "Avg Annual %");
  EXPECT_EQ(table.ActiveSheet(), 2);
}

TEST_F(TestCaseChart, TheFractionCountsTheHeadingRowsAndRoundsHalvesToEven) {
  AddCases(100);  // 102 rows
  DrawCases(0.5F);
  EXPECT_EQ(view.rowcount(), 49);
  World few;
  few.AddCases(3);  // 5 rows, half of them 2.5: row 2, a heading
  EXPECT_TRUE(few.DrawCases(0.5F).drawn);
  EXPECT_EQ(few.view.rowcount(), 0);
}

TEST_F(TestCaseChart, TwelveThousandCellsAreDrawnAndMoreRefused) {
  AddCases(3000);
  AddCases(10);
  EXPECT_TRUE(DrawCases().drawn);
  World more;
  more.AddCases(3001);
  more.AddCases(10);
  more.view.TitleText = "old";
  const BuildOutcome outcome = more.DrawCases();
  EXPECT_FALSE(outcome.drawn);
  EXPECT_EQ(outcome.message,
            "Too much data to graph, please choose fewer files or graph a smaller percent of the "
            "data");
  EXPECT_EQ(more.view.ColumnCount(), 0);
  EXPECT_EQ(more.view.TitleText, "");
}

TEST_F(TestCaseChart, AComputedSummaryIsSheetTwoAlone) {
  AddCases(1);
  AddCases(1);
  EXPECT_EQ(TestCaseSheets(table, true), std::vector<int>{2});
  EXPECT_EQ(TestCaseSheets(table, false), (std::vector<int>{1, 2}));
}

struct ParameterChart : testing::Test, World {};

TEST_F(ParameterChart, RowOneHoldsTheLargestY) {
  AddSheet("T.SUM", "10 5 1\n20 5 2\n30 5 3\n10 10 4\n20 10 5");
  EXPECT_TRUE(DrawCells().drawn);
  EXPECT_EQ(Cells(), "4 5 -/1 2 3");
  EXPECT_EQ(view.RowLabelAt(1), "10");
  EXPECT_EQ(view.ColumnLabelAt(3), "30");
  EXPECT_EQ(view.ChartType, 24);
  EXPECT_EQ(view.Footnote.Text, "T.SUM");
  EXPECT_EQ(view.Plot.Axis[0].AxisTitle.Text, "Sell");
  EXPECT_EQ(view.Plot.Axis[3].AxisTitle.Text, "Buy");
}

TEST(ParameterCharts, RowsLandOnTheNearestCrossing) {
  struct Case {
    const char *rows, *cells, *why;
    float fraction = 1.0F;
  };
  for (const Case& c :
       {Case{"0 0 1\n10 1 2\n24 1 3\n26 1 4\n40 0 5\n10 1 6",
             "- 6 3 4 -/1 - - - 5",
             "X steps of 10"},
        {"0 0 1\n2 1 2\n3 1 3\n6 0 4", "- 3 - -/1 - - 4", "3 is half-way: the later row"},
        {"1 1 7\n2 1 8\n1 2 9\n3 2 10", "- - -/7 - -", "half of 6 rows: row 3 alone", 0.5F},
        {"9999 1 7\n9999 2 8", "", "the search's start gives no step"},
        {"5 1 7\n5 2 8", "8/7", "a single column of cells"}}) {
    World world;
    world.AddSheet("T", c.rows);
    EXPECT_TRUE(world.DrawCells(c.fraction).drawn);
    EXPECT_EQ(world.Cells(), c.cells) << c.why;
  }
}

TEST_F(ParameterChart, ACellKnowsItsRowAlsoAfterASort) {
  Sheet& sheet = AddSheet("T", "1 1 7\n2 1 8\n1 2 9\n2 1 5");
  DrawCells();
  EXPECT_EQ(CaseRow(view, sheet, 2, 2), 6) << "the later row of the same cell";
  EXPECT_EQ(CaseRow(view, sheet, 1, 2), 0) << "an empty cell";
  sheet.Sort({.SelStartRow = 3, .SelStartCol = 1, .SelEndRow = 6, .SelEndCol = 3}, {-3, 0, 0});
  EXPECT_EQ(sheet.CellText(CaseRow(view, sheet, 1, 1), 3), "9");
  sheet.SheetName = "OTHER";
  EXPECT_EQ(CaseRow(view, sheet, 1, 1), 0);
}

TEST_F(ParameterChart, AGridBeyondFourMillionCellsIsRefusedAndNothingChosenDrawsNothing) {
  AddSheet("T", "0 0 1\n1 1 2\n2001 2000 3");
  EXPECT_FALSE(DrawCells().drawn);
  EXPECT_EQ(view.ColumnCount(), 0);
  view.TitleText = "kept";
  EXPECT_FALSE(BuildTestCaseChart({}, table, view).drawn);
  EXPECT_FALSE(BuildParameterChart({}, table, view).drawn);
  EXPECT_EQ(view.TitleText, "kept");
}

}  // namespace
}  // namespace vistaplot
