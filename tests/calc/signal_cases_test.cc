// A walk through one test case, and all cases of a test.
#include "calc/signal_cases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>

#include "calc/signal_walk.h"
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
  const SignalWorld risen({10, 11, 12}, {1, 1, 1}, {1, 1, 1});
  const CaseWalk won = WalkCase(risen.Market(), risen.AllDays(), {1, 1}, nullptr);
  const CaseStatistics best = ComputeStatistics(won, risen.Market(), risen.AllDays());
  EXPECT_EQ(best.ulcer_index, 0.0);
  EXPECT_EQ(best.ulcer_performance, 0.0) << "no draw-down";
  EXPECT_EQ(best.percent_winners, 50.0) << "two switches, one trade, which won";
}

std::vector<double> RandomPrices(int days, std::mt19937& random) {
  std::uniform_real_distribution<double> move(0.95, 1.055);
  std::vector<double> prices;
  double price = 20.0;
  for (int day = 0; day < days; ++day) {
    price *= move(random);
    prices.push_back(std::round(price * 100.0) / 100.0);
  }
  return prices;
}

/// A few days without a price at the start and in the middle, counts from 0 to 12.
SignalWorld RandomWorld(int days, std::mt19937& random) {
  std::vector<int> counts;
  int count = 6;
  for (int day = 0; day < days; ++day) {
    count = std::clamp(count + static_cast<int>(random() % 5) - 2, 0, 12);
    counts.push_back(count);
  }
  SignalWorld world(RandomPrices(days, random), RandomPrices(days, random), counts);
  std::fill_n(world.in.begin(), 7, -1.0);
  std::fill_n(world.out.begin() + days / 2, 3, -1.0);
  return world;
}

void ExpectSameBits(const CaseWalk& fast, const CaseWalk& plain) {
  const auto bits = [](float value) { return std::bit_cast<std::uint32_t>(value); };
  EXPECT_EQ(fast, plain);
  EXPECT_EQ(bits(fast.equity), bits(plain.equity));
  EXPECT_EQ(bits(fast.ulcer_sum), bits(plain.ulcer_sum));
}

void ExpectPlainCases(const SignalWorld& world, const SignalTest& test) {
  const SignalMarket market = world.Market();
  SignalCases cases(market, test);
  std::vector<SignalThresholds> thresholds;
  for (int number = 1; number <= cases.Count(); ++number) {
    thresholds.push_back(cases.Thresholds(number));
    ExpectSameBits(cases.Walk(number), WalkCase(market, test, thresholds.back(), nullptr));
  }
  const PricedDays days(market, test);
  if (days.are_plain) {
    EXPECT_EQ(WalkCasesByTwos(days, thresholds), WalkCases(days, thresholds));
  }
}

TEST(SignalCases, AreThoseOfThePlainWalkBitForBit) {
  std::mt19937 random(7);
  for (int round = 0; round < 24; ++round) {
    const SignalWorld world = RandomWorld(150 + round, random);
    SignalTest test = world.AllDays();
    test.start_day = 1 + round;
    test.delay = round % 3;
    test.two_dimensional = round % 2 == 1;
    test.buy_from = -1;
    test.buy_to = 14;
    test.sell_from = 0;
    test.sell_to = 13;
    SCOPED_TRACE(round);
    ExpectPlainCases(world, test);
  }
}

TEST(SignalCases, PricesThatAreNoneStillGiveThePlainWalk) {
  std::mt19937 random(8);
  SignalWorld world = RandomWorld(120, random);
  world.in[70] = -0.25;
  world.out[90] = 1e-20;
  SignalTest test = world.AllDays();
  test.buy_to = 9;
  ExpectPlainCases(world, test);
}

TEST(SignalCases, TheSellThresholdRunsWithinTheBuyThreshold) {
  std::mt19937 random(9);
  const SignalWorld world = RandomWorld(60, random);
  const SignalMarket market = world.Market();
  SignalTest test = world.AllDays();
  test.buy_from = 2;
  test.buy_to = 3;
  test.sell_from = 5;
  test.sell_to = 7;
  const auto pairs = [&] {
    const SignalCases cases(market, test);
    std::string text;
    for (int number = 1; number <= cases.Count(); ++number) {
      const auto [buy, sell] = cases.Thresholds(number);
      text += std::to_string(buy) + '/' + std::to_string(sell) + ' ';
    }
    return text;
  };
  EXPECT_EQ(pairs(), "2/2 3/3 ");
  test.two_dimensional = true;
  EXPECT_EQ(pairs(), "2/5 2/6 2/7 3/5 3/6 3/7 ");
}

TEST(SignalCases, RangesWithoutAResultAreRefused) {
  const SignalWorld world({-1, 2, 3, 4}, {1, 1, 1, -1}, {0, 1, 1, 1});
  SignalTest good = world.AllDays();
  good.end_day = 3;
  EXPECT_FALSE(RefuseTest(world.Market(), good));
  struct Bad {
    int start, end, from, to;
    const char* message;
  };
  const Bad bad[] = {
      {1, 3, 3, 2, "No test case in this range"},
      {1, 3, -32768, 32767 * 40, "The range has 1343449 test cases; a test has at most 1000000"},
      {3, 3, 1, 1, "The test range must span more than one day"},
      {3, 2, 1, 1, "The test range must span more than one day"},
      {1, 2, 1, 1, "The test range must span more than one day"},
      {4, 5, 1, 1, "No day on which both funds have a price"},
  };
  const SignalWorld longer({-1, 2, 3, 4, 5}, {1, 1, 1, -1, -1}, {0, 1, 1, 1, 1});
  for (const Bad& row : bad) {
    const SignalTest test = {
        .start_day = row.start, .end_day = row.end, .buy_from = row.from, .buy_to = row.to};
    EXPECT_EQ(RefuseTest(longer.Market(), test), row.message);
  }
}

}  // namespace
}  // namespace vistaplot
