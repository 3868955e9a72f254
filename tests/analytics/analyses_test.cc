// Correlation, Hurst exponent, fit, spectrum, trend and forecast. The values of the walk come from
// a separate program that rounds every operation to single precision.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

#include "analytics/correlation.h"
#include "analytics/forecast.h"
#include "analytics/hurst.h"
#include "analytics/mem_power.h"
#include "analytics/memcof.h"
#include "analytics/spectrum.h"
#include "analytics/trend.h"
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

/// A cycle of `period` days about 0, and a weaker one of `second` days under noise of a cent.
PriceHistory Cycles(double period, double second, int days, int history) {
  PriceHistory world{.prices = {}, .history = history};
  for (int day = 0; day < days; ++day) {
    const double angle = 2.0 * std::numbers::pi * day;
    const double cycles = 10.0 * std::sin(angle / period) + 3.0 * std::sin(angle / second);
    world.prices.push_back(static_cast<float>(std::round(cycles * 100.0) / 100.0));
  }
  return world;
}

// By hand: errors 1 2 | 2 3, then -7/9 | 11/9.
TEST(Memcof, FitsThreeValues) {
  const std::vector<float> data = {1, 2, 3};
  const MemFit first = memcof(data, 1);
  EXPECT_FLOAT_EQ(first.d.at(0), 8.0F / 9.0F);
  EXPECT_FLOAT_EQ(first.xms, 238.0F / 243.0F);
  const MemFit second = memcof(data, 2);
  EXPECT_FLOAT_EQ(second.d.at(0), 1296.0F / 765.0F);
  EXPECT_FLOAT_EQ(second.d.at(1), -77.0F / 85.0F);
  EXPECT_NEAR(second.xms, 238.0F / 243.0F * 1296.0F / 7225.0F, 1e-6F);
}

TEST(Memcof, EndsBeforeADenominatorThatVanishes) {
  EXPECT_EQ(memcof(std::vector<float>{1, 2, 3}, 7).m, 2);  // no errors are left
  const MemFit constant = memcof(std::vector<float>(50, 12.34F), 15);
  EXPECT_EQ(constant.m, 1);
  EXPECT_EQ(constant.d, std::vector<float>{1.0F});
  EXPECT_EQ(constant.xms, 0.0F);
  for (const std::vector<float>& data : {std::vector<float>(50, 0.0F), std::vector<float>{5.0F}}) {
    const MemFit none = memcof(data, 15);
    EXPECT_EQ(none.m, 1);  // never lower
    EXPECT_EQ(none.d, std::vector<float>{0.0F});
  }
}

TEST(Memcof, OfNoOrderIsTheMeanSquare) {
  const MemFit fit = memcof(std::vector<float>{1, 2, 3}, -1);
  EXPECT_EQ(fit.m, -1);
  EXPECT_TRUE(fit.d.empty());
  EXPECT_FLOAT_EQ(fit.xms, 14.0F / 3.0F);
}

// 2 / |1 - i/2|^2 at a quarter cycle a day, 2 / 1.5^2 at a half; then (1 + 1/4)^2 for the second.
TEST(MemPower, IsTheModelsResponse) {
  EXPECT_NEAR(MemPower(0.25, std::vector<float>{0.5F}, 2.0F), 1.6, 1e-12);
  EXPECT_NEAR(MemPower(0.5, std::vector<float>{0.5F}, 2.0F), 2.0 / 2.25, 1e-12);
  EXPECT_NEAR(MemPower(0.25, std::vector<float>{0.0F, 0.25F}, 2.0F), 1.28, 1e-12);
}

// The method is known to find the line of a short window a day or two beside its place.
constexpr float kLineTolerance = 2.0F;

