#include "analytics/hurst.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace vistaplot {
namespace {

constexpr float kMissingReturn = -99.0F;

float Ln(float value) {
  return static_cast<float>(std::log(static_cast<double>(value)));
}

// The returns of chart days 1 - window to the last one, oldest first, then a register's worth of 0.
std::vector<float> LogReturns(const ChartPrices& prices, int window) {
  const std::vector<float> from = prices.Copy(-window);
  const auto count = static_cast<std::size_t>(window + prices.Days());
  std::vector<float> returns(count + 8, 0.0F);
  for (std::size_t r = 0; r < count; ++r) {
    const bool known = from[r] > 0.0F && from[r + 1] > 0.0F;
    returns[r] = known ? Ln(from[r + 1] / from[r]) : kMissingReturn;
  }
  return returns;
}

/// One way of cutting the window: `parts` subperiods of `length` returns.
struct Cut {
  std::size_t parts;
  std::size_t length;
};

/// The summed rescaled ranges of one cut on every chart day. A subperiod's range depends on its
/// newest return and its length alone, so that each is worked out once for all days that use it.
/// The lanes are neighbouring subperiods, then neighbouring days.
struct RangeKernel {
  const float* returns;  ///< index window + i - 1 is chart day i
  std::size_t window;
  Cut cut;
  std::vector<float>& ranges;  ///< of the subperiod that begins (oldest) at each index
  std::vector<float>& sums;    ///< chart day i at index i - 1; as long as whole registers need

  template <std::size_t kLanes>
  [[gnu::always_inline]] inline void Run() {
    // The oldest subperiod of day 1 and the newest of the last day.
    const std::size_t first = window - cut.parts * cut.length;
    const std::size_t last = window + sums.size() - cut.length;
    for (std::size_t begin = first; begin < last; begin += kLanes) Range<kLanes>(begin);
    for (std::size_t day = 0; day < sums.size(); day += kLanes) Sum<kLanes>(day);
  }

  template <std::size_t kLanes>
  [[gnu::always_inline]] inline void Range(std::size_t begin) {
    using Floats = typename Lanes<kLanes>::Floats;
    const auto n = static_cast<float>(cut.length);
    Floats sum{}, value;
    for (std::size_t p = cut.length; p-- > 0;) {
      LoadLanes(value, returns + begin + p);
      sum += value;
    }
    const Floats mean = sum / n;
    Floats running{}, squares{};
    Floats least = Floats{} + 99999.0F;
    Floats most = Floats{} - 99999.0F;
    for (std::size_t p = cut.length; p-- > 0;) {
      LoadLanes(value, returns + begin + p);
      const Floats away = value - mean;
      running += away;
      least = running < least ? running : least;
      most = running > most ? running : most;
      squares += away * away;
    }
    Floats dev = squares / n;
    for (std::size_t lane = 0; lane < kLanes; ++lane) dev[lane] = std::sqrt(dev[lane]);
    StoreLanes<Floats>(dev != 0.0F ? (most - least) / dev : Floats{}, &ranges[begin]);
  }

  template <std::size_t kLanes>
  [[gnu::always_inline]] inline void Sum(std::size_t day) {
    using Floats = typename Lanes<kLanes>::Floats;
    Floats sum{}, value;
    for (std::size_t part = 1; part <= cut.parts; ++part) {  // newest first
      LoadLanes(value, &ranges[window + day - part * cut.length]);
      sum += value;
    }
    StoreLanes(sum, &sums[day]);
  }
};

/// Least squares over the cuts: what all days share.
class Slope {
 public:
  explicit Slope(const HurstSettings& settings) {
    for (int k = 1; k <= settings.subdivisions; ++k) {
      const float x = Ln(static_cast<float>(settings.window / (k + 1)));
      x_.push_back(x);
      sx_ = sx_ + x;
      sxx_ = sxx_ + x * x;
    }
  }

  // @param sums  of every cut, at the index of the day
  // @param y     taken over from the cut before; left for the next day
  float At(std::size_t day, const std::vector<std::vector<float>>& sums, float& y) const {
    float sy = 0.0F;
    float sxy = 0.0F;
    for (std::size_t k = 0; k < x_.size(); ++k) {
      const float rs = sums[k][day];
      if (rs != 0.0F) y = Ln(rs / static_cast<float>(k + 2));
      sy = sy + y;
      sxy = sxy + x_[k] * y;
    }
    const auto s = static_cast<float>(x_.size());
    return (s * sxy - sx_ * sy) / (s * sxx_ - sx_ * sx_);
  }

 private:
  std::vector<float> x_;
  float sx_ = 0.0F;
  float sxx_ = 0.0F;
};

}  // namespace

HurstSeries ComputeHurst(const ChartPrices& prices,
                         const HurstSettings& settings,
                         float y,
                         LaneForm form) {
  HurstSeries series{.values = prices.EmptySeries(), .last_y = y};
  if (!settings.MakeSense() || series.values.empty()) {
    std::fill(series.values.begin(), series.values.end(), kNoValue);
    return series;
  }
  const auto window = static_cast<std::size_t>(settings.window);
  const std::size_t whole = (series.values.size() + 7) / 8 * 8;
  std::vector<float> returns = LogReturns(prices, settings.window);
  returns.resize(window + whole + 8);
  std::vector<float> ranges(window + whole + 8);
  std::vector<std::vector<float>> sums;
  for (std::size_t k = 1; k <= static_cast<std::size_t>(settings.subdivisions); ++k) {
    RangeKernel kernel{.returns = returns.data(),
                       .window = window,
                       .cut = {.parts = k + 1, .length = window / (k + 1)},
                       .ranges = ranges,
                       .sums = sums.emplace_back(whole)};
    RunLanes(kernel, form);
  }
  const Slope slope(settings);
  for (std::size_t day = 0; day < series.values.size(); ++day) {
    if (returns[day] == kMissingReturn) continue;
    series.values[day] = slope.At(day, sums, series.last_y);
  }
  return series;
}

}  // namespace vistaplot
