// What an indicator reads: one fund's prices over the days of a chart and the history before them.
#pragma once

#include <cstddef>
#include <limits>
#include <span>
#include <vector>

namespace vistaplot {

/// Stands for a day on which an indicator has no value: nothing is drawn. Where a text says that a
/// day "stays 0", the indicator returns 0 instead.
inline constexpr float kNoValue = std::numeric_limits<float>::quiet_NaN();

/// What averages and stops hold on the leading days on which a fund has no price yet.
inline constexpr float kNoPriceYetMark = -0.5F;

/// One fund's prices, oldest first, in price units, below 0 where there is none. Chart day i (1 to
/// Days()) is values[history + i - 1]; the days before the chart are chart day 0, -1, ...
struct ChartPrices {
  std::span<const float> values;
  int history = 0;  ///< market days before chart day 1: its market day less 1

  int Days() const { return static_cast<int>(values.size()) - history; }

  /// The chart days alone; chart day i at index i - 1.
  std::span<const float> Chart() const { return values.subspan(static_cast<std::size_t>(history)); }

  /// The price of a chart day, which may be 0 or negative; 0 outside `values`.
  float At(int day) const {
    const int index = history + day - 1;
    const bool inside = index >= 0 && index < static_cast<int>(values.size());
    return inside ? values[static_cast<std::size_t>(index)] : 0.0F;
  }

  /// The first chart day with a price of 0 or more; the last day when there is none.
  int FirstPricedDay() const {
    int day = 1;
    while (day < Days() && At(day) < 0.0F) ++day;
    return day;
  }

  /// The prices of chart days `first_day` to Days(), `outside` on days that `values` lacks, then
  /// `spare` zeros so that whole registers can be read.
  std::vector<float> Copy(int first_day, float outside = 0.0F, std::size_t spare = 8) const;

  /// One value a chart day, all 0; chart day i at index i - 1.
  std::vector<float> EmptySeries() const {
    return std::vector<float>(static_cast<std::size_t>(Days()), 0.0F);
  }
};

/// The series of an indicator that follows prices day by day: its leading days without a price
/// marked, the first priced day set to that day's price, the others still 0. Needs a chart day.
std::vector<float> SeededSeries(const ChartPrices& prices, int first_priced_day);

}  // namespace vistaplot
