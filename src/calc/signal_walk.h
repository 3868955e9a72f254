// The simulation of one test case, day by day, with all that happens on the way.
#pragma once

#include <vector>

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

}  // namespace vistaplot