TEST(Spectrum, FindsTheCyclesOfADay) {
  const PriceHistory world = Cycles(24.0, 11.0, 130, 100);
  const DailySpectrum spectrum = ComputeSpectrum(world.Chart(), 80, 5);
  EXPECT_EQ(spectrum.dominant.size(), 30U);
  EXPECT_NEAR(spectrum.dominant[20], 24.0F, kLineTolerance);
  EXPECT_NEAR(spectrum.peaks[20][0], 11, kLineTolerance);
  EXPECT_EQ(static_cast<float>(spectrum.peaks[20][1]), spectrum.dominant[20]);
  EXPECT_EQ(spectrum.peaks[20][2], 0);
  EXPECT_GT(spectrum.Power(24, 21), spectrum.Power(11, 21));
  EXPECT_EQ(spectrum.Power(7, 21), 0.0F);
}

// Day 1 looks back on a constant, so that every day has order 1; a chart that begins a day later
// does not.
TEST(Spectrum, KeepsAnOrderOnceLowered) {
  PriceHistory world{.prices = test::CentWalk(260), .history = 150};
  for (std::size_t i = 0; i < 150; ++i) world.prices[i] = 20.0F;
  const DailySpectrum lowered = ComputeSpectrum(world.Chart(), 30, 15);
  PriceHistory later = world;
  later.history = 151;
  const DailySpectrum first_order = ComputeSpectrum(later.Chart(), 30, 1);
  const DailySpectrum whole = ComputeSpectrum(later.Chart(), 30, 15);
  EXPECT_EQ(lowered.Power(20, 100), first_order.Power(20, 99));
  EXPECT_NE(lowered.Power(20, 100), whole.Power(20, 99));
}

TEST(Spectrum, OfOneSeparateProgram) {
  const PriceHistory world = HundredDays();
  const DailySpectrum spectrum = ComputeSpectrum(world.Chart(), 50, 15);
  EXPECT_FLOAT_EQ(spectrum.Power(23, 2), 3.24193192F);
  EXPECT_FLOAT_EQ(spectrum.Power(23, 50), 5.39173508F);
  EXPECT_FLOAT_EQ(spectrum.Power(23, 100), 3.94834375F);
  const std::vector<float> trend = ComputeTrend(world.Chart(), spectrum.dominant);
  EXPECT_FLOAT_EQ(trend[1], 46.6677971F);
  EXPECT_FLOAT_EQ(trend[99], 53.0119972F);
}

TEST(Trend, AveragesTheDaysBefore) {
  const PriceHistory world{.prices = {1, 2, 4, 100, 100}, .history = 3};
  const std::vector<float> periods = {2.0F, 0.0F};
  EXPECT_EQ(ComputeTrend(world.Chart(), periods), (std::vector<float>{3.0F, 0.0F}));
}

TEST(MemForecast, ContinuesACycle) {
  const PriceHistory world = Cycles(20.0, 20.0, 260, 150);
  const PriceHistory known{.prices = {world.prices.begin(), world.prices.begin() + 200},
                           .history = 150};
  const std::vector<float> forecast = MemForecast(known.Chart(), 50, 50, 15);
  ASSERT_EQ(forecast.size(), 10U);
  for (std::size_t k = 0; k < 10; ++k) EXPECT_NEAR(forecast[k], world.prices[200 + k], 1.0F);
}

TEST(MemForecast, OfOneSeparateProgram) {
  const auto forecast = MemForecast(HundredDays().Chart(), 100, 50, 15);
  ASSERT_EQ(forecast.size(), 10U);
  EXPECT_FLOAT_EQ(forecast[0], 55.576252F);
  EXPECT_FLOAT_EQ(forecast[4], 55.7914124F);
  EXPECT_FLOAT_EQ(forecast[9], 55.861496F);
}

TEST(MemForecast, NeedsAPeriodAndPoles) {
  EXPECT_TRUE(MemForecast(HundredDays().Chart(), 100, 7, 15).empty());
  EXPECT_EQ(MemForecast(HundredDays().Chart(), 100, 8, 0), std::vector<float>(10, 0.0F));
}

}  // namespace
}  // namespace vistaplot
