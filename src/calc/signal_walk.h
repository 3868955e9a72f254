// The simulation of one test case, day by day, with all that happens on the way.
#pragma once

#include <vector>

#include "base/date.h"
#include "calc/signal_test.h"

namespace vistaplot {

/// A closed trade; days are market days.
struct SignalTrade {
  int entry_day = 0;
  int exit_day = 0;
  float ratio = 1.0F;  ///< exit price / entry price of the fund held

  bool operator==(const SignalTrade&) const = default;
};

/// A line of the composite signal.
struct CompositeSignal {
  int day = 0;
  bool is_in = false;

  bool operator==(const CompositeSignal&) const = default;
};

/// The value of the composite on a day on which both funds have a price.
struct EquityPoint {
  int day = 0;
  float equity = 1.0F;

  bool operator==(const EquityPoint&) const = default;
};

/// What happened in one case, oldest first.
struct CaseLog {
  std::vector<SignalTrade> trades;
  std::vector<CompositeSignal> composite;
  std::vector<EquityPoint> curve;
};

/// Simulates one case over test.start_day to test.end_day; `log` may be null.
///
/// On a day with both prices: equity = base x price / entry price (products and quotients in
/// double); a new peak; the lowest equity / peak, compared before it is rounded; the squared
/// percentage below the peak. Then the position is decided, and a change of it, or the end day, is
/// a switch: the trade is closed and the next one entered at the price of test.SwitchDay. During
/// the delay equity is that of the new fund relative to its price on the (later) entry day.
///
/// On other days nothing is traded, but the composite signal is still decided; one that is not
/// decided yet gives no line.
CaseWalk WalkCase(const SignalMarket& market,
                  const SignalTest& test,
                  const SignalThresholds& thresholds,
                  CaseLog* log);

// The statistics of a test case, as its row of the summary shows them.

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
