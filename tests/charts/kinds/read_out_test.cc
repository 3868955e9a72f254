// What is read at a point of a chart and how the point is found; bands and marks of its values.
#include "charts/kinds/read_out.h"

#include <gtest/gtest.h>

#include <cmath>

#include "charts/kinds/cross_hair.h"
#include "charts/kinds/kind.h"
#include "charts/kinds/value_bands.h"
#include "charts/kinds/value_range.h"
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

std::string HitText(const std::optional<ChartHit>& hit) {
  if (!hit) return "none";
  return std::to_string(hit->series) + "/" + std::to_string(hit->point);
}

TEST(HitTest, TheNearerPointOfALineUnderThePointerIsMeant) {
  // Two lines far apart over five rows; row 4 of the first is missing.
  const ChartView view = LineChart({{0.0, 0.0, 0.0, kGap, 0.0}, {0.5, 0.5, 0.5, 0.5, 0.9}});
  const ChartPicture picture = LayOut(view);
  struct Case {
    double position, value;
    const char* hit;
  };
  for (const Case& c : {Case{1.0, 0.0, "1/1"},
                        Case{1.4, 0.0, "1/1"},
                        Case{1.6, 0.0, "1/2"},
                        Case{1.6, 0.5, "2/2"},
                        Case{3.5, 0.0, "none"},  // the gap
                        Case{3.4, 0.5, "2/3"},
                        Case{4.6, 0.74, "2/5"},   // on the slope
                        Case{2.0, 0.25, "none"},  // between the lines
                        Case{5.0, 0.0, "1/5"}}) {
    const PicturePoint at{picture.scale.X(c.position), picture.scale.Y(c.value)};
    EXPECT_EQ(HitText(FindPoint(view, picture, at)), c.hit) << c.position << " " << c.value;
  }
  EXPECT_EQ(HitText(FindPoint(view, picture, {1.0, 1.0})), "none");
}

TEST(HitTest, MarkersCountAlone) {
  ChartView view = LineChart({{1.0, 5.0, 3.0}, {1.0, 1.0, 9.0}});
  view.ChartType = kChartXY;
  view.Plot.Series(1).showline = false;
  const ChartPicture picture = LayOut(view);
  const auto hit_at = [&](double x, double y) {
    return HitText(FindPoint(view, picture, {picture.scale.X(x) + 3.0, picture.scale.Y(y) - 3.0}));
  };
  EXPECT_EQ(hit_at(3.0, 9.0), "1/3");
  EXPECT_EQ(hit_at(3.0, 1.0), "none");
}

TEST(HitTest, RegionsComeFirstAndTheTopmostOneWins) {
  const ChartView view = LineChart({{0.0, 0.1}});
  ChartPicture picture = LayOut(view);
  picture.regions = {{{100, 100, 200, 200}, 1, 1}, {{150, 100, 250, 200}, 2, 7}};
  EXPECT_EQ(HitText(FindPoint(view, picture, {160, 150})), "2/7");
  EXPECT_EQ(HitText(FindPoint(view, picture, {120, 150})), "1/1");
}

TEST(ValueBands, HaveRoundStepsAndAboutTenOfThem) {
  struct Case {
    double lowest, highest, first, step;
    int count;
  };
  for (const Case& c : {Case{0, 10, 0, 1, 10},
                        Case{3.1, 21.7, 2.5, 2.5, 8},
                        Case{-0.02, 0.074, -0.02, 0.01, 10},
                        Case{1000, 1250, 1000, 25, 10},
                        Case{0, 6, 0, 0.5, 12}}) {
    const ValueBands bands = BandsOf(c.lowest, c.highest);
    EXPECT_NEAR(bands.first, c.first, 1e-12);
    EXPECT_DOUBLE_EQ(bands.step, c.step);
    EXPECT_EQ(bands.count, c.count);
  }
  for (double highest = 1.01; highest < 10.0; highest += 0.173) {
    const ValueBands bands = BandsOf(0.37, highest);
    EXPECT_GE(bands.count, 6) << highest;
    EXPECT_LE(bands.count, 13) << highest;
    EXPECT_LE(bands.LowerLimit(0), 0.37);
    EXPECT_GE(bands.LowerLimit(bands.count), highest);
  }
}

TEST(ValueBands, ValuesOnALimitBelongToTheBandAbove) {
  const ValueBands bands = BandsOf(0, 10);
  EXPECT_EQ(bands.BandOf(3.0), 3);
  EXPECT_EQ(bands.BandOf(2.999), 2);
  EXPECT_EQ(bands.BandOf(10.0), 9);
  EXPECT_EQ(bands.BandOf(-5.0), 0);
  EXPECT_EQ(BandsOf(4, 4).count, 1);
}

double Luminance(PictureColor color) {
  const auto linear = [](int level) {
    const double part = level / 255.0;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

TEST(RampColor, LightnessRisesSteadilyAndKeepsClearOfTheGround) {
  for (const bool dark : {false, true}) {
    double before = -1.0;
    for (int i = 0; i <= 20; ++i) {
      const double light = Luminance(RampColor(i / 20.0, dark));
      EXPECT_GT(light, before);
      before = light;
    }
  }
  const double paper = 1.0;
  EXPECT_GE((paper + 0.05) / (Luminance(RampColor(1.0, false)) + 0.05), 1.3);
  const double night = Luminance({24, 27, 32});
  EXPECT_GE((Luminance(RampColor(0.0, true)) + 0.05) / (night + 0.05), 1.3);
}

TEST(ValueMarks, StepsAreRound) {
  struct Case {
    double span, most, step;
  };
  for (const Case& c : {Case{1.0, 10, 0.1},
                        Case{0.45, 9, 0.05},
                        Case{2.3, 10, 0.25},
                        Case{47.0, 5, 10.0},
                        Case{60000.0, 8, 10000.0},
                        Case{0.009, 4, 0.0025},
                        Case{3.0, 1, 5.0}}) {
    EXPECT_DOUBLE_EQ(RoundStep(c.span, static_cast<int>(c.most)), c.step)
        << c.span << " in " << c.most;
  }
}

TEST(ValueMarks, TextsSayWhatTheValuesAre) {
  struct Case {
    double value, step;
    ValueUnit unit;
    const char* text;
  };
  for (const Case& c : {Case{0.1, 0.1, ValueUnit::kChange, "+10%"},
                        Case{0.0, 0.025, ValueUnit::kChange, "0%"},
                        Case{-0.025, 0.025, ValueUnit::kChange, "−2.5%"},
                        Case{350.0, 50.0, ValueUnit::kChange, "+35000%"},
                        Case{1.1, 0.1, ValueUnit::kRatio, "+10%"},
                        Case{0.95, 0.05, ValueUnit::kRatio, "−5%"},
                        Case{0.5, 0.25, ValueUnit::kPlain, "0.50"},
                        Case{-3.0, 1.0, ValueUnit::kPlain, "−3"},
                        Case{2.5e6, 5e5, ValueUnit::kPlain, "2.5M"},
                        Case{5e5, 5e5, ValueUnit::kPlain, "500000"}}) {
    EXPECT_EQ(MarkText(c.value, c.step, c.unit), c.text);
  }
}

}  // namespace
}  // namespace vistaplot
