#include "charts/kinds/value_range.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace vistaplot {
namespace {

constexpr double kFurthest = 1e300;     // keeps spans of values finite
constexpr double kRebasedNoise = 1e-6;  // by which rebased prices that do not move may differ
constexpr double kUsualMargin = 0.05;

}  // namespace

ValueRange EmptyRange() {
  return {std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()};
}

void Include(ValueRange& range, double value) {
  range.low = std::min(range.low, value);
  range.high = std::max(range.high, value);
}

void IncludeFinite(ValueRange& range, const std::vector<double>& values) {
  for (const double value : values) {
    if (std::isfinite(value)) Include(range, value);
  }
}

void IncludePairs(AxisRanges& ranges, const std::vector<double>& x, const std::vector<double>& y) {
  for (std::size_t i = 0; i < std::min(x.size(), y.size()); ++i) {
    if (!std::isfinite(x[i]) || !std::isfinite(y[i])) continue;
    Include(ranges.positions, x[i]);
    Include(ranges.values, y[i]);
  }
}

ValueRange WithMargin(ValueRange range, double part) {
  if (range.low > range.high) return {};
  range.low = std::max(range.low, -kFurthest);
  range.high = std::min(range.high, kFurthest);
  double margin = (range.high - range.low) * part;
  const double least = std::max(std::abs(range.low), std::abs(range.high)) * 1e-9;
  if (margin <= least) margin = range.low == 0.0 ? 0.01 : std::abs(range.low) * 0.01;
  return {range.low - margin, range.high + margin};
}

ValueRange WithoutNoise(ValueRange range) {
  if (range.low > range.high || range.high - range.low > kRebasedNoise) return range;
  const double middle = std::round((range.low + range.high) / 2.0 / kRebasedNoise) * kRebasedNoise;
  return {middle - 0.01, middle + 0.01};
}

ValueRange RowRange(int rows) {
  if (rows < 2) return {0.5, 1.5};
  return {1.0, static_cast<double>(rows)};
}

ValueRange FixedOrMargin(const ChartView& view, ValueRange range) {
  const auto& fixed = view.Plot.Axis[1].ValueScale;
  const bool usable = !fixed.Auto && fixed.Minimum < fixed.Maximum;
  return usable ? ValueRange{fixed.Minimum, fixed.Maximum} : WithMargin(range, kUsualMargin);
}

}  // namespace vistaplot
