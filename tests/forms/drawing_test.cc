#include "forms/drawing.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/screen_world.h"

namespace vistaplot::test {
namespace {

using Texts = std::vector<std::string>;

constexpr int kAll = 9;

struct DrawingBefore : testing::Test, ScreenWorld {};

struct DrawingTest : testing::Test, ScreenWorld {
  DrawingTest() { LoadTrio(); }

  ScrollBar& bar = frmGraph.HScroll1;
};

TEST_F(DrawingBefore, AsksForALoadBeforeItDraws) {
  Start();
  Graph();
  EXPECT_EQ(dialogs.Texts(),
            (Texts{"Please load a Zephyrine Summary file, Vornaxil file, Kestrelix file, Vistaplot "
                   "Summary File or Quoteline family"}));
  frmTab.cboDataType.SetListIndex(5);
  Graph();
  EXPECT_EQ(dialogs.messages.size(), 1U);
}

TEST_F(DrawingTest, DrawsTheSelectedFundsOnceUpToTheLastDay) {
  SelectColumns(1, 3);
  int changes = 0;
  frmGraph.VtChart1.view.SetObserver([&] { ++changes; });
  Graph();
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(Chart().ColumnCount(), 2);
  EXPECT_EQ(Chart().ColumnLabelAt(1), "AAA");
  // 120 market days do not reach six months back from day 300, 27 October 2001: 27 April is day
  // 117.
  EXPECT_EQ(state.selection.FirstDay, 117);
  EXPECT_EQ(Chart().rowcount(), 184);
  EXPECT_EQ(bar.Value(), kWorldDays);
  EXPECT_EQ(bar.Max(), kWorldDays);
  EXPECT_EQ(host.front, &frmGraph);
  // The price of day 117 is 216, of day 300 it is 399.
  EXPECT_DOUBLE_EQ(Chart().DataAt(1, 1), 0.0);
  EXPECT_DOUBLE_EQ(Chart().DataAt(184, 1), 399.0 / 216.0 - 1.0);
}

TEST_F(DrawingTest, GraphReadsANewSelectionAndScrollingKeepsIt) {
  SelectColumns(2, 2);
  Graph();
  SelectColumns(3, 4);
  bar.SetValue(200);
  EXPECT_EQ(Chart().ColumnLabelAt(1), "AAA");
  frmMain.tools.cmdGraph.RaiseClick();
  EXPECT_EQ(Chart().ColumnLabelAt(1), "BBB");
  EXPECT_EQ(Chart().ColumnCount(), 2);
  EXPECT_EQ(bar.Value(), 200);
}

TEST_F(DrawingTest, AllMovesTheBarToTheLastDayAndRefusesOnce) {
  SelectColumns(2, 4);
  Graph();
  bar.SetValue(150);
  frmMain.periods.mnuTimePeriod[kAll].RaiseClick();
  EXPECT_EQ(bar.Value(), kWorldDays);
  EXPECT_EQ(state.selection.FirstDay, 2);
  EXPECT_EQ(Chart().rowcount(), kWorldDays - 1);
  EXPECT_TRUE(frmMain.periods.mnuTimePeriod[kAll].Checked());
  EXPECT_FALSE(frmMain.periods.mnuTimePeriod[3].Checked());
}

TEST_F(DrawingTest, RefusedAllStillMovesTheBarAndTellsOnce) {
  // 42 ranges of three funds: 126 x 21 points of a month are few enough, those of all days are not.
  for (int i = 0; i < 42; ++i) {
    SheetAt(1).selection.push_back({1, 2, kWorldDays + 1, 4});
  }
  frmMain.ChooseTimePeriod(0);
  Graph();
  bar.SetValue(150);
  EXPECT_GT(Chart().ColumnCount(), 0);
  EXPECT_TRUE(dialogs.messages.empty());
  frmMain.periods.mnuTimePeriod[kAll].RaiseClick();
  EXPECT_EQ(dialogs.Texts(),
            (Texts{"Too much data to graph, please choose a shorter time period or fewer funds"}));
  EXPECT_EQ(bar.Value(), kWorldDays);
  EXPECT_EQ(Chart().ColumnCount(), 0);
}

TEST_F(DrawingTest, RefusedChartBringsNoScreenUpAndLeavesNoOldPicture) {
  SelectColumns(2, 2);
  Graph();
  frmGraph.lblboxdate.SetCaption("Last X: 01/01/01");
  frmMain.tools.cmdShowMain.RaiseClick();
  SheetAt(1).selection.clear();
  Graph();
  EXPECT_EQ(dialogs.Texts(), (Texts{"Please select a fund on the Graph Data tab"}));
  EXPECT_EQ(host.front, &frmTab);
  EXPECT_EQ(Chart().ColumnCount(), 0);
  EXPECT_EQ(frmGraph.lblboxdate.Caption(), "");
  EXPECT_FALSE(frmMain.pnlAction.Visible());
}

TEST_F(DrawingTest, BarWaitsForTheFirstChartAndARedrawBeforeItEndsAtTheNewestDay) {
  EXPECT_FALSE(bar.Enabled());
  SelectColumns(2, 3);
  frmMain.periods.mnuTimePeriod[0].RaiseClick();
  EXPECT_TRUE(bar.Usable());
  EXPECT_EQ(bar.Value(), kWorldDays);
  EXPECT_EQ(bar.Max(), kWorldDays);
  EXPECT_EQ(bar.Min(), 1);
  EXPECT_EQ(Chart().ColumnCount(), 2);
  EXPECT_EQ(Chart().RowLabelAt(Chart().rowcount()), "10/27/01");
  // One more day in the service: the bar waits for a chart again, and then reaches it.
  quoteline.SetDays(SerialFromDate({2001, 1, 1}), kWorldDays + 1);
  Load();
  EXPECT_FALSE(bar.Enabled());
  SelectColumns(2, 2);
  frmTab.optOneAll.SetListIndex(1);
  frmMain.tools.cmdNext.RaiseClick();
  EXPECT_EQ(bar.Value(), kWorldDays + 1);
}

TEST_F(DrawingTest, WheelStepsThroughThePeriodsAsTheMenuDoes) {
  SelectColumns(2, 2);
  frmMain.ChangeTimePeriod(-1);
  EXPECT_EQ(state.selection.TimePeriodIndex, 2);
  EXPECT_TRUE(frmMain.periods.mnuTimePeriod[2].Checked());
  EXPECT_FALSE(frmMain.periods.mnuTimePeriod[3].Checked());
  frmMain.ChangeTimePeriod(50);
  EXPECT_EQ(state.selection.TimePeriodIndex, kAll);
  EXPECT_EQ(Chart().rowcount(), kWorldDays - 1);
  frmTab.cboDataType.SetListIndex(0);
  frmMain.ChangeTimePeriod(-1);
  EXPECT_EQ(state.selection.TimePeriodIndex, kAll);
}

TEST_F(DrawingTest, AnotherKindOfDataForgetsTheFundsOfTheChart) {
  SelectColumns(2, 3);
  Graph();
  frmTab.cboDataType.SetListIndex(0);
  SheetAt(1).MaxCol = 5;  // a result file, with what its reader left selected
  SheetAt(1).Select({3, 5, 3, 5});
  bar.SetValue(150);
  EXPECT_EQ(dialogs.Texts(), (Texts{"Please select a fund on the Graph Data tab"}));
  EXPECT_EQ(Chart().ColumnCount(), 0);
}

TEST_F(DrawingTest, StepsThroughTheFundsAroundTheEnds) {
  SelectColumns(2, 3);
  frmTab.optOneAll.SetListIndex(1);
  Graph();
  Texts drawn{Chart().ColumnLabelAt(1)};
  for (Button* button : {&frmMain.tools.cmdNext, &frmMain.tools.cmdNext, &frmMain.tools.cmdPrev}) {
    button->RaiseClick();
    drawn.push_back(Chart().ColumnLabelAt(1));
  }
  EXPECT_EQ(drawn, (Texts{"AAA", "BBB", "AAA", "BBB"}));
}

TEST_F(DrawingTest, ClickOnAPointTellsDayAndValue) {
  SelectColumns(2, 3);
  Graph();
  PointSelection point{.Series = 2, .DataPoint = 3};
  frmGraph.VtChart1.RaisePointSelected(point);
  // Point 3 of a chart from day 117 on is day 119, 29 April 2001: 50 - 0.125 x 118.
  EXPECT_EQ(dialogs.Texts(), (Texts{"NAV on 04/29/01 was 35.25"}));
  frmTab.cboDataType.SetListIndex(0);
  frmGraph.VtChart1.RaisePointSelected(point);
  EXPECT_TRUE(point.Cancel);
  EXPECT_EQ(dialogs.messages.size(), 1U);
}

TEST_F(DrawingTest, CandlesAlwaysEndAtTheNewestDayWhenGraphed) {
  SelectColumns(2, 3);
  frmTab.cboGraphType.SetListIndex(3);
  frmMain.ChooseTimePeriod(0);
  int changes = 0;
  frmGraph.VtChart1.view.SetObserver([&] { ++changes; });
  Graph();
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(bar.Value(), kWorldDays);
  EXPECT_EQ(Chart().ColumnCount(), 8);
  EXPECT_EQ(Chart().Plot.Series(1).SeriesType, kSeriesCandleBar);
  // Day 300 is a Saturday, 27 October: the newest week ended the day before.
  const int weeks = Chart().rowcount() - 1;
  EXPECT_EQ(Chart().RowLabelAt(weeks), "10/26/01");
  bar.SetValue(200);
  EXPECT_EQ(Chart().RowLabelAt(Chart().rowcount() - 1), "07/13/01");
  frmTab.optOneAll.SetListIndex(1);
  frmMain.tools.cmdNext.RaiseClick();
  EXPECT_EQ(Chart().ColumnCount(), 4);
  EXPECT_EQ(Chart().ColumnLabelAt(1), "BBB");
  Graph();
  EXPECT_EQ(bar.Value(), kWorldDays);
}

TEST_F(DrawingTest, BoxesKeepTheBarsDayAndSayWhenTheLastOnesCame) {
  SelectColumns(2, 3);
  frmTab.cboGraphType.SetListIndex(4);
  Graph();
  const Label& dates = frmGraph.lblboxdate;
  EXPECT_EQ(Chart().TitleText, "Point & Figure");
  EXPECT_EQ(dates.Caption(), "Last X: 10/27/01 Last O: ");
  const Place& chart = frmGraph.VtChart1.Where();
  EXPECT_LE(*dates.Where().Top + *dates.Where().Height,
            *chart.Height * static_cast<float>(Chart().facts.covered_top))
      << "the plot begins below the dates";
  bar.SetValue(200);
  EXPECT_EQ(dates.Caption(), "Last X: 07/19/01 Last O: ");
  frmMain.tools.cmdGraph.RaiseClick();
  EXPECT_EQ(bar.Value(), 200);
  EXPECT_EQ(Chart().ColumnLabelAt(1), "AAA");
  // A box value that no level can grow by is told, and the old dates go with the old boxes.
  state.point_and_figure.PfBox[0] = 0.0F;
  frmMain.periods.mnuTimePeriod[0].RaiseClick();
  EXPECT_EQ(dialogs.messages.size(), 1U);
  EXPECT_EQ(Chart().ColumnCount(), 0);
  EXPECT_EQ(dates.Caption(), "");
  state.point_and_figure.PfBox[0] = 1.0F;
  frmMain.periods.mnuTimePeriod[1].RaiseClick();
  EXPECT_NE(dates.Caption(), "");
  frmTab.cboGraphType.SetListIndex(0);
  bar.SetValue(150);  // a line chart has no boxes to date
  EXPECT_EQ(dates.Caption(), "");
}

TEST_F(DrawingTest, RightClickOnASummaryRowChartsItsIssue) {
  frmMain.tools.cmdShowData.RaiseClick();
  state.table.SetActiveSheet(2);
  frmData.F1Book1.RaiseClick(1, 1);  // ascending
  frmData.F1Book1.RaiseClick(1, 0);  // descending: CCC comes first
  EXPECT_EQ(Cell(2, 2, 1), "CCC");
  EXPECT_EQ(Cell(2, 1, 1), "Symbol");
  frmData.F1Book1.RaiseRClick(2, 5);
  EXPECT_EQ(Chart().ColumnLabelAt(1), "CCC");
  EXPECT_EQ(state.table.ActiveSheet(), 2);
  frmData.F1Book1.RaiseRClick(200, 1);
  EXPECT_TRUE(dialogs.messages.empty());
}

}  // namespace
}  // namespace vistaplot::test
