#include "charts/kinds/read_out.h"

#include <gtest/gtest.h>

#include "charts/kinds/cross_hair.h"
#include "charts/view/palette.h"
#include "support/chart_pictures.h"

namespace vistaplot {
namespace {

using namespace test;

TEST(ReadOut, ARebasedChartReadsChangesAndPrices) {
  ChartView view = LineChart({{0.0, 0.123456}, {0.0, -0.05}, {0.0, kGap}, {0.0, -0.00001}});
  view.SetColumnLabel(1, " AAA ");
  view.facts.Series(2).base = 50.0;
  const ReadOut read_out = ReadRow(view, 2, false);
  EXPECT_EQ(LineText(read_out), "d2, AAA +12.35%, C2 47.5 −5.00%, C3 –, C4 0.00%");
  EXPECT_EQ(ListText(read_out), "d2\nAAA +12.35%\nC2 47.5 −5.00%\nC3 –\nC4 0.00%");
  EXPECT_EQ(read_out.entries[1].mark, InkOn(LightTheme(), DefaultSeriesColor(2)));
  EXPECT_TRUE(LineText(ReadRow(view, 3, false)).empty()) << "no such row";
}

TEST(ReadOut, NumbersComeWithTheirTexts) {
  ChartView view = LineChart({{0.0, 0.1}, {0.0, 0.26}, {0.0, kGap}});
  view.facts.Series(1).base = 23.47F;
  view.facts.Series(2) = {.name = "AAA upper band 20",
                          .role = SeriesRole::kUpperBand,
                          .parent = 1,
                          .base = 23.47F,
                          .last_price_row = {}};
  const ReadOut read_out = ReadRow(view, 2, false);
  const ReadOutValue& price = read_out.entries[0].values.at(0);
  EXPECT_EQ(price.value, 25.817) << "as the seven digits of a single-precision price";
  EXPECT_EQ(price.percent, 10.0);
  const ReadOutValue& band = read_out.entries[1].values.at(0);
  EXPECT_EQ(band.name, "AAA upper band 20");
  EXPECT_NEAR(band.value, 29.5722, 1e-6);
  EXPECT_EQ(band.text, "29.572 +26.00%") << "computed: five digits";
  EXPECT_EQ(read_out.entries[1].mark, read_out.entries[0].mark) << "its fund's hue";
  EXPECT_TRUE(read_out.entries[2].values.empty());
}

TEST(ReadOut, OtherChartsReadTheirValues) {
  ChartView view = LineChart({{0.5, -1234.5, 2.5e9}});
  view.facts.unit = ValueUnit::kPlain;
  view.facts.Series(1).base = 99.0;
  EXPECT_EQ(LineText(ReadRow(view, 1, false)), "d1, C1 0.5");
  EXPECT_EQ(LineText(ReadRow(view, 2, false)), "d2, C1 −1234.5");
  EXPECT_EQ(LineText(ReadRow(view, 3, false)), "d3, C1 2.5e+09");
  EXPECT_FALSE(ReadRow(view, 1, false).entries[0].values[0].percent);
  view.facts.unit = ValueUnit::kCoefficient;
  EXPECT_EQ(LineText(ReadRow(view, 1, false)), "d1, C1 0.500");
}

TEST(ReadOut, ASpectrumReadsPeriodAndPower) {
  ChartView view = LineChart({{0.0, 0.412}});
  view.SetRowLabel(2, "23");
  view.facts.unit = ValueUnit::kPower;
  view.facts.row_name = "period";
  view.facts.Series(1).name = "power";
  EXPECT_EQ(LineText(ReadRow(view, 2, false)), "period 23, power 0.41");
}

TEST(ReadOut, DaysBehindTheLastRealOneAreNumbered) {
  ChartView view = LineChart({{0.0, 0.1, 0.2, 0.3}});
  view.facts.last_real_row = 2;
  view.facts.Series(1).base = 1427.09;
  view.SetRowLabel(4, " ");
  const ReadOut predicted = ReadRow(view, 4, false);
  EXPECT_EQ(predicted.at, "forecast day 2");
  EXPECT_EQ(predicted.entries[0].text, "1855.22 +30.00%") << "computed: two decimals";
  EXPECT_EQ(LineText(ReadRow(view, 2, false)), "d2, C1 1569.799 +10.00%");
}

TEST(ReadOut, ChartsTellFromWhereTheirHistoriesHaveEnded) {
  ChartView view = LineChart({std::vector<double>(30, 0.25), std::vector<double>(30, 0.5)});
  EXPECT_EQ(HistoriesEnd(view), std::nullopt);
  view.facts.Series(1).last_price_row = 5;
  EXPECT_EQ(HistoriesEnd(view), std::nullopt) << "one of them goes on";
  view.facts.Series(2).last_price_row = 14;
  EXPECT_EQ(HistoriesEnd(view), 14);
  view.facts.Series(2).last_price_row = 30;
  EXPECT_EQ(HistoriesEnd(view), std::nullopt) << "not to be seen on this chart";
  view.facts.Series(1).last_price_row = -400;
  view.facts.Series(2).last_price_row = 0;
  EXPECT_EQ(HistoriesEnd(view), 0) << "before its first row";
  EXPECT_EQ(HistoriesEnd(ChartView()), std::nullopt);
}

TEST(CrossHair, WalksThePointsOfAnXyChartFromLeftToRight) {
  ChartView view = LineChart({{8.0, 2.0, kGap, 4.0}, {1.0, 2.0, 3.0, 4.0}});
  view.ChartType = kChartXY;
  view.facts.unit = ValueUnit::kPlain;
  CrossHair cross_hair;
  cross_hair.Follow(view);
  EXPECT_TRUE(cross_hair.GoToFirst());
  std::vector<int> rows{cross_hair.Row()};
  while (cross_hair.Step(1)) rows.push_back(cross_hair.Row());
  EXPECT_EQ(rows, (std::vector<int>{2, 4, 1}));
  EXPECT_TRUE(cross_hair.SnapTo(5.9));
  EXPECT_EQ(cross_hair.Row(), 4);
  EXPECT_EQ(cross_hair.Position(), 4.0);
  EXPECT_FALSE(cross_hair.GoToRow(3));
  EXPECT_EQ(LineText(ReadRow(view, cross_hair.Row(), false)), "4, C1 4");
}

// Columns of boxes: X from 10 to 12 in column 1, O from 11 down to 8 in column 2, X at 9 in
// column 4.
StopList Boxes() {
  return StopList({{1.0, 1, 0, 10.0},
                   {1.0, 2, 0, 11.0},
                   {1.0, 3, 0, 12.0},
                   {4.0, 4, 0, 9.0},
                   {2.0, 5, 0, 11.0},
                   {2.0, 6, 0, 9.5},
                   {2.0, 7, 0, 8.0}},
                  /*stacked=*/true);
}

int RowBeside(const StopList& stops, int row, int steps) {
  return stops.At(stops.Beside(stops.Find(row), steps)).row;
}

int RowAbove(const StopList& stops, int row, int steps) {
  return stops.At(stops.Above(stops.Find(row), steps)).row;
}

TEST(Stops, KeysGoFromColumnToColumnAndWithinOne) {
  const StopList stops = Boxes();
  EXPECT_EQ(RowBeside(stops, 3, 1), 5) << "the box of the next column at the nearest level";
  EXPECT_EQ(RowBeside(stops, 1, 1), 6);
  EXPECT_EQ(RowBeside(stops, 7, 1), 4) << "over a column without boxes";
  EXPECT_EQ(RowBeside(stops, 4, -2), 1);
  EXPECT_EQ(RowBeside(stops, 4, 1), 4) << "the last column";
  EXPECT_EQ(RowBeside(stops, 2, -9), 2);
  EXPECT_EQ(RowAbove(stops, 6, 1), 5);
  EXPECT_EQ(RowAbove(stops, 5, 1), 5) << "the top of its column";
  EXPECT_EQ(RowAbove(stops, 3, -5), 1);
}

TEST(Stops, ThePointerFindsTheNearestColumnThenTheNearestLevel) {
  const StopList stops = Boxes();
  EXPECT_EQ(stops.At(stops.Nearest(2.3, 8.6)).row, 7);
  EXPECT_EQ(stops.At(stops.Nearest(2.3, 50.0)).row, 5);
  EXPECT_EQ(stops.At(stops.Nearest(3.4, 50.0)).row, 4);
  EXPECT_EQ(stops.At(stops.Nearest(-7.0, 10.4)).row, 1);
  EXPECT_EQ(StopList().Nearest(1.0, 0.0), -1);
}

}  // namespace
}  // namespace vistaplot
