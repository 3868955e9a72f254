// The overlays of a price chart: what is drawn beside each fund's prices, and in which order.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "analytics/chart_prices.h"
#include "analytics/hurst.h"
#include "analytics/parabolic.h"
#include "base/result.h"
#include "charts/view/chart_facts.h"

namespace vistaplot {

// Which indicators a price chart draws, with the numbers of their parameter boxes.

/// The ticked check boxes with the numbers of their text boxes as typed (a leading number, 0 where
/// there is none); nothing for a box that is not ticked.
struct IndicatorNumbers {
  struct Hurst {
    double days = 100.0;      ///< txtHurstDays
    double subperiods = 5.0;  ///< txtHurstPeriod
  };
  struct Mem {
    double longest_period = 50.0;  ///< txtMemPeriod
    double poles = 15.0;           ///< txtMemPoles
  };
  std::optional<double> average = {};            ///< chkMoveAvg: txtMoveAvg
  std::optional<double> adaptive = {};           ///< chkAMA: txtAMA
  std::optional<ParabolicSteps> parabolic = {};  ///< chkParabolic: txtPBStart, txtPBMax, txtPBAcc
  std::optional<double> bands = {};              ///< chkBollinger: txtBollinger
  std::optional<Hurst> hurst = {};               ///< chkHurst
  std::optional<double> correlation = {};        ///< chkCorrelation: txtCorrPeriod
  std::optional<Mem> mem = {};                   ///< chkMem
};

struct MemSettings {
  int longest_period = 50;  ///< P, market days
  int poles = 15;
};

/// The same as counts.
struct Indicators {
  std::optional<int> average = {};
  std::optional<int> adaptive = {};
  std::optional<ParabolicSteps> parabolic = {};
  std::optional<int> bands = {};
  std::optional<HurstSettings> hurst = {};
  std::optional<int> correlation = {};
  std::optional<MemSettings> mem = {};

  /// The least first day of the chart: the longest history that one of them needs, and 2.
  std::int16_t LookbackDays = 2;

  /// One of those that have a chart of their own, on the screen of three charts.
  bool HasAnalysis() const { return mem || hurst || correlation; }
};

/// Rounds counts to the nearest, halves to even. Error 6 when one, or the history that it needs, is
/// beyond 16 bits.
Result<Indicators> CountsOf(const IndicatorNumbers& numbers);

/// A kind of curves drawn beside every fund's price.
struct PriceOverlay {
  /// What follows the symbol in the legend ("e"), one entry a curve. The third curve of three is
  /// drawn in the first one's colour.
  std::vector<std::string> suffixes;

  /// What each curve is, for drawing and read-out, and its name behind the symbol ("average 50"),
  /// one entry a curve.
  std::vector<SeriesRole> roles;
  std::vector<std::string> names;

  /// The curves of one fund in price units, one a suffix, a value a chart day, chart day 1 first.
  /// The overlay starts on the first day on which its first two curves (its only one) are not 0;
  /// that day and those before it stay empty.
  std::function<std::vector<std::vector<float>>(const ChartPrices&)> curves;
};

/// The ticked overlays in the order of their columns: exponential average, adaptive average,
/// parabolic stop, bands.
std::vector<PriceOverlay> OverlaysOf(const Indicators& indicators);

}  // namespace vistaplot
