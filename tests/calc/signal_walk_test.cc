#include "calc/signal_walk.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/signal_world.h"

namespace vistaplot {
namespace {

using test::SignalWorld;

const SignalWorld kSixDays({10, 11, 12, 9, 10, 12},
                           {100, 100, 100, 100, 100, 100},
                           {0, 1, 1, 0, 1, 1});

/// The letters and days of the composite signal: "S1 B3".
std::string Signals(const SignalWorld& world,
                    const SignalTest& test,
                    const SignalThresholds& thresholds) {
  CaseLog log;
  WalkCase(world.Market(), test, thresholds, &log);
  std::string text;
  for (const CompositeSignal& signal : log.composite) {
    if (!text.empty()) text += ' ';
    text += signal.is_in ? 'B' : 'S';
    text += std::to_string(signal.day);
  }
  return text;
}

TEST(SignalWalk, TradesADayAfterTheSignalAndClosesOnTheEndDay) {
  CaseLog log;
  const CaseWalk walk = WalkCase(kSixDays.Market(), kSixDays.AllDays(), {1, 1}, &log);
  const float loss = static_cast<float>(10.0 / 12.0);
  const std::vector<SignalTrade> trades = {{2, 3, 1.0F}, {3, 5, loss}, {5, 6, 1.0F}, {6, 6, 1.0F}};
  EXPECT_EQ(log.trades, trades);
  EXPECT_EQ(walk.switches, 5);
  EXPECT_EQ(walk.wins, 0);
  EXPECT_EQ(walk.equity, loss);
  EXPECT_EQ(walk.lowest_ratio, 0.75F);
  EXPECT_EQ(walk.lowest_day, 4);
  EXPECT_EQ(walk.first_day, 1);
  // 25 % below the peak on day 4, 1/6 on days 5 and 6
  EXPECT_NEAR(walk.ulcer_sum, 625.0 + 2.0 * 10000.0 / 36.0, 1e-3);
  const std::vector<EquityPoint> curve = {
      {1, 1.0F}, {2, 1.0F}, {3, 1.0F}, {4, 0.75F}, {5, loss}, {6, loss}};
  EXPECT_EQ(log.curve, curve);
}

TEST(SignalWalk, WithoutADelayTheSignalsOwnPriceCounts) {
  SignalTest test = kSixDays.AllDays();
  test.delay = 0;
  const CaseWalk walk = WalkCase(kSixDays.Market(), test, {1, 1}, nullptr);
  // in at 11 on day 2, out at 9 on day 4, in at 10 on day 5, closed at 12
  EXPECT_FLOAT_EQ(walk.equity, 9.0F / 11.0F * 1.2F);
  EXPECT_EQ(walk.switches, 5);
  EXPECT_EQ(walk.wins, 1);
}

TEST(SignalWalk, DuringTheDelayTheNewFundIsValuedAgainstItsEntryDay) {
  const SignalWorld world({10, 10, 10, 20, 20}, {1, 1, 1, 1, 1}, {0, 1, 1, 1, 1});
  SignalTest test = world.AllDays();
  test.delay = 2;
  CaseLog log;
  WalkCase(world.Market(), test, {1, 1}, &log);
  EXPECT_EQ(log.curve[2].equity, 0.5F) << "day 3, 10 against the 20 of entry day 4";
  EXPECT_EQ(log.curve[3].equity, 1.0F);
}

TEST(SignalWalk, TwoThresholdsNeedARiseToBuyAndAFallToSell) {
  const std::vector<double> flat(8, 10.0);
  const SignalWorld world(flat, flat, {3, 3, 4, 4, 1, 1, 2, 1});
  SignalTest test = world.AllDays();
  test.two_dimensional = true;
  EXPECT_EQ(Signals(world, test, {2, 1}), "B1 S5 B7 S8") << "the count before day 1 is 0";
  test.start_day = 2;
  EXPECT_EQ(Signals(world, test, {2, 1}), "S2 B3 S5 B7 S8") << "a level alone does not buy";
  EXPECT_EQ(Signals(world, test, {4, 0}), "S2 B3");
  test.two_dimensional = false;
  EXPECT_EQ(Signals(world, test, {2, 2}), "B2 S5 B7 S8");
}

TEST(SignalWalk, DaysWithoutAPriceDecideTheCompositeSignalAlone) {
  SignalWorld world({-1, -1, 10, 11, -1, 12}, {5, 5, 5, 5, 5, 5}, {1, 0, 0, 0, 1, 1});
  SignalTest test = world.AllDays();
  // Day 3 sells as day 2 did: no line. Day 5 has no price; its line stands when day 6 buys.
  EXPECT_EQ(Signals(world, test, {1, 1}), "B1 S2 B5");
  CaseLog log;
  const CaseWalk walk = WalkCase(world.Market(), test, {1, 1}, &log);
  EXPECT_EQ(walk.first_day, 3);
  EXPECT_EQ(log.curve.size(), 3U);
  test.two_dimensional = true;
  world.counts = {0, 0, 0, 0, 0, 0};
  EXPECT_EQ(Signals(world, test, {1, 1}), "S1") << "day 1 is out when nothing was decided";
  test.start_day = 2;
  EXPECT_EQ(Signals(world, test, {1, 1}), "S3") << "not decided on day 2";
}

TEST(SignalStatistics, FollowTheirFormulas) {
  SignalWorld world = kSixDays;
  world.dates = {100, 200, 300, 400, 460, 465};  // 365 days: a year
  const SignalTest test = world.AllDays();
  const CaseWalk walk = WalkCase(world.Market(), test, {1, 1}, nullptr);
  const CaseStatistics statistics = ComputeStatistics(walk, world.Market(), test);
  constexpr double kSingle = 1e-5;  // the equity is single precision
  EXPECT_NEAR(statistics.annual_percent, -100.0 / 6.0, kSingle);
  EXPECT_EQ(statistics.switches_per_year, 5.0);
  EXPECT_EQ(statistics.drawdown_percent, 25.0);
  EXPECT_EQ(statistics.drawdown_date, 400);
  const double ulcer = std::sqrt((625.0 + 20000.0 / 36.0) / 5.0);
  EXPECT_NEAR(statistics.ulcer_index, ulcer, kSingle);
  EXPECT_NEAR(statistics.ulcer_performance, (-100.0 / 6.0 - 5.4) / ulcer, kSingle);
  EXPECT_EQ(statistics.percent_winners, 0.0);
}

TEST(SignalStatistics, WithoutADrawdownThePerformanceIndexIsZero) {
  SignalWorld world({10, 11, 12}, {1, 1, 1}, {1, 1, 1});
  const SignalTest test = world.AllDays();
  const CaseWalk walk = WalkCase(world.Market(), test, {1, 1}, nullptr);
  const CaseStatistics statistics = ComputeStatistics(walk, world.Market(), test);
  EXPECT_EQ(statistics.ulcer_index, 0.0);
  EXPECT_EQ(statistics.ulcer_performance, 0.0);
  EXPECT_EQ(statistics.percent_winners, 50.0) << "two switches, one trade, which won";
}

}  // namespace
}  // namespace vistaplot
