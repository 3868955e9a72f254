// Advance/decline series of a family: the counts, and the three FNU files of them.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "import/family_records.h"
#include "marketdata/market_calendar.h"

namespace vistaplot {

// Advance/decline series: how many issues rose and how many fell. Series in, series out.

/// The running sum of advancers less decliners. Element i of both is market day i + 1, -1 before a
/// series begins, which counts as it stands: where one series alone has begun, the missing one
/// counts as -1. Single precision, rounded at every day; as long as the shorter one.
std::vector<float> AdvanceDeclineLine(std::span<const float> advancers,
                                      std::span<const float> decliners);

/// The breadth of a family; element i is market day i + 1, and day 1 is 0.
struct FamilyBreadth {
  std::vector<int> advancers;  ///< members whose price is above that of the day before
  std::vector<int> decliners;
  std::vector<float> line;  ///< running sum of the difference
};

/// Counts the members of `records`, day by day. A member counts from the day after its first price
/// on, where the price before is above -0.5; an unchanged price counts as neither.
FamilyBreadth CountFamilyBreadth(const FamilyRecords& records);

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
/// cannot be made stops it (error 55 where it is the line's own); those before it then hold their
/// texts alone.
std::optional<FamilySeriesFailure> WriteFamilySeries(const FamilySeriesTarget& target,
                                                     const MarketCalendar& calendar,
                                                     const FamilyBreadth& breadth);

}  // namespace vistaplot
