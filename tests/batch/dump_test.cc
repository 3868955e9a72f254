#include <gtest/gtest.h>

#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "batch/comparison.h"
#include "batch/script_commands.h"
#include "support/script_screen.h"
#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

using test::ScriptStage;
using test::TemporaryFolder;

void FillSheet(Sheet& sheet) {
  sheet.SheetName = "Funds";
  sheet.MaxRow = 3;
  sheet.MaxCol = 2;
  sheet.FixedRows = 1;
  sheet.SetCellText(1, 1, "Name, \"full\"");
  sheet.SetCellText(2, 1, " x\r\ny");
  sheet.SetPriceColumn(2, "ABC", {12.34F, -1.0F});
}

// Three rows of two columns with a gap, a mark and a text at one point.
void FillChart(ChartView& view) {
  view.TitleText = "T";
  view.Footnote.Text = "F";
  view.rowcount(3);
  view.ColumnCount(2);
  view.SetRowLabel(1, "1/5/90");
  view.SetColumnLabel(2, "ABC");
  view.SetData(1, 1, 0.1, false);
  view.SetData(2, 1, std::numeric_limits<double>::infinity(), false);
  view.SetData(3, 2, 1e-7, false);
  view.Plot.Series(2).Pen.VtColor.Set(1, 2, 3);
  ChartDataPoint& own = view.Plot.Series(2).DataPoints.Item(3);
  own.Marker.Visible = true;
  own.DataPointLabel = ChartPointLabel{};
  own.DataPointLabel->Text = "Peak";
  view.Plot.Series(1).DataPoints.Item(1);
  view.Plot.Axis[1].ValueScale.Auto = false;
  view.Plot.Axis[1].ValueScale.Minimum = -2.5;
}

TEST(Dump, AReadingIsWhatTheReadOutLineSays) {
  ScriptStage stage;
  ChartView& view = stage.frmTest.VtChart1.view;
  FillChart(view);
  view.facts.unit = ValueUnit::kChange;
  view.facts.Series(1) = {.name = {}, .role = {}, .parent = 0, .base = 50.0, .last_price_row = {}};
  EXPECT_EQ(stage.Run("dump reading frmTest.VtChart1 1"), 0) << stage.err.str();
  EXPECT_EQ(
      stage.out.str(),
      "{\"reading\": {\"at\": \"1/5/90\", \"row\": 1, \"series\": [{\"name\": \"C1\", \"text\": "
      "\"55 +10.00%\", \"value\": 55, \"percent\": 10}]}}\n");
  EXPECT_EQ(stage.Run("dump reading frmTest.VtChart1 4"), 1);
  EXPECT_NE(stage.err.str().find("ROW"), std::string::npos) << stage.err.str();
}

TEST(Dump, ASheetIsCsvAsItStands) {
  ScriptStage stage;
  FillSheet(stage.table.SheetAt(1));
  EXPECT_EQ(stage.Run("dump sheet 1 -"), 0) << stage.err.str();
  EXPECT_EQ(stage.out.str(), "\"Name, \"\"full\"\"\",ABC\r\n\" x\r\ny\",12.34\r\n,-1\r\n");
  EXPECT_EQ(stage.Run("dump sheets"), 0);
  EXPECT_EQ(stage.out.str(),
            "{\"sheets\": [{\"number\": 1, \"name\": \"Funds\", \"MaxRow\": 3, \"MaxCol\": 2, "
            "\"FixedRows\": 1, \"FixedCols\": 0}], \"active\": 1}\n");
}

