// Correlation and Hurst exponent. The values of the walk come from a separate program that rounds
// every operation to single precision.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "analytics/correlation.h"
#include "analytics/hurst.h"
#include "support/indicator_prices.h"

namespace vistaplot {
namespace {

using test::HundredDays;
using test::PriceHistory;

/// Prices whose daily growth factors repeat.
PriceHistory Growing(const std::vector<float>& factors, int days, int history) {
  PriceHistory world{.prices = {64.0F}, .history = history};
  while (static_cast<int>(world.prices.size()) < days) {
    world.prices.push_back(world.prices.back() * factors[world.prices.size() % factors.size()]);
  }
  return world;
}

TEST(Correlation, OfAFundWithItselfIsOneFromDayTwoOn) {
  const PriceHistory world = HundredDays();
  const auto values = ComputeCorrelation(world.Chart(), world.Chart(), 50);
  EXPECT_EQ(values[0], 0.5F);
  for (std::size_t i = 1; i < values.size(); ++i) EXPECT_NEAR(values[i], 1.0F, 1e-5F);
}

// Opposite moves on all days but the two before the one that shows it.
TEST(Correlation, EndsTwoDaysBefore) {
  PriceHistory first{.prices = {8, 16, 8, 16, 8, 16, 1, 5}, .history = 6};
  PriceHistory second{.prices = {8, 4, 8, 4, 8, 4, 9, 9}, .history = 6};
  const auto values = ComputeCorrelation(first.Chart(), second.Chart(), 4);
  EXPECT_NEAR(values[1], -1.0F, 1e-6F);
  first.prices[5] = 3;  // the return of the day before that day is the first one looked at
  EXPECT_GT(ComputeCorrelation(first.Chart(), second.Chart(), 4)[1], -0.99F);
}

TEST(Hurst, OfOneSeparateProgram) {
  const auto values = ComputeHurst(HundredDays().Chart(), {}, 0.0F).values;
  EXPECT_FLOAT_EQ(values[1], 0.42794928F);
  EXPECT_FLOAT_EQ(values[49], 0.767716527F);
  EXPECT_FLOAT_EQ(values[99], 0.592630029F);
}

// Returns of one sign and then of the other, in turn: rescaled ranges do not grow with length.
TEST(Hurst, IsLowForReturnsThatTurnEveryDay) {
  const PriceHistory world = Growing({1.02F, 0.99F}, 150, 120);
  const auto values = ComputeHurst(world.Chart(), {.window = 96, .subdivisions = 3}, 0.0F).values;
  for (const float value : values) EXPECT_NEAR(value, 0.0F, 0.05F);
}

TEST(Hurst, OfEqualReturnsIsZeroAndKeepsTheLastRange) {
  const PriceHistory still{.prices = std::vector<float>(150, 30.0F), .history = 120};
  const auto series = ComputeHurst(still.Chart(), {}, 0.75F);
  for (const float value : series.values) EXPECT_NEAR(value, 0.0F, 1e-4F);
  EXPECT_EQ(series.last_y, 0.75F);
}

TEST(Analyses, HaveNoValueForSettingsThatMakeNoSense) {
  PriceHistory world = HundredDays();
  for (const int days : {0, -1}) {
    EXPECT_TRUE(std::isnan(ComputeCorrelation(world.Chart(), world.Chart(), days)[0]));
  }
  // No window, none and fewer than none subdivisions, subperiods without a return, all alike; nor
  // is there a 0 where the window begins without a price.
  world.prices[58] = -1.0F;
  for (const HurstSettings& settings : {HurstSettings{0, 5},
                                        HurstSettings{-1, 5},
                                        HurstSettings{100, 0},
                                        HurstSettings{100, -1},
                                        HurstSettings{5, 5},
                                        HurstSettings{100, 1}}) {
    for (const float value : ComputeHurst(world.Chart(), settings, 0.0F).values) {
      EXPECT_TRUE(std::isnan(value)) << settings.window << "/" << settings.subdivisions;
    }
  }
}

}  // namespace
}  // namespace vistaplot
