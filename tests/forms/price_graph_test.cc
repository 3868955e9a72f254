#include "forms/price_graph.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/screen_world.h"

namespace vistaplot {
namespace {

using test::kWorldDays;
using test::ScreenWorld;
using Texts = std::vector<std::string>;

constexpr int kAll = 9;

TEST(PriceGraph, AsksForALoadBeforeItDraws) {
  ScreenWorld world;
  world.Start();
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  EXPECT_EQ(world.dialogs.Texts(),
            (Texts{"Please load a Zephyrine Summary file, Vornaxil file, Kestrelix file, Vistaplot "
                   "Summary File or Quoteline family"}));
  world.screens.frmTab.cboDataType.SetListIndex(5);
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  EXPECT_EQ(world.dialogs.messages.size(), 1U);
}

TEST(PriceGraph, DrawsTheSelectedFundsOnceUpToTheLastDay) {
  ScreenWorld world;
  world.LoadTrio();
  world.SelectColumns(1, 3);
  int changes = 0;
  world.screens.frmGraph.VtChart1.view.SetObserver([&] { ++changes; });
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(world.Chart().ColumnCount(), 2);
  EXPECT_EQ(world.Chart().ColumnLabelAt(1), "AAA");
  // 120 market days do not reach six months back from day 300, 27 October 2001: 27 April is day
  // 117.
  EXPECT_EQ(world.state.selection.FirstDay, 117);
  EXPECT_EQ(world.Chart().rowcount(), 184);
  EXPECT_EQ(world.screens.frmGraph.HScroll1.Value(), kWorldDays);
  EXPECT_EQ(world.screens.frmGraph.HScroll1.Max(), kWorldDays);
  EXPECT_EQ(world.host.front, &world.screens.frmGraph);
  // The price of day 117 is 216, of day 300 it is 399.
  EXPECT_DOUBLE_EQ(world.Chart().DataAt(1, 1), 0.0);
  EXPECT_DOUBLE_EQ(world.Chart().DataAt(184, 1), 399.0 / 216.0 - 1.0);
}

TEST(PriceGraph, GraphReadsANewSelectionAndScrollingKeepsIt) {
  ScreenWorld world;
  world.LoadTrio();
  world.SelectColumns(2, 2);
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  world.SelectColumns(3, 4);
  world.screens.frmGraph.HScroll1.SetValue(200);
  EXPECT_EQ(world.Chart().ColumnLabelAt(1), "AAA");
  world.screens.frmMain.cmdGraph.RaiseClick();
  EXPECT_EQ(world.Chart().ColumnLabelAt(1), "BBB");
  EXPECT_EQ(world.Chart().ColumnCount(), 2);
  EXPECT_EQ(world.screens.frmGraph.HScroll1.Value(), 200);
}

TEST(PriceGraph, AllMovesTheBarToTheLastDayAndRefusesOnce) {
  ScreenWorld world;
  world.LoadTrio();
  world.SelectColumns(2, 4);
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  world.screens.frmGraph.HScroll1.SetValue(150);
  world.screens.frmMain.mnuTimePeriod[kAll].RaiseClick();
  EXPECT_EQ(world.screens.frmGraph.HScroll1.Value(), kWorldDays);
  EXPECT_EQ(world.state.selection.FirstDay, 2);
  EXPECT_EQ(world.Chart().rowcount(), kWorldDays - 1);
  EXPECT_TRUE(world.screens.frmMain.mnuTimePeriod[kAll].Checked());
  EXPECT_FALSE(world.screens.frmMain.mnuTimePeriod[3].Checked());
  // 41 ranges of three funds: 123 x 299 points are too many, and the box comes once.
  for (int i = 0; i < 40; ++i) {
    world.state.table.SheetAt(1).selection.push_back({1, 2, kWorldDays + 1, 4});
  }
  world.screens.frmGraph.HScroll1.SetValue(150);
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  EXPECT_EQ(world.dialogs.Texts(),
            (Texts{"Too much data to graph, please choose a shorter time period or fewer funds"}));
  EXPECT_EQ(world.screens.frmGraph.HScroll1.Value(), kWorldDays);
}

TEST(PriceGraph, NothingSelectedIsToldAndNothingDrawn) {
  ScreenWorld world;
  world.LoadTrio();
  world.state.table.SheetAt(1).selection.clear();
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  EXPECT_EQ(world.dialogs.Texts(), (Texts{"Please select a fund on the Graph Data tab"}));
  EXPECT_EQ(world.Chart().ColumnCount(), 0);
}

TEST(PriceGraph, AnotherKindOfDataForgetsTheFundsOfTheChart) {
  ScreenWorld world;
  world.LoadTrio();
  world.SelectColumns(2, 3);
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  const int days = world.Chart().rowcount();
  world.screens.frmTab.cboDataType.SetListIndex(0);
  world.screens.frmGraph.HScroll1.SetValue(150);
  EXPECT_EQ(world.dialogs.Texts(), (Texts{"Please select a fund on the Graph Data tab"}));
  EXPECT_EQ(world.Chart().ColumnCount(), 2);  // not drawn again from an empty sheet
  EXPECT_EQ(world.Chart().rowcount(), days);
}

TEST(PriceGraph, StepsThroughTheFundsAroundTheEnds) {
  ScreenWorld world;
  world.LoadTrio();
  world.SelectColumns(2, 3);
  world.screens.frmTab.optOneAll.SetListIndex(1);
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  Texts drawn{world.Chart().ColumnLabelAt(1)};
  for (Button* button : {&world.screens.frmMain.cmdNext,
                         &world.screens.frmMain.cmdNext,
                         &world.screens.frmMain.cmdPrev}) {
    button->RaiseClick();
    drawn.push_back(world.Chart().ColumnLabelAt(1));
  }
  EXPECT_EQ(drawn, (Texts{"AAA", "BBB", "AAA", "BBB"}));
}

TEST(PriceGraph, ClickOnAPointTellsDayAndValue) {
  ScreenWorld world;
  world.LoadTrio();
  world.SelectColumns(2, 3);
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  PointSelection point{.Series = 2, .DataPoint = 3};
  world.screens.frmGraph.VtChart1.RaisePointSelected(point);
  // Point 3 of a chart from day 117 on is day 119, 29 April 2001: 50 - 0.125 x 118.
  EXPECT_EQ(world.dialogs.Texts(), (Texts{"NAV on 04/29/01 was 35.25"}));
  world.screens.frmTab.cboDataType.SetListIndex(0);
  world.screens.frmGraph.VtChart1.RaisePointSelected(point);
  EXPECT_TRUE(point.Cancel);
  EXPECT_EQ(world.dialogs.messages.size(), 1U);
}

TEST(PriceGraph, RightClickOnASummaryRowChartsItsIssue) {
  ScreenWorld world;
  world.LoadTrio();
  world.screens.frmMain.cmdShowData.RaiseClick();
  world.state.table.SetActiveSheet(2);
  world.screens.frmData.F1Book1.RaiseClick(1, 1);  // ascending
  world.screens.frmData.F1Book1.RaiseClick(1, 0);  // descending: CCC comes first
  EXPECT_EQ(world.state.table.SheetAt(2).CellText(2, 1), "CCC");
  EXPECT_EQ(world.state.table.SheetAt(2).CellText(1, 1), "Symbol");
  world.screens.frmData.F1Book1.RaiseRClick(2, 5);
  EXPECT_EQ(world.Chart().ColumnLabelAt(1), "CCC");
  EXPECT_EQ(world.state.table.ActiveSheet(), 2);
  world.screens.frmData.F1Book1.RaiseRClick(200, 1);
  EXPECT_TRUE(world.dialogs.messages.empty());
}

}  // namespace
}  // namespace vistaplot
