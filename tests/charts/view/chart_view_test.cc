#include "charts/view/chart_view.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "charts/view/palette.h"

namespace vistaplot {
namespace {

/// A chart of this size whose points are empty.
ChartView Sized(int rows, int columns) {
  ChartView view;
  view.rowcount(rows);
  view.ColumnCount(columns);
  return view;
}

TEST(ChartView, KeepsWhatStaysInsideWhenTheGridIsSized) {
  ChartView view = Sized(2, 2);
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
  EXPECT_FALSE(view.HasPoint(2, 2) || view.HasPoint(4, 1));
  EXPECT_EQ(view.RowLabelAt(1) + view.RowLabelAt(2) + view.RowLabelAt(4), "R101/05/90R4");
  EXPECT_EQ(view.ColumnLabelAt(2), "C2");
  EXPECT_TRUE(view.Plot.Series(2).showline);
  EXPECT_EQ(view.Plot.Series(2).Pen.VtColor, DefaultSeriesColor(2));
}

TEST(ChartView, IgnoresWhatLiesOutsideTheGrid) {
  ChartView view = Sized(1, 1);
  view.SetData(2, 1, 1.0, false);
  view.SetData(1, 0, 1.0, false);
  view.SetRowLabel(2, "late");
  view.rowcount(2);
  EXPECT_FALSE(view.HasPoint(2, 1));
  EXPECT_TRUE(std::isnan(view.DataAt(3, 1)));
  EXPECT_EQ(view.RowLabelAt(2) + view.RowLabelAt(3), "R2");
}

TEST(ChartView, DrawsNeitherEmptyNorInfinitePoints) {
  ChartView view = Sized(3, 1);
  view.SetData(1, 1, 0.0, false);
  view.SetData(2, 1, std::numeric_limits<double>::infinity(), false);
  view.SetData(3, 1, 7.0, false);
  view.SetData(3, 1, 7.0, true);
  EXPECT_TRUE(view.HasPoint(1, 1));
  EXPECT_FALSE(view.HasPoint(2, 1) || view.HasPoint(3, 1));
  view.EmptyAllPoints();
  EXPECT_FALSE(view.HasPoint(1, 1));
}

TEST(ChartView, LeavesNothingOfAnEarlierChart) {
  ChartView view = Sized(2, 1);
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
  EXPECT_EQ(view.title.VtFont.Size, 12.0);
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

TEST(Palette, ContrastIsThatOfTheGuidelines) {
  EXPECT_NEAR(Contrast({0, 0, 0}, {255, 255, 255}), 21.0, 1e-9);
  EXPECT_NEAR(Contrast({255, 255, 255}, {119, 119, 119}), 4.48, 0.005);
  EXPECT_EQ(Contrast({9, 9, 9}, {9, 9, 9}), 1.0);
  EXPECT_EQ(InkOn(LightTheme(), {0, 98, 178}), (PictureColor{0, 98, 178, 255}));
}

TEST(Palette, EveryColourIsSeenOnBothGrounds) {
  for (int s = 2; s <= 30; ++s) {
    for (int other = 1; other < s; ++other) {
      EXPECT_NE(DefaultSeriesColor(s), DefaultSeriesColor(other)) << s << " " << other;
    }
  }
  for (const ChartTheme& theme : {LightTheme(), DarkTheme()}) {
    for (int s = 1; s <= 60; ++s) {
      EXPECT_GE(Contrast(InkOn(theme, DefaultSeriesColor(s)), theme.background), kLeastContrast)
          << s << (theme.dark ? " dark" : " light");
    }
    for (const ChartColor& pure : {ChartColor{0, 0, 255},
                                   ChartColor{255, 0, 0},
                                   ChartColor{0, 255, 10},
                                   ChartColor{255, 10, 0}}) {
      const PictureColor ink = InkOn(theme, pure);
      EXPECT_GE(Contrast(ink, theme.background), kLeastContrast);
      // Its hue stays: the channel that led still leads.
      EXPECT_EQ(pure.blue == 255, ink.blue > ink.red && ink.blue > ink.green);
      EXPECT_EQ(pure.green == 255, ink.green > ink.red && ink.green > ink.blue);
    }
  }
}

}  // namespace
}  // namespace vistaplot
