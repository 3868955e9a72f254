#include "forms/drawing.h"

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

TEST(Drawing, AsksForALoadBeforeItDraws) {
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

TEST(Drawing, DrawsTheSelectedFundsOnceUpToTheLastDay) {
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

TEST(Drawing, GraphReadsANewSelectionAndScrollingKeepsIt) {
  ScreenWorld world;
  world.LoadTrio();
  world.SelectColumns(2, 2);
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  world.SelectColumns(3, 4);
  world.screens.frmGraph.HScroll1.SetValue(200);
  EXPECT_EQ(world.Chart().ColumnLabelAt(1), "AAA");
  world.screens.frmMain.tools.cmdGraph.RaiseClick();
  EXPECT_EQ(world.Chart().ColumnLabelAt(1), "BBB");
  EXPECT_EQ(world.Chart().ColumnCount(), 2);
  EXPECT_EQ(world.screens.frmGraph.HScroll1.Value(), 200);
}

TEST(Drawing, AllMovesTheBarToTheLastDayAndRefusesOnce) {
  ScreenWorld world;
  world.LoadTrio();
  world.SelectColumns(2, 4);
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  world.screens.frmGraph.HScroll1.SetValue(150);
  world.screens.frmMain.periods.mnuTimePeriod[kAll].RaiseClick();
  EXPECT_EQ(world.screens.frmGraph.HScroll1.Value(), kWorldDays);
  EXPECT_EQ(world.state.selection.FirstDay, 2);
  EXPECT_EQ(world.Chart().rowcount(), kWorldDays - 1);
  EXPECT_TRUE(world.screens.frmMain.periods.mnuTimePeriod[kAll].Checked());
  EXPECT_FALSE(world.screens.frmMain.periods.mnuTimePeriod[3].Checked());
}

TEST(Drawing, RefusedAllStillMovesTheBarAndTellsOnce) {
  ScreenWorld world;
  world.LoadTrio();
  // 42 ranges of three funds: 126 x 21 points of a month are few enough, those of all days are not.
  for (int i = 0; i < 42; ++i) {
    world.state.table.SheetAt(1).selection.push_back({1, 2, kWorldDays + 1, 4});
  }
  world.screens.frmMain.ChooseTimePeriod(0);
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  world.screens.frmGraph.HScroll1.SetValue(150);
  EXPECT_GT(world.Chart().ColumnCount(), 0);
  EXPECT_TRUE(world.dialogs.messages.empty());
  world.screens.frmMain.periods.mnuTimePeriod[kAll].RaiseClick();
  EXPECT_EQ(world.dialogs.Texts(),
            (Texts{"Too much data to graph, please choose a shorter time period or fewer funds"}));
  EXPECT_EQ(world.screens.frmGraph.HScroll1.Value(), kWorldDays);
  EXPECT_EQ(world.Chart().ColumnCount(), 0);
}

TEST(Drawing, RefusedChartBringsNoScreenUpAndLeavesNoOldPicture) {
  ScreenWorld world;
  world.LoadTrio();
  world.SelectColumns(2, 2);
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  world.screens.frmGraph.lblboxdate.SetCaption("Last X: 01/01/01");
  world.screens.frmMain.tools.cmdShowMain.RaiseClick();
  world.state.table.SheetAt(1).selection.clear();
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  EXPECT_EQ(world.dialogs.messages.size(), 1U);
  EXPECT_EQ(world.host.front, &world.screens.frmTab);
  EXPECT_EQ(world.Chart().ColumnCount(), 0);
  EXPECT_EQ(world.screens.frmGraph.lblboxdate.Caption(), "");
  EXPECT_FALSE(world.screens.frmMain.pnlAction.Visible());
}

TEST(Drawing, BarWaitsForTheFirstChartAndARedrawBeforeItEndsAtTheNewestDay) {
  ScreenWorld world;
  world.LoadTrio();
  ScrollBar& bar = world.screens.frmGraph.HScroll1;
  EXPECT_FALSE(bar.Enabled());
  world.SelectColumns(2, 3);
  world.screens.frmMain.periods.mnuTimePeriod[0].RaiseClick();
  EXPECT_TRUE(bar.Usable());
  EXPECT_EQ(bar.Value(), kWorldDays);
  EXPECT_EQ(bar.Max(), kWorldDays);
  EXPECT_EQ(bar.Min(), 1);
  EXPECT_EQ(world.Chart().ColumnCount(), 2);
  EXPECT_EQ(world.Chart().RowLabelAt(world.Chart().rowcount()), "10/27/01");
  // One more day in the service: the bar waits for a chart again, and then reaches it.
  world.quoteline.SetDays(SerialFromDate({2001, 1, 1}), kWorldDays + 1);
  world.screens.frmTab.lists.cmdLoadData.RaiseClick();
  EXPECT_FALSE(bar.Enabled());
  world.SelectColumns(2, 2);
  world.screens.frmTab.optOneAll.SetListIndex(1);
  world.screens.frmMain.tools.cmdNext.RaiseClick();
  EXPECT_EQ(bar.Value(), kWorldDays + 1);
}

TEST(Drawing, WheelStepsThroughThePeriodsAsTheMenuDoes) {
  ScreenWorld world;
  world.LoadTrio();
  world.SelectColumns(2, 2);
  FrmMain& frmMain = world.screens.frmMain;
  frmMain.ChangeTimePeriod(-1);
  EXPECT_EQ(world.state.selection.TimePeriodIndex, 2);
  EXPECT_TRUE(frmMain.periods.mnuTimePeriod[2].Checked());
  EXPECT_FALSE(frmMain.periods.mnuTimePeriod[3].Checked());
  frmMain.ChangeTimePeriod(50);
  EXPECT_EQ(world.state.selection.TimePeriodIndex, kAll);
  EXPECT_EQ(world.Chart().rowcount(), kWorldDays - 1);
  world.screens.frmTab.cboDataType.SetListIndex(0);
  frmMain.ChangeTimePeriod(-1);
  EXPECT_EQ(world.state.selection.TimePeriodIndex, kAll);
}

TEST(Drawing, NothingSelectedIsToldAndNothingDrawn) {
  ScreenWorld world;
  world.LoadTrio();
  world.state.table.SheetAt(1).selection.clear();
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  EXPECT_EQ(world.dialogs.Texts(), (Texts{"Please select a fund on the Graph Data tab"}));
  EXPECT_EQ(world.Chart().ColumnCount(), 0);
}

TEST(Drawing, AnotherKindOfDataForgetsTheFundsOfTheChart) {
  ScreenWorld world;
  world.LoadTrio();
  world.SelectColumns(2, 3);
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  world.screens.frmTab.cboDataType.SetListIndex(0);
  world.state.table.SheetAt(1).MaxCol = 5;  // a result file, with what its reader left selected
  world.state.table.SheetAt(1).Select({3, 5, 3, 5});
  world.screens.frmGraph.HScroll1.SetValue(150);
  EXPECT_EQ(world.dialogs.Texts(), (Texts{"Please select a fund on the Graph Data tab"}));
  EXPECT_EQ(world.Chart().ColumnCount(), 0);
}

TEST(Drawing, StepsThroughTheFundsAroundTheEnds) {
  ScreenWorld world;
  world.LoadTrio();
  world.SelectColumns(2, 3);
  world.screens.frmTab.optOneAll.SetListIndex(1);
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  Texts drawn{world.Chart().ColumnLabelAt(1)};
  for (Button* button : {&world.screens.frmMain.tools.cmdNext,
                         &world.screens.frmMain.tools.cmdNext,
                         &world.screens.frmMain.tools.cmdPrev}) {
    button->RaiseClick();
    drawn.push_back(world.Chart().ColumnLabelAt(1));
  }
  EXPECT_EQ(drawn, (Texts{"AAA", "BBB", "AAA", "BBB"}));
}

TEST(Drawing, ClickOnAPointTellsDayAndValue) {
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

TEST(Drawing, CandlesAlwaysEndAtTheNewestDayWhenGraphed) {
  ScreenWorld world;
  world.LoadTrio();
  world.SelectColumns(2, 3);
  world.screens.frmTab.cboGraphType.SetListIndex(3);
  world.screens.frmMain.ChooseTimePeriod(0);
  ScrollBar& bar = world.screens.frmGraph.HScroll1;
  int changes = 0;
  world.screens.frmGraph.VtChart1.view.SetObserver([&] { ++changes; });
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(bar.Value(), kWorldDays);
  EXPECT_EQ(world.Chart().ColumnCount(), 8);
  EXPECT_EQ(world.Chart().Plot.Series(1).SeriesType, kSeriesCandleBar);
  // Day 300 is a Saturday, 27 October: the newest week ended the day before.
  const int weeks = world.Chart().rowcount() - 1;
  EXPECT_EQ(world.Chart().RowLabelAt(weeks), "10/26/01");
  bar.SetValue(200);
  EXPECT_EQ(world.Chart().RowLabelAt(world.Chart().rowcount() - 1), "07/13/01");
  world.screens.frmTab.optOneAll.SetListIndex(1);
  world.screens.frmMain.tools.cmdNext.RaiseClick();
  EXPECT_EQ(world.Chart().ColumnCount(), 4);
  EXPECT_EQ(world.Chart().ColumnLabelAt(1), "BBB");
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  EXPECT_EQ(bar.Value(), kWorldDays);
}

TEST(Drawing, BoxesKeepTheBarsDayAndSayWhenTheLastOnesCame) {
  ScreenWorld world;
  world.LoadTrio();
  world.SelectColumns(2, 3);
  world.screens.frmTab.cboGraphType.SetListIndex(4);
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  const Label& dates = world.screens.frmGraph.lblboxdate;
  EXPECT_EQ(world.Chart().TitleText, "Point & Figure");
  EXPECT_EQ(dates.Caption(), "Last X: 10/27/01 Last O: ");
  const Place& chart = world.screens.frmGraph.VtChart1.Where();
  EXPECT_LE(*dates.Where().Top + *dates.Where().Height,
            *chart.Height * static_cast<float>(world.Chart().facts.covered_top))
      << "the plot begins below the dates";
  world.screens.frmGraph.HScroll1.SetValue(200);
  EXPECT_EQ(dates.Caption(), "Last X: 07/19/01 Last O: ");
  world.screens.frmMain.tools.cmdGraph.RaiseClick();
  EXPECT_EQ(world.screens.frmGraph.HScroll1.Value(), 200);
  EXPECT_EQ(world.Chart().ColumnLabelAt(1), "AAA");
  // A box value that no level can grow by is told, and the old dates go with the old boxes.
  world.state.point_and_figure.PfBox[0] = 0.0F;
  world.screens.frmMain.periods.mnuTimePeriod[0].RaiseClick();
  EXPECT_EQ(world.dialogs.messages.size(), 1U);
  EXPECT_EQ(world.Chart().ColumnCount(), 0);
  EXPECT_EQ(dates.Caption(), "");
  world.state.point_and_figure.PfBox[0] = 1.0F;
  world.screens.frmMain.periods.mnuTimePeriod[1].RaiseClick();
  EXPECT_NE(dates.Caption(), "");
  world.screens.frmTab.cboGraphType.SetListIndex(0);
  world.screens.frmGraph.HScroll1.SetValue(150);  // a line chart has no boxes to date
  EXPECT_EQ(dates.Caption(), "");
}

TEST(Drawing, RightClickOnASummaryRowChartsItsIssue) {
  ScreenWorld world;
  world.LoadTrio();
  world.screens.frmMain.tools.cmdShowData.RaiseClick();
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
