// The forms that run in lanes give the bits of the plain ones, on usual and on odd histories.
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "analytics/bollinger.h"
#include "analytics/correlation.h"
#include "analytics/hurst.h"
#include "analytics/spectrum.h"
#include "support/plain_indicators.h"

namespace vistaplot {
namespace {

struct History {
  std::string name;
  std::vector<float> prices;
  int history;

  ChartPrices Chart() const { return {.values = prices, .history = history}; }
};

std::vector<float> Walk(std::size_t days, unsigned seed) {
  std::mt19937 random(seed);
  std::vector<float> prices(days);
  double price = 40.0;
  for (float& cents : prices) {
    price *= 1.0 + 0.02 * (static_cast<double>(random() % 2001) / 1000.0 - 0.9995);
    cents = static_cast<float>(std::round(price * 100.0) / 100.0);
  }
  return prices;
}

History Changed(const std::string& name,
                std::size_t from,
                std::size_t to,
                float value,
                int history = 120,
                std::size_t days = 200) {
  History changed{.name = name, .prices = Walk(days, 11), .history = history};
  for (std::size_t i = from; i < std::min(to, days); ++i) changed.prices[i] = value;
  return changed;
}

std::vector<History> Histories() {
  return {{"walk", Walk(231, 1), 120},
          {"one day", Walk(121, 2), 120},
          {"nine days", Walk(129, 3), 120},
          {"no history", Walk(60, 4), 0},
          {"little history", Walk(90, 5), 7},
          Changed("constant", 0, 200, 12.34F),
          Changed("zero", 0, 200, 0.0F),
          Changed("never a price", 0, 200, -1.0F),
          Changed("starts late", 0, 150, -1.0F),
          Changed("starts in the history", 0, 111, -1.0F),
          Changed("missing in the middle", 160, 163, -1.0F),
          Changed("still for a while", 90, 170, 40.0F),
          Changed("a zero", 140, 141, 0.0F),
          Changed("huge", 130, 131, 3e38F),
          Changed("tiny", 125, 190, 1e-38F)};
}

std::uint32_t Bits(float value) {
  return std::isnan(value) ? 0x7FC00000U : std::bit_cast<std::uint32_t>(value);
}

void ExpectSameBits(const std::vector<float>& fast,
                    const std::vector<float>& plain,
                    const std::string& what) {
  ASSERT_EQ(fast.size(), plain.size()) << what;
  for (std::size_t i = 0; i < fast.size(); ++i) {
    ASSERT_EQ(Bits(fast[i]), Bits(plain[i]))
        << what << ", day " << i + 1 << ": " << fast[i] << " and " << plain[i];
  }
}

/// Runs `check(history, form, name)` over all histories and the forms that this machine has.
template <class Check>
void OverHistories(Check check) {
  for (const History& history : Histories()) {
    check(history, LaneForm::kFour, history.name + " by fours");
    check(history, BestLaneForm(), history.name);
  }
}

constexpr std::array kPeriods = {0, -1, 1, 2, 3, 20, 50, 119, 300};

TEST(FastForms, BollingerBands) {
  OverHistories([](const History& history, LaneForm form, const std::string& name) {
    for (const int n : kPeriods) {
      const BollingerBands fast = ComputeBollinger(history.Chart(), n, form);
      const BollingerBands plain = test::PlainBollinger(history.Chart(), n);
      const std::string what = name + ", N " + std::to_string(n);
      ExpectSameBits(fast.upper, plain.upper, what + ", upper");
      ExpectSameBits(fast.middle, plain.middle, what + ", middle");
      ExpectSameBits(fast.lower, plain.lower, what + ", lower");
    }
  });
}

TEST(FastForms, Correlation) {
  OverHistories([](const History& history, LaneForm form, const std::string& name) {
    const History walk{
        .name = "walk", .prices = Walk(history.prices.size(), 21), .history = history.history};
    for (const int n : kPeriods) {
      const std::string what = name + ", N " + std::to_string(n);
      for (const bool swap : {false, true}) {
        const ChartPrices first = swap ? walk.Chart() : history.Chart();
        const ChartPrices second = swap ? history.Chart() : walk.Chart();
        ExpectSameBits(ComputeCorrelation(first, second, n, form),
                       test::PlainCorrelation(first, second, n),
                       what);
      }
      ExpectSameBits(ComputeCorrelation(history.Chart(), history.Chart(), n, form),
                     test::PlainCorrelation(history.Chart(), history.Chart(), n),
                     what + ", of one fund with itself");
    }
  });
}

TEST(FastForms, Hurst) {
  OverHistories([](const History& history, LaneForm form, const std::string& name) {
    float fast_y = 0.0F;
    float plain_y = 0.0F;
    for (const int window : {0, 2, 6, 30, 100, 118}) {
      for (const int subdivisions : {-1, 0, 1, 2, 5, 29}) {
        const auto fast = ComputeHurst(
            history.Chart(), {.window = window, .subdivisions = subdivisions}, fast_y, form);
        const auto plain = test::PlainHurst(history.Chart(), window, subdivisions, plain_y);
        ExpectSameBits(fast.values,
                       plain.values,
                       name + ", " + std::to_string(window) + "/" + std::to_string(subdivisions));
        fast_y = fast.last_y;
        plain_y = plain.last_y;
        ASSERT_EQ(Bits(fast_y), Bits(plain_y));
      }
    }
  });
}

TEST(FastForms, Spectrum) {
  OverHistories([](const History& history, LaneForm form, const std::string& name) {
    for (const int period : {1, 7, 8, 9, 50, 118}) {
      for (const int poles : {-1, 0, 1, 15, 60}) {
        const DailySpectrum fast = ComputeSpectrum(history.Chart(), period, poles, form);
        const auto plain = test::PlainSpectrum(history.Chart(), period, poles);
        const std::string what =
            name + ", P " + std::to_string(period) + ", poles " + std::to_string(poles);
        std::vector<float> dominant;
        ASSERT_EQ(fast.peaks.size(), plain.size());
        for (std::size_t i = 0; i < plain.size(); ++i) {
          std::vector<float> powers(1, 0.0F);
          for (int p = 1; p <= period; ++p) {
            powers.push_back(fast.Power(p, static_cast<int>(i) + 1));
          }
          ExpectSameBits(powers, plain[i].power, what + ", day " + std::to_string(i + 1));
          for (std::size_t k = 0; k < kPeaks; ++k) {
            ASSERT_EQ(fast.peaks[i][k], plain[i].peaks[k]) << what << ", day " << i + 1;
          }
          dominant.push_back(plain[i].dominant);
        }
        ExpectSameBits(fast.dominant, dominant, what + ", dominant");
      }
    }
  });
}

}  // namespace
}  // namespace vistaplot
