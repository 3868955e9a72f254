// Growth and draw-down of every issue of a family over a window of days. Prices in, numbers out.
#pragma once

#include <vector>

#include "import/family_records.h"

namespace vistaplot {

/// What one issue did from its first used day to the end day; single precision at every step.
struct GrowthWalk {
  float growth = 1.0F;           ///< W: value at the end of 1 unit at day `first`
  float peak = -9999.0F;         ///< P: highest W of a used day
  float lowest_ratio = 9999.0F;  ///< m: lowest W / P of a used day; 9999 when no day was used
  float square_sum = 0.0F;       ///< S: sum of ((W - P) x 100 / P) squared, percent squared
  int first = 0;                 ///< market day before the first used one; 0 when no day was used
  int lowest_day = 0;            ///< market day of m; 0 when there is none
};

/// Walks every record from market day `begin_day` + 2 to `end_day` (both within 1 to Days()).
///
/// A day i is used from the first one on whose price differs from a positive price of the day
/// before. Of a used day: W = W p(i) / p(i-1) (the quotient first); P = W where W > P; m = W / P
/// where that is lower; S = S + ((W - P) x 100 / P)^2. The loss of the first used day is outside
/// the draw-down, as the peak starts there.
///
/// Issues are calculated side by side, days one after the other, so that every result has the bits
/// of the plain loop over one issue.
std::vector<GrowthWalk> WalkGrowth(const FamilyRecords& records, int begin_day, int end_day);

}  // namespace vistaplot
