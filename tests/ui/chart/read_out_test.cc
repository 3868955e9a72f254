#include "ui/chart/read_out.h"

#include <gtest/gtest.h>

#include "charts/view/palette.h"
#include "support/chart_pictures.h"
#include "ui/chart/crosshair.h"

namespace vistaplot {
namespace {

using namespace test;

TEST(ReadOut, ARebasedChartReadsChangesAndPrices) {
  ChartView view = LineChart({{0.0, 0.123456}, {0.0, -0.05}, {0.0, kGap}, {0.0, -0.00001}});
  view.SetColumnLabel(1, " AAA ");
  const PointText price = [](int series, int point) {
    return series == 2 ? "47.5@" + std::to_string(point) : std::string();
  };
  const ReadOut read_out = ReadRow(view, 2, price, false);
  EXPECT_EQ(LineText(read_out), "d2, AAA +12.35%, C2 47.5@2 −5.00%, C3 –, C4 0.00%");
  EXPECT_EQ(ListText(read_out), "d2\nAAA +12.35%\nC2 47.5@2 −5.00%\nC3 –\nC4 0.00%");
  EXPECT_EQ(read_out.entries[1].mark, InkOn(LightTheme(), DefaultSeriesColor(2)));
}

TEST(ReadOut, OtherChartsReadTheirValues) {
  ChartView view = LineChart({{0.5, -1234.5, 2.5e9}});
  view.TitleText = "HURST";
  const PointText price = [](int, int) { return std::string("99"); };
  EXPECT_EQ(LineText(ReadRow(view, 1, price, false)), "d1, C1 0.5");
  EXPECT_EQ(LineText(ReadRow(view, 2, price, false)), "d2, C1 −1234.5");
  EXPECT_EQ(LineText(ReadRow(view, 3, price, false)), "d3, C1 2.5e+09");
}

TEST(ReadOut, ChartsTellFromWhereTheirHistoriesHaveEnded) {
  std::vector<double> ended(30, 0.25);
  std::vector<double> longer(30, 0.5);
  ended[3] = 0.1;
  longer[12] = 0.4;
  EXPECT_EQ(QuietFrom(LineChart({ended})), 5);
  EXPECT_EQ(QuietFrom(LineChart({ended, longer})), 14);
  std::vector<double> flat(30, -4.2e-8);
  flat[0] = 0.0;
  EXPECT_EQ(QuietFrom(LineChart({flat})), 1) << "the rounding of the base is no change";
  longer[28 - kQuietRows] = 0.4;
  EXPECT_EQ(QuietFrom(LineChart({longer})), 30 - kQuietRows) << "just long enough";
  longer[29 - kQuietRows] = 0.4;
  EXPECT_EQ(QuietFrom(LineChart({ended, longer})), 0) << "one of them goes on";
  EXPECT_EQ(QuietFrom(LineChart({std::vector<double>(30, kGap)})), 0) << "not begun yet";
  EXPECT_EQ(QuietFrom(ChartView()), 0);
}

TEST(CrossHair, WalksThePointsOfAnXyChartFromLeftToRight) {
  ChartView view = LineChart({{8.0, 2.0, kGap, 4.0}, {1.0, 2.0, 3.0, 4.0}});
  view.ChartType = kChartXY;
  view.TitleText = "POWER";
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
  EXPECT_EQ(LineText(ReadRow(view, cross_hair.Row(), {}, false)), "4, C1 4");
}

}  // namespace
}  // namespace vistaplot
