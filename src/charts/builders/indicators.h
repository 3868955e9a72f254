// Which indicators a price chart draws, with the numbers of their parameter boxes.
#pragma once

#include <cstdint>
#include <optional>

#include "analytics/hurst.h"
#include "analytics/parabolic.h"
#include "base/result.h"

namespace vistaplot {

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

}  // namespace vistaplot
