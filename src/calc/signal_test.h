// What a signal test reads, and what one test case comes to. A test switches between two funds by
// how many signal files are in the market; a case is one pair of thresholds on that number.
#pragma once

#include <span>
#include <vector>

#include "base/date.h"

namespace vistaplot {

/// A fund has a price on a day where it is above this.
inline constexpr double kPricedAbove = -0.5;

/// The market over all market days: element i is market day i + 1, all spans are equally long. A
/// view for the length of a call.
struct SignalMarket {
  std::span<const double> in_prices;   ///< of the In Market Fund
  std::span<const double> out_prices;  ///< of the Out of Market Fund
  std::span<const int> counts;         ///< how many signal files are in the market
  std::span<const DateSerial> dates;

  bool IsPriced(int day) const {
    return InPrice(day) > kPricedAbove && OutPrice(day) > kPricedAbove;
  }
  double InPrice(int day) const { return in_prices[static_cast<std::size_t>(day - 1)]; }
  double OutPrice(int day) const { return out_prices[static_cast<std::size_t>(day - 1)]; }
  DateSerial DateOf(int day) const {
    return day > 0 ? dates[static_cast<std::size_t>(day - 1)] : 0;
  }
  /// The count of a market day; 0 on the day before day 1.
  int CountOf(int day) const { return day > 0 ? counts[static_cast<std::size_t>(day - 1)] : 0; }
  bool Rises(int day) const { return CountOf(day) > CountOf(day - 1); }
  bool Falls(int day) const { return CountOf(day) < CountOf(day - 1); }
};

/// One test case. A one-dimensional test has equal thresholds.
struct SignalThresholds {
  int buy = 1;   ///< B: signal files in the market that make the composite buy
  int sell = 1;  ///< S: the same for selling
};

/// A range of thresholds over a range of days.
struct SignalTest {
  int start_day = 1;  ///< market days, within those of the market
  int end_day = 1;
  int delay = 1;  ///< market days from a signal to the switch that it causes; 0 or more
  /// One-dimensional: in the market where count >= B, else out of it. Two-dimensional: in where the
  /// count rises and is >= B, out where it falls and is <= S, else as before.
  bool two_dimensional = false;
  int buy_from = 1;
  int buy_to = 1;
  int sell_from = 1;  ///< of a two-dimensional test
  int sell_to = 1;

  /// The day of the switch that a signal of `day` causes.
  int SwitchDay(int day) const { return day + delay < end_day ? day + delay : end_day; }
};

/// The end of one case's simulation. Values start from 1; the floats are rounded at every store.
struct CaseWalk {
  float equity = 1.0F;             ///< value on the last priced day
  float base = 1.0F;               ///< equity at the entry of the last trade
  float peak = -9999.0F;           ///< highest equity
  float lowest_ratio = 999999.0F;  ///< lowest equity / peak
  float ulcer_sum = 0.0F;          ///< sum of squared draw-downs, percent squared
  int lowest_day = 0;              ///< market day of lowest_ratio; 0: none
  int first_day = 0;               ///< first day with both prices; 0: none
  int switches = 0;                ///< the first position and the close on the end day count
  int wins = 0;                    ///< closed trades that gained

  bool operator==(const CaseWalk&) const = default;
};

}  // namespace vistaplot
