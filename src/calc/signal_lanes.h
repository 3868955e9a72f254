// The simulation of many test cases side by side, for tests of thousands of cases.
#pragma once

#include <span>
#include <vector>

#include "calc/signal_test.h"

namespace vistaplot {

/// The days of a test on which both funds have a price, one element each, oldest first: what the
/// cases share. A case buys where `buy_level` >= B, else sells where `sell_level` <= S.
struct PricedDays {
  PricedDays(const SignalMarket& market, const SignalTest& test);

  std::vector<int> days;
  std::vector<double> in_prices;
  std::vector<double> out_prices;
  std::vector<double> in_at_switch;  ///< prices on the day of a switch decided that day
  std::vector<double> out_at_switch;
  std::vector<double> buy_level;   ///< the count; below every threshold where no count buys
  std::vector<double> sell_level;  ///< the count; above every threshold where no count sells
  int end_day = 0;

  /// All prices lie within 1e-15 to 1e15, so that no division or rounding goes astray.
  bool are_plain = true;

 private:
  void Add(const SignalMarket& market, const SignalTest& test, int day);
};

/// The cases of `thresholds`, each with the bits that WalkCase gives. The prices must be plain.
///
/// Cases are calculated in lanes, days one after the other. Whether equity / peak is below the
/// lowest ratio r is asked as equity < r peak: the product of two floats is exact in double, and a
/// quotient of floats that differs from r does so by more than its own rounding.
std::vector<CaseWalk> WalkCases(const PricedDays& days,
                                std::span<const SignalThresholds> thresholds);

/// WalkCases in the registers of two numbers that every processor has; it takes those of four where
/// they are.
std::vector<CaseWalk> WalkCasesByTwos(const PricedDays& days,
                                      std::span<const SignalThresholds> thresholds);

}  // namespace vistaplot
