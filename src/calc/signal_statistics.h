// The statistics of a test case, as its row of the summary shows them.
#pragma once

#include "base/date.h"
#include "calc/signal_test.h"

namespace vistaplot {

/// Yearly gain in percent below which a case earns no performance index.
inline constexpr double kRiskFreePercent = 5.4;

/// In double precision, rounded only by the patterns of their texts.
struct CaseStatistics {
  double annual_percent = 0.0;
  double switches_per_year = 0.0;
  double drawdown_percent = 0.0;  ///< largest fall below an earlier peak
  DateSerial drawdown_date = 0;
  double ulcer_index = 0.0;
  double ulcer_performance = 0.0;
  double percent_winners = 0.0;
};

/// Years are calendar days from the first priced day to the end day, / 365:
///   annual % = (equity^(1/years) - 1) x 100; switches a year = switches / years;
///   draw-down % = (1 - lowest ratio) x 100;
///   ulcer index = square root of (ulcer sum / (end day - first day)), in market days;
///   performance index = (annual % - 5.4) / ulcer index, 0 where that is 0;
///   % winners = wins x 100 / switches.
/// REQUIRES: walk.first_day is a day before test.end_day.
CaseStatistics ComputeStatistics(const CaseWalk& walk,
                                 const SignalMarket& market,
                                 const SignalTest& test);

}  // namespace vistaplot