TEST(Dump, AChartHasItsAgreedKeys) {
  ScriptStage stage;
  FillChart(stage.frmTest.VtChart1.view);
  stage.frmTest.VtChart1.SetVisible(false);
  EXPECT_EQ(stage.Run("dump chart frmTest.VtChart1 -"), 0) << stage.err.str();
  const auto parsed = nlohmann::ordered_json::parse(stage.out.str());
  std::string keys;
  for (const auto& [key, value] : parsed.items()) keys += key + " ";
  EXPECT_EQ(keys,
            "ChartType TitleText Footnote rowcount ColumnCount RowLabel ColumnLabel data Legend "
            "Series Markers PointLabels Axis PlotRect visible ");
  const std::string& text = stage.out.str();
  for (const char* part :
       {"\"RowLabel\": [\"1/5/90\", \"R2\", \"R3\"], \"ColumnLabel\": [\"C1\", \"ABC\"]",
        "\"data\": [[0.1, null], [null, null], [null, 1e-07]]",
        "\"PenColor\": [1, 2, 3]",
        "\"Markers\": [{\"series\": 2, \"point\": 3, \"size\": 6, \"visible\": true, \"style\": "
        "15,",
        "\"PointLabels\": [{\"series\": 2, \"point\": 3, \"text\": \"Peak\"}]",
        "{\"id\": 1, \"hidden\": false, \"auto\": false, \"DivisionsPerLabel\": 1, "
        "\"DivisionsPerTick\": 1, \"Minimum\": -2.5, \"Maximum\": 0, \"title\": \"\"}",
        "\"visible\": false}\n"}) {
    EXPECT_NE(text.find(part), std::string::npos) << part << "\nin\n" << text;
  }
}

TEST(Dump, AControlTellsWhatItsKindHas) {
  ScriptStage stage;
  stage.frmTest.txtName.SetText("a\"b");
  stage.frmTest.lstMany.Select({0, 2});
  stage.frmTest.txtName.SetEnabled(false);
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"frmtest.txtname",
       R"({"name": "frmTest.txtName", "kind": "TextBox", "text": "a\"b", "visible": true, )"
       R"("enabled": false, "left": 15, "top": 30, "width": 45.5, "height": 60})"},
      {"frmTest.mnuFileGo",
       R"({"name": "frmTest.mnuFileGo", "kind": "MenuItem", "value": 0, "text": "Go", )"
       R"("visible": true, "enabled": true})"},
      {"frmTest.HScroll1",
       R"({"name": "frmTest.HScroll1", "kind": "ScrollBar", "value": 0, "min": 0, "max": 10, )"
       R"("visible": true, "enabled": true, "left": 0, "top": 0, "width": 15, "height": 15})"},
      {"frmTest.lstMany",
       R"({"name": "frmTest.lstMany", "kind": "ListBox", "value": 2, "text": "FIDIN    Index", )"
       R"("entries": ["FIDEL    Funds", "VANG     Funds", "FIDIN    Index"], "selected": [0, 2], )"
       R"("visible": true, "enabled": true, "left": 0, "top": 0, "width": 15, "height": 15})"},
  };
  for (const auto& [name, json] : cases) {
    EXPECT_EQ(stage.Run("dump " + name), 0) << stage.err.str();
    EXPECT_EQ(stage.out.str(), json + "\n");
  }
}

TEST(Dump, AFileThatCannotBeWrittenIsNamed) {
  const TemporaryFolder folder;
  ScriptStage stage;
  EXPECT_EQ(stage.Run("dump sheet 1 " + folder.Path("none/a.csv")), 1);
  EXPECT_EQ(stage.err.str(),
            "s:1: cannot write " + folder.Path("none/a.csv") + ": Path not found\n");
}

