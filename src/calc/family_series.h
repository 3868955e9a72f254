// The three FNU files of a family's breadth.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/result.h"
#include "calc/breadth.h"
#include "marketdata/market_calendar.h"

namespace vistaplot {

/// The side files' symbols and titles.
inline constexpr std::string_view kAdvancersSymbol = "f_adv";
inline constexpr std::string_view kAdvancersTitle = "Advancing issues calculated By Vistaplot";
inline constexpr std::string_view kDeclinersSymbol = "f_dec";
inline constexpr std::string_view kDeclinersTitle = "Declining issues calculated By Vistaplot";

/// Host paths, and the line's two texts as they were entered.
struct FamilySeriesTarget {
  std::string line_path;
  std::string symbol;
  std::string title;
  std::string advancers_path;
  std::string decliners_path;
};

/// The file that was made last when it failed.
enum class FamilySeriesStep { kLine, kAdvancers, kDecliners };

struct FamilySeriesFailure {
  FamilySeriesStep step = FamilySeriesStep::kLine;
  RuntimeError error;
};

/// Makes the line's file, then those of the advancers and of the decliners, each with its two
/// texts, then writes the days: the line from day 1 on, the other two from day 2 on. A file that
/// cannot be made stops it; those before it then hold their texts alone.
std::optional<FamilySeriesFailure> WriteFamilySeries(const FamilySeriesTarget& target,
                                                     const MarketCalendar& calendar,
                                                     const FamilyBreadth& breadth);

}  // namespace vistaplot
