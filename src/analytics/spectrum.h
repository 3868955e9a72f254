// The maximum-entropy spectrum of every day of a chart: power of each cycle, the strongest cycle
// and the peaks.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "analytics/chart_prices.h"
#include "base/lanes.h"

namespace vistaplot {

inline constexpr int kShortestPeriod = 8;  ///< shorter cycles are not looked at, in market days
inline constexpr std::size_t kPeaks = 5;

/// Days and periods count from 1.
class DailySpectrum {
 public:
  DailySpectrum() = default;
  DailySpectrum(int longest_period, int days);

  int LongestPeriod() const { return longest_period_; }
  int Days() const { return days_; }

  /// Power of a cycle of `period` days on chart day `day`; 0 for periods below kShortestPeriod and
  /// on day 1, whose spectrum is not kept. May be infinite or undefined.
  float Power(int period, int day) const { return RowOf(period)[day - 1]; }

  /// The period of the highest power of each day, day 1 included; 0 when there is none.
  std::vector<float> dominant;
  /// The periods of each day's local maxima, shortest first, 0 behind the last; none on day 1.
  std::vector<std::array<std::int16_t, kPeaks>> peaks;

  /// The powers of one period, chart day 1 first; there is room behind the last for whole
  /// registers.
  const float* RowOf(int period) const {
    return powers_.data() + static_cast<std::size_t>(period - 1) * stride_;
  }
  float* RowOf(int period) {
    return powers_.data() + static_cast<std::size_t>(period - 1) * stride_;
  }

 private:
  int longest_period_ = 0;
  int days_ = 0;
  std::size_t stride_ = 0;
  std::vector<float> powers_;
};

/// Fits a model of order `poles` to the `longest_period` prices that end the day before each chart
/// day, and works out its power at periods kShortestPeriod to `longest_period` (see memcof.h and
/// mem_power.h; powers are kept in single precision).
///
/// Prices that the history lacks count as -1. An order that a fit lowers stays lowered for the days
/// behind it. A period p is a peak where its power is above those of p - 1 and p + 1; the shortest
/// period and the longest are none, and only the first five of a day are kept. With `poles` below 1
/// all powers of a day are equal. A longest period below kShortestPeriod has no powers at all, and
/// one below 1 counts as 1. The bits do not depend on `form`.
DailySpectrum ComputeSpectrum(const ChartPrices& prices,
                              int longest_period,
                              int poles,
                              LaneForm form = BestLaneForm());

}  // namespace vistaplot
