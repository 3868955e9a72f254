// Averages, parabolic stop and bands. The values of the walk come from a separate program that
// rounds every operation to single precision.
#include <gtest/gtest.h>

#include <vector>

#include "analytics/ama.h"
#include "analytics/bollinger.h"
#include "analytics/ema.h"
#include "analytics/parabolic.h"
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

}  // namespace
}  // namespace vistaplot
