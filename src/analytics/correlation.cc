#include "analytics/correlation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace vistaplot {
namespace {

/// The returns of two funds and their products, from a first day on; 0 where one is missing.
struct Returns {
  std::vector<float> x, y, xx, yy, xy;
  std::vector<int> missing_before;  ///< missing returns ahead of each index
};

bool IsReturn(const float* price) {
  return price[0] > 0.0F && price[1] > 0.0F;
}

// @param first_day  chart day of the first return; the last is the last chart day
Returns ReturnsFrom(int first_day, const ChartPrices& first, const ChartPrices& second) {
  const std::vector<float> a = first.Copy(first_day - 1);
  const std::vector<float> b = second.Copy(first_day - 1);
  const std::size_t count = std::min(a.size(), b.size()) - 1;  // behind the last price: missing
  Returns returns;
  for (auto* series : {&returns.x, &returns.y, &returns.xx, &returns.yy, &returns.xy}) {
    series->assign(count + 8, 0.0F);
  }
  returns.missing_before.assign(count + 1, 0);
  for (std::size_t r = 0; r < count; ++r) {
    const bool known = IsReturn(&a[r]) && IsReturn(&b[r]);
    returns.missing_before[r + 1] = returns.missing_before[r] + (known ? 0 : 1);
    if (!known) continue;
    const float x = b[r + 1] / b[r] - 1.0F;
    const float y = a[r + 1] / a[r] - 1.0F;
    returns.x[r] = x;
    returns.y[r] = y;
    returns.xx[r] = x * x;
    returns.yy[r] = y * y;
    returns.xy[r] = x * y;
  }
  return returns;
}

/// Sums over N returns for every day; the lanes are neighbouring days. The sums of the day whose
/// first return is at index r go to index r.
struct SumKernel {
  const Returns& returns;
  std::size_t length;  ///< N
  std::vector<float>& correlation;

  template <std::size_t kLanes>
  [[gnu::always_inline]] inline void Run() {
    for (std::size_t day = 0; day < correlation.size(); day += kLanes) Block<kLanes>(day);
  }

  template <std::size_t kLanes>
  [[gnu::always_inline]] inline void Block(std::size_t day) {
    using Floats = typename Lanes<kLanes>::Floats;
    Floats sx{}, sy{}, sxx{}, syy{}, sxy{}, value;
    for (std::size_t r = day; r < day + length; ++r) {
      LoadLanes(value, &returns.x[r]);
      sx += value;
      LoadLanes(value, &returns.y[r]);
      sy += value;
      LoadLanes(value, &returns.xx[r]);
      sxx += value;
      LoadLanes(value, &returns.yy[r]);
      syy += value;
      LoadLanes(value, &returns.xy[r]);
      sxy += value;
    }
    const auto n = static_cast<float>(length);
    const Floats square = (n * syy - sy * sy) * (n * sxx - sx * sx);
    const Floats numerator = n * sxy - sx * sy;
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      const float d = std::sqrt(square[lane]);
      correlation[day + lane] = d > 0.0F ? numerator[lane] / d : 1.0F;
    }
  }
};

}  // namespace

std::vector<float> ComputeCorrelation(const ChartPrices& first,
                                      const ChartPrices& second,
                                      int days,
                                      LaneForm form) {
  std::vector<float> values = first.EmptySeries();
  if (days < 1 || values.empty()) {
    std::fill(values.begin(), values.end(), kNoValue);
    return values;
  }
  const bool enough = first.history >= days;
  if (enough) values[0] = 0.5F;
  const int start = enough ? 2 : days - first.history + 2;
  if (start > first.Days()) return values;

  const Returns returns = ReturnsFrom(start - days - 1, first, second);
  const auto wanted = static_cast<std::size_t>(first.Days() - start + 1);
  std::vector<float> sums((wanted + 7) / 8 * 8, 0.0F);
  SumKernel kernel{
      .returns = returns, .length = static_cast<std::size_t>(days), .correlation = sums};
  RunLanes(kernel, form);
  for (std::size_t k = 0; k < wanted; ++k) {
    const bool whole =
        returns.missing_before[k + static_cast<std::size_t>(days)] == returns.missing_before[k];
    values[k + static_cast<std::size_t>(start - 1)] = whole ? sums[k] : kNoValue;
  }
  return values;
}

}  // namespace vistaplot
