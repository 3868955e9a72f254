// Averages, parabolic stop, bands, candles, point and figure. The values of the walk come from a
// separate program that rounds every operation to single precision.
#include <gtest/gtest.h>

#include <vector>

#include "analytics/ama.h"
#include "analytics/bollinger.h"
#include "analytics/candles.h"
#include "analytics/ema.h"
#include "analytics/parabolic.h"
#include "analytics/point_figure.h"
#include "support/indicator_prices.h"

namespace vistaplot {
namespace {

using test::HundredDays;
using test::PriceHistory;

constexpr float kTolerance = 1e-6F;  // a few roundings of values near 10

void ExpectSeries(const std::vector<float>& series, const std::vector<float>& expected) {
  ASSERT_EQ(series.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_NEAR(series[i], expected[i], 10.0F * kTolerance) << "day " << i + 1;
  }
}

/// Chart days 2, 50 and 100.
std::vector<float> ThreeDays(const std::vector<float>& series) {
  return {series.at(1), series.at(49), series.at(99)};
}

TEST(Ema, StartsAtTheFirstPriceAndWeighsTheNewest) {
  const PriceHistory world{.prices = {-1, -1, 10, 11, -1}};
  ExpectSeries(ComputeEma(world.Chart(), 9), {-0.5F, -0.5F, 10.0F, 10.2F, 7.96F});
  EXPECT_EQ(ThreeDays(ComputeEma(HundredDays().Chart(), 50)),
            (std::vector<float>{45.3499985F, 47.7625732F, 53.5178604F}));
}

TEST(Ema, ReadsChartDaysAlone) {
  const PriceHistory world{.prices = {50, 60, 10, 11}, .history = 2};
  ExpectSeries(ComputeEma(world.Chart(), 9), {10.0F, 10.2F});
}

// A price of 0 is one; the last day is the seed of a fund without any.
TEST(Overlays, SeedOnTheFirstDayAtOrAboveZero) {
  const PriceHistory zero{.prices = {-1, 0, 10}};
  ExpectSeries(ComputeEma(zero.Chart(), 1), {-0.5F, 0.0F, 10.0F});
  const PriceHistory none{.prices = {-1, -1, -1}};
  for (const auto& series : {ComputeEma(none.Chart(), 5),
                             ComputeAma(none.Chart(), 5),
                             ComputeParabolic(none.Chart(), {})}) {
    ExpectSeries(series, {-0.5F, -0.5F, -1.0F});
  }
}

TEST(Overlays, AreZeroForALengthThatMakesNoSense) {
  const PriceHistory world{.prices = {10, 11}};
  for (const int days : {0, -1, -40000}) {
    ExpectSeries(ComputeEma(world.Chart(), days), {0, 0});
    ExpectSeries(ComputeAma(world.Chart(), days), {0, 0});
    ExpectSeries(ComputeBollinger(world.Chart(), days).middle, {0, 0});
  }
}

TEST(Ama, OfOneDayIsThePrice) {
  const PriceHistory world{.prices = {10, 12, 9, 15}};
  ExpectSeries(ComputeAma(world.Chart(), 1), {10, 12, 9, 15});
}

// N = 3, a = 0.5: E is 10, 11, 12.5; day 2: 0.5 (33 - 20) + 5, day 3: 0.5 (37.5 - 22) + 5.75.
TEST(Ama, AddsTheLatestChangeOfItsAverage) {
  const PriceHistory world{.prices = {10, 12, 14}};
  ExpectSeries(ComputeAma(world.Chart(), 3), {10.0F, 11.5F, 13.5F});
  EXPECT_EQ(ThreeDays(ComputeAma(HundredDays().Chart(), 150)),
            (std::vector<float>{45.3499985F, 47.6420212F, 53.1238708F}));
}

TEST(Parabolic, ReversesAtItsStopAndFollowsFasterAtNewExtremes) {
  const PriceHistory world{.prices = {10, 11, 12, 11.5, 9, 8, 8.5}};
  ExpectSeries(ComputeParabolic(world.Chart(), {}),
               {10.0F, 10.0F, 10.0F, 10.0402F, 10.07959198F, 12.0F, 11.9196F});
  EXPECT_EQ(ThreeDays(ComputeParabolic(HundredDays().Chart(), {})),
            (std::vector<float>{45.3499985F, 50.7814178F, 51.2088623F}));
}

// Falling from the start: short at first, so the first step turns to long, the second back.
TEST(Parabolic, LimitsItsFactor) {
  const PriceHistory world{.prices = {20, 18, 16, 14, 12}};
  const ParabolicSteps steps{.start = 0.5F, .most = 0.6F, .increase = 0.3F};
  // Day 4: extreme 16, factor 0.6, 20 + 0.6 (16 - 20); day 5: extreme 14, still 0.6.
  ExpectSeries(ComputeParabolic(world.Chart(), steps), {20.0F, 20.0F, 20.0F, 17.6F, 15.44F});
}

// N = 3: chart day 1 is made of the three days before it, itself not included.
TEST(Bollinger, TakesTheDaysBefore) {
  const PriceHistory world{.prices = {7, 1, 2, 3, 100, 100}, .history = 4};
  const BollingerBands bands = ComputeBollinger(world.Chart(), 3);
  // 1, 2, 3: mean 2, deviation sqrt(2/3). 2, 3, 100: mean 35, deviation sqrt(6338/3).
  ExpectSeries(bands.middle, {2.0F, 35.0F});
  EXPECT_NEAR(bands.upper[0], 2.0F + 2.0F * 0.81649658F, kTolerance);
  EXPECT_NEAR(bands.lower[0], 2.0F - 2.0F * 0.81649658F, kTolerance);
  EXPECT_NEAR(bands.upper[1], 35.0F + 2.0F * 45.963755F, 1e-4F);
}

TEST(Bollinger, OfOneSeparateProgram) {
  const PriceHistory world = HundredDays();
  const BollingerBands bands = ComputeBollinger(world.Chart(), 20);
  EXPECT_EQ(ThreeDays(bands.upper), (std::vector<float>{49.1793518F, 50.5831299F, 57.8697891F}));
  EXPECT_EQ(ThreeDays(bands.middle), (std::vector<float>{47.1924973F, 48.1679916F, 55.4599991F}));
  EXPECT_EQ(ThreeDays(bands.lower), (std::vector<float>{45.2056427F, 45.7528534F, 53.050209F}));
}

constexpr DateSerial kMonday = 32874;  // 1 January 1990

TEST(WeekEnds, AreFridaysOrThursdaysBeforeAHoliday) {
  // A whole week, one without its Friday, one without Thursday and Friday, a week to Thursday.
  const std::vector<DateSerial> dates = {kMonday,
                                         kMonday + 3,
                                         kMonday + 4,
                                         kMonday + 7,
                                         kMonday + 10,
                                         kMonday + 14,
                                         kMonday + 16,
                                         kMonday + 21,
                                         kMonday + 24};
  EXPECT_EQ(ComputeWeekEndFlags(dates), (std::vector<std::int16_t>{0, 0, 1, 0, 1, 0, 0, 0, 0}));
  EXPECT_EQ(ComputeWeekEndFlags(std::vector<DateSerial>{kMonday + 4}),
            std::vector<std::int16_t>{1});
}

void ExpectBar(const Candle& bar, const Candle& expected) {
  EXPECT_FLOAT_EQ(bar.open, expected.open);
  EXPECT_FLOAT_EQ(bar.high, expected.high);
  EXPECT_FLOAT_EQ(bar.low, expected.low);
  EXPECT_FLOAT_EQ(bar.close, expected.close);
  EXPECT_EQ(bar.day, expected.day);
}

TEST(WeeklyCandles, HoldOpenHighLowAndCloseRelativeToTheFirstPrice) {
  const std::vector<float> prices = {-1, 10, 12, 9, 11, 20, 0, 30};
  const std::vector<std::int16_t> week_ends = {0, 0, 0, 0, 1, 0, 1, 0};
  const WeeklyCandles candles = ComputeWeeklyCandles(prices, week_ends);
  EXPECT_EQ(candles.base, 10.0F);
  ASSERT_EQ(candles.bars.size(), 2U);  // the days behind the last week end are in none
  ExpectBar(candles.bars[0], {1.0F, 1.2F, 0.9F, 1.1F, 4});
  ExpectBar(candles.bars[1], {2.0F, 2.0F, 2.0F, 2.0F, 6});
}

TEST(WeeklyCandles, LeaveOutWeeksWithoutAPrice) {
  const std::vector<float> prices = {5, -1, 0, 6};
  const std::vector<std::int16_t> week_ends = {1, 1, 1, 1};
  const WeeklyCandles candles = ComputeWeeklyCandles(prices, week_ends);
  ASSERT_EQ(candles.bars.size(), 2U);
  EXPECT_EQ(candles.bars[1].day, 3);
  EXPECT_FLOAT_EQ(candles.bars[1].low, 1.2F);
  EXPECT_EQ(ComputeWeeklyCandles(std::vector<float>{-1, -1, -1, -1}, week_ends).base, 0.0F);
}

struct Boxes {
  std::vector<int> columns;
  std::vector<float> levels;
  std::vector<int> days;
};

Boxes Split(const std::vector<FigureBox>& boxes) {
  Boxes split;
  for (const FigureBox& box : boxes) {
    split.columns.push_back(box.column);
    split.levels.push_back(box.level);
    split.days.push_back(box.day);
  }
  return split;
}

void ExpectLevels(const std::vector<float>& levels, const std::vector<float>& expected) {
  ASSERT_EQ(levels.size(), expected.size());
  for (std::size_t i = 0; i < levels.size(); ++i) EXPECT_FLOAT_EQ(levels[i], expected[i]) << i;
}

TEST(BoxFor, TakesTheRangeOfTheLevel) {
  const PointFigureSettings settings;
  EXPECT_EQ(BoxFor(100.0F, settings), 1.0F);
  EXPECT_EQ(BoxFor(99.9F, settings), 0.4F);
  EXPECT_EQ(BoxFor(40.0F, settings), 0.4F);
  EXPECT_EQ(BoxFor(39.9999F, settings), 0.4F);  // within 1e-5 of the limit
  EXPECT_EQ(BoxFor(39.99F, settings), 0.2F);
  EXPECT_EQ(BoxFor(2.5F, settings), 0.1F);
  EXPECT_EQ(BoxFor(2.4F, settings), 0.05F);
}

// The box of the reference level serves all steps, across a limit too.
TEST(BoxLadders, LeadOneBoxOnAndRBack) {
  const PointFigureSettings settings;
  BoxLadders ladders = ComputeBoxLadders(39.8F, Direction::kNone, settings);
  ExpectLevels(ladders.up, {39.8F, 40.0F, 40.2F, 40.4F});
  ExpectLevels(ladders.down, {39.8F, 39.6F, 39.4F, 39.2F});
  ladders = ComputeBoxLadders(41.0F, Direction::kRising, settings);
  ExpectLevels(ladders.up, {41.0F, 41.4F, 41.4F, 41.4F});
  ExpectLevels(ladders.down, {41.0F, 40.6F, 40.2F, 39.8F});
  ladders = ComputeBoxLadders(41.0F, Direction::kFalling, settings);
  ExpectLevels(ladders.up, {41.0F, 41.4F, 41.8F, 42.2F});
  ExpectLevels(ladders.down, {41.0F, 40.6F, 40.6F, 40.6F});
  ladders = ComputeBoxLadders(40.0F, Direction::kFalling, settings);
  ExpectLevels(ladders.down, {40.0F, 39.6F, 39.6F, 39.6F});
  ExpectLevels(ladders.up, {40.0F, 40.4F, 40.8F, 41.2F});
}

TEST(PointFigure, StartsAtThreeBoxesFromTheRoundedPrice) {
  const PointFigureSettings settings;
  // 23.59 and 22.41 are not enough for 23.60 or 22.40.
  EXPECT_TRUE(ComputePointFigure(std::vector<float>{23.47F, 23.59F, 22.41F}, settings).x.empty());
  const PointFigure rise = ComputePointFigure(std::vector<float>{23.47F, 23.6F}, settings);
  EXPECT_EQ(rise.columns, 1);
  ExpectLevels(Split(rise.x).levels, {23.2F, 23.4F, 23.6F});
  const PointFigure fall = ComputePointFigure(std::vector<float>{23.47F, 22.4F}, settings);
  ExpectLevels(Split(fall.o).levels, {22.8F, 22.6F, 22.4F});
}

// One box a day however far the price has gone; three against the column make the next one.
TEST(PointFigure, GrowsByOneBoxADayAndReversesByThree) {
  const std::vector<float> prices = {40.0F, 41.2F, 43.0F, 43.0F, 41.6F, 40.8F, 40.8F, 42.3F};
  const PointFigure figure = ComputePointFigure(prices, {});
  const Boxes x = Split(figure.x);
  ExpectLevels(x.levels, {40.4F, 40.8F, 41.2F, 41.6F, 42.0F, 41.2F, 41.6F, 42.0F});
  EXPECT_EQ(x.columns, (std::vector<int>{1, 1, 1, 1, 1, 3, 3, 3}));
  EXPECT_EQ(x.days, (std::vector<int>{1, 1, 1, 2, 3, 7, 7, 7}));
  const Boxes o = Split(figure.o);
  ExpectLevels(o.levels, {41.6F, 41.2F, 40.8F});
  EXPECT_EQ(o.columns, (std::vector<int>{2, 2, 2}));
  EXPECT_EQ(o.days, (std::vector<int>{5, 5, 5}));
  EXPECT_EQ(figure.columns, 3);
  EXPECT_FLOAT_EQ(figure.level, 42.0F);
}

TEST(PointFigure, ReversesAtAnyMoveWithOneBox) {
  PointFigureSettings settings;
  settings.PfReversal = 0;
  const PointFigure figure =
      ComputePointFigure(std::vector<float>{50.0F, 50.4F, 50.0F, 50.4F}, settings);
  EXPECT_EQ(figure.columns, 3);
  EXPECT_EQ(figure.x.size(), 2U);
  EXPECT_EQ(figure.o.size(), 1U);
}

// A level of 0 or above is one; the halves of the start go to the even number.
TEST(PointFigure, PassesOverDaysWithoutAPrice) {
  const PointFigure figure =
      ComputePointFigure(std::vector<float>{-1.0F, -0.5F, 50.5F, -1.0F, 51.2F, -1.0F, 51.6F}, {});
  ExpectLevels(Split(figure.x).levels, {50.4F, 50.8F, 51.2F, 51.6F});
  EXPECT_EQ(Split(figure.x).days, (std::vector<int>{4, 4, 4, 6}));
  EXPECT_TRUE(ComputePointFigure(std::vector<float>{-1.0F, -1.0F}, {}).x.empty());
  EXPECT_EQ(ComputePointFigure(std::vector<float>{0.0F, 0.15F}, {}).x.size(), 3U);
}

TEST(PointFigure, StopsAtColumnFortyOne) {
  std::vector<float> prices = {50.0F};
  for (int turn = 0; turn < 60; ++turn) prices.push_back(turn % 2 == 0 ? 60.0F : 40.0F);
  PointFigureSettings settings;
  settings.PfReversal = 0;
  EXPECT_EQ(ComputePointFigure(prices, settings).columns, 41);
  EXPECT_EQ(ComputePointFigure(std::span(prices).first(41), settings).columns, 40);
}

}  // namespace
}  // namespace vistaplot