TEST(Expect, AnEarlierDumpHoldsUntilSomethingChanges) {
  const TemporaryFolder folder;
  ScriptStage stage;
  FillSheet(stage.table.SheetAt(1));
  FillChart(stage.frmTest.VtChart1.view);
  const std::string sheet = " sheet 1 " + folder.Path("a.csv");
  const std::string chart = " chart frmTest.VtChart1 " + folder.Path("a.json");
  EXPECT_EQ(stage.Run("dump" + sheet + "\ndump" + chart), 0) << stage.err.str();
  EXPECT_EQ(stage.Run("expect" + sheet + "\nexpect" + chart), 0) << stage.err.str();

  stage.table.SheetAt(1).SetCellText(2, 2, "12.35");
  stage.frmTest.VtChart1.view.SetData(1, 1, 0.101, false);
  EXPECT_EQ(stage.Run("expect" + sheet), 1);
  EXPECT_EQ(stage.err.str(),
            "sheet 1, row 2, column 2: \"12.34\" expected, \"12.35\" found\n"
            "s:1: sheet 1 differs in 1 place\n");
  EXPECT_EQ(stage.Run("expect" + chart), 1);
  EXPECT_EQ(stage.err.str(),
            "chart frmTest.VtChart1, data[1][1]: 0.1 expected, 0.101 found\n"
            "s:1: chart frmTest.VtChart1 differs in 1 place\n");
  EXPECT_EQ(stage.Run("expect" + sheet + " within 0.001\nexpect" + chart + " within 0.01"), 0);

  stage.table.SheetAt(1).MaxRow = 2;
  EXPECT_EQ(stage.Run("expect" + sheet + " within 1"), 1);
  EXPECT_EQ(stage.err.str(),
            "sheet 1, 3 rows expected, 2 found\ns:1: sheet 1 differs in 1 place\n");
  stage.table.SheetAt(1).MaxRow = 4;
  EXPECT_EQ(stage.Run("expect" + sheet + " within 1"), 1);
  EXPECT_EQ(stage.err.str(),
            "sheet 1, 3 rows expected, 4 found\ns:1: sheet 1 differs in 1 place\n");
  stage.frmTest.VtChart1.view.Footnote.Text = "G";
  stage.frmTest.VtChart1.view.rowcount(2);
  EXPECT_EQ(stage.Run("expect" + chart + " within 0.01"), 1);
  EXPECT_NE(stage.err.str().find("Footnote: \"F\" expected, \"G\" found\n"), std::string::npos);
  EXPECT_NE(stage.err.str().find("data: a list of 3 expected, a list of 2 found\n"),
            std::string::npos);
}

TEST(Expect, OnlyTheFirstDifferencesAreTold) {
  Sheet sheet;
  sheet.MaxRow = 30;
  sheet.MaxCol = 1;
  std::string csv;
  for (int row = 0; row < 30; ++row) csv += "1\n";
  const Differences differences = CompareSheet(sheet, csv, 0.5);
  EXPECT_EQ(differences.count, 30);
  EXPECT_EQ(differences.told.size(), 10U);
}

TEST(Expect, WhatIsNoDumpIsRefused) {
  const TemporaryFolder folder;
  ScriptStage stage;
  const std::string path = folder.Write("a.json", "{\"a\": ");
  EXPECT_EQ(stage.Run("expect chart frmTest.VtChart1 " + path), 1);
  EXPECT_EQ(stage.err.str(),
            "s:1: " + path +
                " is no dump: line 1, column 7: syntax error while parsing value - unexpected "
                "end of input; expected '[', '{', or a literal\n");
  EXPECT_EQ(stage.Run("expect sheet 1 " + path + " within -1"), 1);
  EXPECT_EQ(stage.err.str(), "s:1: within: \"-1\" is no relative tolerance such as 1e-6\n");
  EXPECT_EQ(stage.Run("expect sheet 1 " + folder.Path("none.csv")), 1);
  EXPECT_EQ(stage.err.str(), "s:1: cannot read " + folder.Path("none.csv") + ": File not found\n");
}

TEST(Export, SizeIsTheChartsOwnUnlessItIsGiven) {
  ScriptStage stage;
  EXPECT_EQ(stage.Run("export chart frmTest.VtChart1 a.png"), 0) << stage.err.str();
  EXPECT_EQ(stage.exported, "a.png 100x50");
  EXPECT_EQ(stage.Run("export chart frmTest.VtChart1 a.svg size 640 480"), 0);
  EXPECT_EQ(stage.exported, "a.svg 640x480");
  EXPECT_EQ(stage.Run("export chart frmTest.VtChart1 a.svg size 640"), 1);
}

}  // namespace
}  // namespace vistaplot
