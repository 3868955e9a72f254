// A made-up market: a calendar, issues that exist nowhere and their prices. The same on every
// machine and in every run: whole-number randomness from a fixed seed, no library functions whose
// last bits differ.
#pragma once

#include <string>
#include <vector>

#include "base/date.h"

namespace vistaplot {

enum class SampleKind { kFund, kStock, kIndex, kBreadth };

struct SampleIssue {
  SampleKind kind = SampleKind::kFund;
  std::string symbol;
  std::string name;
  std::string group;          ///< the family of its kind that it belongs to; may be empty
  std::vector<float> prices;  ///< one a day of the calendar; 0 where there is none
};

struct SampleMarket {
  std::vector<DateSerial> days;  ///< 25 years of weekdays without holidays, to 29 December 2023
  std::vector<SampleIssue> issues;
};

/// 40 funds, 20 stocks, 6 indexes, and the breadth issues $NADV and $DECL.
SampleMarket MakeSampleMarket();

}  // namespace vistaplot
