#include <cstddef>
#include <span>
#include <utility>
#include <vector>

#include "analytics/ama.h"
#include "analytics/bollinger.h"
#include "analytics/correlation.h"
#include "analytics/ema.h"
#include "analytics/hurst.h"
#include "analytics/parabolic.h"
#include "analytics/spectrum.h"
#include "figures.h"
#include "plain_loops.h"
#include "price_walk.h"
#include "table/sheet.h"
#include "timing.h"

namespace vistaplot::bench {
namespace {

constexpr int kRuns = 31;

/// Two issues with a price on every day in columns 2 and 3.
Sheet TwoIssues() {
  Sheet sheet;
  sheet.MaxRow = kDays + 1;
  sheet.MaxCol = 3;
  for (int issue = 0; issue < 2; ++issue) {
    std::vector<float> prices;
    for (const int cents : WalkPrices(issue, kDays, kSeed)) {
      prices.push_back(static_cast<float>(cents) / 100.0F);
    }
    sheet.SetPriceColumn(issue + 2, SymbolOf(issue), std::move(prices));
  }
  return sheet;
}

/// The chart of all days that `lookback` leaves.
ChartPrices AllDays(const Sheet& sheet, int column, int lookback) {
  return {.values = sheet.PriceBlock(column), .history = lookback - 1};
}

/// One indicator beside its plain loop, over the same days.
struct Beside {
  const Sheet& sheet;
  std::vector<float> one = std::vector<float>(kDays);
  std::vector<float> two = one;
  std::vector<float> three = one;

  // `compute(prices)` returns the series; `loop(first chart day, days)` fills `one`.
  template <class Compute, class Loop>
  void Time(const char* name, int lookback, Compute compute, Loop loop) {
    Measure(name, kRuns, [&] { return compute(AllDays(sheet, 2, lookback)).back(); });
    Measure(
        name,
        kRuns,
        [&] {
          const ChartPrices prices = AllDays(sheet, 2, lookback);
          loop(prices.Chart().data(), prices.Days());
          return one[static_cast<std::size_t>(prices.Days() - 1)];
        },
        "plain loop");
  }
};

void MeasureOverlays(Beside& beside) {
  float* one = beside.one.data();
  beside.Time(
      "EMA 50",
      52,
      [](const ChartPrices& p) { return ComputeEma(p, 50); },
      [&](const float* p, int days) { PlainEma(p, days, 50, one); });
  beside.Time(
      "adaptive average 150",
      152,
      [](const ChartPrices& p) { return ComputeAma(p, 150); },
      [&](const float* p, int days) { PlainAma(p, days, 150, one); });
  beside.Time(
      "parabolic stop",
      2,
      [](const ChartPrices& p) { return ComputeParabolic(p, {}); },
      [&](const float* p, int days) { PlainParabolic(p, days, one); });
  beside.Time(
      "Bollinger 20",
      22,
      [](const ChartPrices& p) { return ComputeBollinger(p, 20).upper; },
      [&](const float* p, int days) {
        PlainBollinger(p, days, 20, one, beside.two.data(), beside.three.data());
      });
}

void MeasureAnalyses(Beside& beside) {
  float* one = beside.one.data();
  beside.Time(
      "correlation 50",
      52,
      [&](const ChartPrices& p) { return ComputeCorrelation(p, AllDays(beside.sheet, 3, 52), 50); },
      [&](const float* p, int days) {
        PlainCorrelation(p, AllDays(beside.sheet, 3, 52).Chart().data(), days, 50, one);
      });
  beside.Time(
      "Hurst 100 5",
      102,
      [](const ChartPrices& p) {
        return ComputeHurst(p, {.window = 100, .subdivisions = 5}, 0.0F).values;
      },
      [&](const float* p, int days) { PlainHurst(p, days, 100, 5, one); });
  std::vector<float> powers(43 * static_cast<std::size_t>(kDays));
  beside.Time(
      "spectrum P=50 15 poles, every day",
      52,
      [](const ChartPrices& p) {
        const DailySpectrum spectrum = ComputeSpectrum(p, 50, 15);
        return std::vector<float>{spectrum.Power(50, spectrum.Days())};
      },
      [&](const float* p, int days) {
        PlainSpectrum(p, days, 50, 15, powers.data());
        one[days - 1] = powers[static_cast<std::size_t>(43 * days - 1)];
      });
}

}  // namespace

void MeasureAnalytics() {
  const Sheet sheet = TwoIssues();
  Beside beside{.sheet = sheet};
  MeasureOverlays(beside);
  MeasureAnalyses(beside);
}

}  // namespace vistaplot::bench
