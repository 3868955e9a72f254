// All cases of a test, in order, each calculated when it is asked for.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "calc/signal_lanes.h"
#include "calc/signal_test.h"

namespace vistaplot {

/// The most cases of a test: what a summary sheet can hold in memory.
inline constexpr long long kMaxCases = 1'000'000;

/// How many cases the ranges of a test span; 0 where one is empty.
long long CountCases(const SignalTest& test);

/// Why a test cannot run, as a text for the user; nothing when it can. The days of the test must
/// lie within the market.
std::optional<std::string> RefuseTest(const SignalMarket& market, const SignalTest& test);

/// The cases of a test that is not refused; case numbers count from 1, the sell threshold runs
/// within the buy threshold. `market` and `test` outlive it.
class SignalCases {
 public:
  SignalCases(const SignalMarket& market, const SignalTest& test);

  int Count() const { return count_; }
  SignalThresholds Thresholds(int number) const;

  /// What case `number` comes to: the bits of WalkCase. Cases that follow are calculated along.
  ///
  /// Thresholds between two levels of the counts that occur act alike, so that far fewer cases are
  /// simulated than there are.
  const CaseWalk& Walk(int number);

 private:
  std::size_t ClassOf(const SignalThresholds& thresholds) const;
  void WalkFrom(int number);
  void Keep(const std::vector<std::size_t>& classes, const std::vector<CaseWalk>& walks);

  const SignalMarket& market_;
  const SignalTest& test_;
  int count_;
  PricedDays days_;
  std::vector<double> buy_levels_;  ///< that occur, ascending
  std::vector<double> sell_levels_;
  /// One for each pair of classes (buy, sell); what is not calculated yet is empty.
  std::vector<std::optional<CaseWalk>> walks_;
};

}  // namespace vistaplot
