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
