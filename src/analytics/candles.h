// Weekly bars: open, high, low and close of each week's daily prices, relative to the first one.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "base/date.h"

namespace vistaplot {

/// Which market days close their week.
///
/// @param dates  of all market days, oldest first
/// @return       one flag a day: 1 on a Friday, and on a Thursday whose next market day is not a
///               Friday; 0 elsewhere. The last day closes its week only when it is a Friday.
std::vector<std::int16_t> ComputeWeekEndFlags(std::span<const DateSerial> dates);

/// One week of one fund as multiples of its base: 1.1 is 10 % above it.
struct Candle {
  float open = 0.0F;
  float high = 0.0F;
  float low = 0.0F;
  float close = 0.0F;
  int day = 0;  ///< index of the market day that closed the week, in the prices given
};

struct WeeklyCandles {
  float base = 0.0F;  ///< the first price above 0; 0 when there is none
  std::vector<Candle> bars;
};

/// The weeks that end within a window of days; a week without a price above 0 gives no bar, and the
/// days behind the last week end go into none.
///
/// @param prices     one value a market day, oldest first; 0 and below are left out
/// @param week_ends  WeekEndFlags of the same days
///
/// Every value is price / base in single precision.
WeeklyCandles ComputeWeeklyCandles(std::span<const float> prices,
                                   std::span<const std::int16_t> week_ends);

}  // namespace vistaplot
