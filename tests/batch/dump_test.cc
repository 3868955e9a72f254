#include <gtest/gtest.h>

#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "batch/comparison.h"
#include "batch/json_writer.h"
#include "batch/script_commands.h"
#include "support/script_screen.h"
#include "support/temporary_folder.h"

namespace vistaplot::test {
namespace {

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
  EXPECT_EQ(
      stage.Output("dump reading frmTest.VtChart1 1"),
      "{\"reading\": {\"at\": \"1/5/90\", \"row\": 1, \"series\": [{\"name\": \"C1\", \"text\": "
      "\"55 +10.00%\", \"value\": 55, \"percent\": 10}]}}\n");
  EXPECT_EQ(stage.Run("dump reading frmTest.VtChart1 4"), 1);
  EXPECT_NE(stage.err.str().find("ROW"), std::string::npos) << stage.err.str();
}

TEST(Dump, ASheetIsCsvAsItStands) {
  ScriptStage stage;
  FillSheet(stage.table.SheetAt(1));
  EXPECT_EQ(stage.Output("dump sheet 1 -"),
            "\"Name, \"\"full\"\"\",ABC\r\n\" x\r\ny\",12.34\r\n,-1\r\n");
  EXPECT_EQ(stage.Output("dump sheets"),
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
    EXPECT_EQ(stage.Output("dump " + name), json + "\n");
  }
}

TEST(Expect, AnEarlierDumpHoldsUntilSomethingChanges) {
  const TemporaryFolder folder;
  ScriptStage stage;
  Sheet& cells = stage.table.SheetAt(1);
  ChartView& view = stage.frmTest.VtChart1.view;
  FillSheet(cells);
  FillChart(view);
  const std::string sheet = " sheet 1 " + folder.Path("a.csv");
  const std::string chart = " chart frmTest.VtChart1 " + folder.Path("a.json");
  EXPECT_EQ(stage.Output("dump" + sheet + "\ndump" + chart), "");
  EXPECT_EQ(stage.Output("expect" + sheet + "\nexpect" + chart), "");
  cells.SetCellText(2, 2, "12.35");
  view.SetData(1, 1, 0.101, false);
  EXPECT_EQ(stage.Refusal("expect" + sheet),
            "sheet 1, row 2, column 2: \"12.34\" expected, \"12.35\" found\n"
            "s:1: sheet 1 differs in 1 place\n");
  EXPECT_EQ(stage.Refusal("expect" + chart),
            "chart frmTest.VtChart1, data[1][1]: 0.1 expected, 0.101 found\n"
            "s:1: chart frmTest.VtChart1 differs in 1 place\n");
  EXPECT_EQ(stage.Run("expect" + sheet + " within 0.001\nexpect" + chart + " within 0.01"), 0);
  for (const int rows : {2, 4}) {
    cells.MaxRow = rows;
    EXPECT_EQ(stage.Refusal("expect" + sheet + " within 1"),
              "sheet 1, 3 rows expected, " + std::to_string(rows) +
                  " found\ns:1: sheet 1 differs in 1 place\n");
  }
  for (const int columns : {1, 3}) {
    cells.MaxCol = columns;
    EXPECT_NE(stage.Refusal("expect" + sheet + " within 1")
                  .find("row 1: 2 columns expected, " + std::to_string(columns) + " found\n"),
              std::string::npos);
  }
  view.Footnote.Text = "G";
  view.rowcount(2);
  const std::string told = stage.Refusal("expect" + chart + " within 0.01");
  EXPECT_NE(told.find("Footnote: \"F\" expected, \"G\" found\n"), std::string::npos);
  EXPECT_NE(told.find("data: a list of 3 expected, a list of 2 found\n"), std::string::npos);
  EXPECT_EQ(stage.Refusal("dump sheet 1 " + folder.Path("none/a.csv")),
            "s:1: cannot write " + folder.Path("none/a.csv") + ": Path not found\n");
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
  EXPECT_EQ(stage.Refusal("expect chart frmTest.VtChart1 " + path),
            "s:1: " + path +
                " is no dump: line 1, column 7: syntax error while parsing value - unexpected "
                "end of input; expected '[', '{', or a literal\n");
  EXPECT_EQ(stage.Refusal("expect sheet 1 " + path + " within -1"),
            "s:1: within: \"-1\" is no relative tolerance such as 1e-6\n");
  EXPECT_EQ(stage.Refusal("expect sheet 1 " + folder.Path("none.csv")),
            "s:1: cannot read " + folder.Path("none.csv") + ": File not found\n");
}

TEST(Export, SizeIsTheChartsOwnUnlessItIsGiven) {
  ScriptStage stage;
  const std::string line = "export chart frmTest.VtChart1 a.";
  EXPECT_EQ(stage.Output(line + "png") + stage.exported, "a.png 100x50");
  EXPECT_EQ(stage.Output(line + "svg size 640 480") + stage.exported, "a.svg 640x480");
  EXPECT_EQ(stage.Run(line + "svg size 640"), 1);
}

TEST(Json, WritesOneLineThatReadsBackExactly) {
  JsonWriter json;
  json.BeginObject().Key("a").Number(0.1F).Key("b").BeginArray().Number(0.1).Null();
  json.Number(std::numeric_limits<double>::quiet_NaN()).Bool(true).BeginObject().EndObject();
  const std::string line = json.EndArray().Key("t\"").Text("x\r\n\xE4").EndObject().Take();
  EXPECT_EQ(line,
            "{\"a\": 0.1, \"b\": [0.1, null, null, true, {}], \"t\\\"\": \"x\\r\\n\xC3\xA4\"}");
  const auto parsed = nlohmann::json::parse(line);
  EXPECT_EQ(parsed["b"][0].get<double>(), 0.1);
  EXPECT_EQ(parsed["t\""], "x\r\n\xC3\xA4");
}

TEST(Json, DifferencesAreNamedByTheirPath) {
  const auto compared = CompareJson(R"({"a": [1, 2.0, "x"], "b": null, "c": {"d": true}})",
                                    R"({"c": {"d": 1}, "a": [1.0, 2.1, "y\n"], "e": []})",
                                    0.01);
  ASSERT_TRUE(compared.Ok());
  EXPECT_EQ(compared.Value().told,
            (std::vector<std::string>{"a[2]: 2 expected, 2.1 found",
                                      "a[3]: \"x\" expected, \"y\n\" found",
                                      "b: null expected, nothing found",
                                      "c.d: true expected, 1 found",
                                      "e: nothing expected, a list of 0 found"}));
  EXPECT_EQ(CompareJson("[1, 2.1]", "[1.0, 2.1000001]", 1e-6).Value().count, 0);
}

TEST(Json, WhatIsNoDumpIsNamedWithItsPlaceOnOneShortLine) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", "line 1, column 1: "},
      {"{\"a\": 1,\n \"b\" 2}", "line 2, column 6: "},
      {"[1, 2", "line 1, column 6: "},
      {std::string(1'000'000, '['), "line 1, column 1000001: "},
      {"\"" + std::string(1'000'000, 'x') + "\n", "line 2, column 0: "},
  };
  for (const auto& [text, error] : cases) {
    const auto compared = CompareJson(text, "1", 0.0);
    ASSERT_FALSE(compared.Ok());
    EXPECT_TRUE(compared.Error().description.starts_with(error)) << compared.Error().description;
    EXPECT_LT(compared.Error().description.size(), 200U);
  }
}

}  // namespace
}  // namespace vistaplot::test
