#include "charts/view/chart_view.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "charts/view/palette.h"

namespace vistaplot {
namespace {

TEST(ChartView, KeepsWhatStaysInsideWhenTheGridIsSized) {
  ChartView view;
  view.rowcount(2);
  view.ColumnCount(2);
  view.SetData(2, 1, 0.5, false);
  view.SetData(2, 2, 0.75, false);
  view.row(2);
  view.RowLabel("01/05/90");
  view.Column(2);
  view.ColumnLabel("AAA");
  view.Plot.Series(2).showline = false;

  view.rowcount(4);
  view.ColumnCount(1);
  view.ColumnCount(2);

  EXPECT_EQ(view.DataAt(2, 1), 0.5);
  EXPECT_FALSE(view.HasPoint(2, 2));
  EXPECT_FALSE(view.HasPoint(4, 1));
  EXPECT_EQ(view.RowLabelAt(1), "R1");
  EXPECT_EQ(view.RowLabelAt(2), "01/05/90");
  EXPECT_EQ(view.RowLabelAt(4), "R4");
  EXPECT_EQ(view.ColumnLabelAt(2), "C2");
  EXPECT_TRUE(view.Plot.Series(2).showline);
  EXPECT_EQ(view.Plot.Series(2).Pen.VtColor, DefaultSeriesColor(2));
}

TEST(ChartView, IgnoresWhatLiesOutsideTheGrid) {
  ChartView view;
  view.rowcount(1);
  view.ColumnCount(1);
  view.SetData(2, 1, 1.0, false);
  view.SetData(1, 0, 1.0, false);
  view.SetRowLabel(2, "late");
  view.rowcount(2);
  EXPECT_FALSE(view.HasPoint(2, 1));
  EXPECT_TRUE(std::isnan(view.DataAt(3, 1)));
  EXPECT_EQ(view.RowLabelAt(2), "R2");
  EXPECT_EQ(view.RowLabelAt(3), "");
}

TEST(ChartView, DrawsNeitherEmptyNorInfinitePoints) {
  ChartView view;
  view.rowcount(3);
  view.ColumnCount(1);
  view.SetData(1, 1, 0.0, false);
  view.SetData(2, 1, std::numeric_limits<double>::infinity(), false);
  view.SetData(3, 1, 7.0, false);
  view.SetData(3, 1, 7.0, true);
  EXPECT_TRUE(view.HasPoint(1, 1));
  EXPECT_FALSE(view.HasPoint(2, 1));
  EXPECT_FALSE(view.HasPoint(3, 1));
  view.EmptyAllPoints();
  EXPECT_FALSE(view.HasPoint(1, 1));
}

TEST(ChartView, LeavesNothingOfAnEarlierChart) {
  ChartView view;
  view.rowcount(2);
  view.ColumnCount(1);
  view.SetData(1, 1, 3.0, false);
  view.SetRowLabel(1, "old");
  view.title.VtFont.Size = 12.0;
  view.Plot.Axis[1].AxisScale.Hide = true;
  view.ToDefaults();
  EXPECT_EQ(view.rowcount(), 0);
  EXPECT_TRUE(view.Plot.SeriesCollection.empty());
  view.rowcount(2);
  view.ColumnCount(1);
  EXPECT_FALSE(view.HasPoint(1, 1));
  EXPECT_EQ(view.RowLabelAt(1), "R1");
  EXPECT_EQ(view.title.VtFont.Size, ChartText{}.VtFont.Size);
  EXPECT_FALSE(view.Plot.Axis[1].AxisScale.Hide);
}

TEST(ChartView, RelabelsWithLongerAndShorterTexts) {
  ChartView view;
  view.rowcount(3);
  for (const char* text :
       {"10", "Longer than fifteen letters", "Another one of such length", "5"}) {
    view.SetRowLabel(2, text);
    EXPECT_EQ(view.RowLabelAt(2), text);
  }
  view.SetRowLabel(3, "The longest of all labels");
  view.SetRowLabel(1, "exactly 15 long");
  EXPECT_EQ(view.RowLabelAt(1), "exactly 15 long");
  EXPECT_EQ(view.RowLabelAt(2), "5");
}

TEST(ChartView, KeepsPointsWithSettingsInOrder) {
  ChartDataPoints points;
  for (const int point : {5, 9, 2}) points.Item(point).Marker.Size = point;
  points.Item(5).Marker.Visible = true;
  ASSERT_EQ(points.items.size(), 3U);
  EXPECT_EQ(points.items[0].first, 2);
  EXPECT_EQ(points.items[1].second.Marker.Size, 5.0);
  EXPECT_TRUE(points.items[1].second.Marker.Visible);
  EXPECT_EQ(points.items[2].first, 9);
}

TEST(ChartView, TellsItsObserverOnceForAPause) {
  ChartView view;
  int told = 0;
  view.SetObserver([&] { ++told; });
  {
    const RedrawPause pause(view);
    view.Refresh();
    view.Refresh();
    EXPECT_EQ(told, 0);
  }
  EXPECT_EQ(told, 1);
  view.SuspendRedraw(false);
  EXPECT_EQ(told, 1);
  view.Refresh();
  EXPECT_EQ(told, 2);
}

}  // namespace
}  // namespace vistaplot
