// Advance/decline series: how many issues rose and how many fell. Series in, series out.
#pragma once

#include <span>
#include <vector>

#include "import/family_records.h"

namespace vistaplot {

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

}  // namespace vistaplot
