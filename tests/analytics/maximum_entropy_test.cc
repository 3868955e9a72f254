// Fit, spectrum, trend and forecast. The values of the walk come from a separate program that
// rounds every operation of the fit to single precision.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

#include "analytics/forecast.h"
#include "analytics/mem_power.h"
#include "analytics/memcof.h"
#include "analytics/spectrum.h"
#include "analytics/trend.h"
#include "support/indicator_prices.h"

namespace vistaplot {
namespace {

using test::HundredDays;
using test::PriceHistory;

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
