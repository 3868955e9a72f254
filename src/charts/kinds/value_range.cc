#include "charts/kinds/value_range.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

#include "base/number_text.h"

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

namespace {

constexpr double kSlack = 1e-9;  // of a step: what rounding may add to a multiple

// Decimals that write every multiple of `step` exactly, at most 9.
int DecimalsOf(double step) {
  int decimals = 0;
  for (double scaled = step; decimals < 9; scaled *= 10.0, ++decimals) {
    if (std::abs(scaled - std::round(scaled)) < kSlack * std::max(1.0, scaled)) break;
  }
  return decimals;
}

std::string Signed(double value, double step, bool plus) {
  if (std::abs(value) <= step * kSlack) return "0";
  std::string text = FixedText(std::abs(value), DecimalsOf(step));
  if (value < 0.0) return "−" + text;
  return plus ? "+" + text : text;
}

struct Magnitude {
  double from;
  const char* suffix;
};
constexpr std::array<Magnitude, 3> kMagnitudes = {{{1e12, "T"}, {1e9, "bn"}, {1e6, "M"}}};

std::string PlainText(double value, double step) {
  const double size = std::max(std::abs(value), step);
  if (size >= 1e15 || step < 1e-6) return ExactText(std::abs(value) < step / 2.0 ? 0.0 : value);
  for (const Magnitude& magnitude : kMagnitudes) {
    if (std::abs(value) >= magnitude.from) {
      return Signed(value / magnitude.from, step / magnitude.from, false) + magnitude.suffix;
    }
  }
  return Signed(value, step, false);
}

}  // namespace

int WholeStep(double least) {
  for (int power = 1;; power *= 10) {
    for (const int step : {1, 2, 5}) {
      if (step * power >= std::min(least, 1e6)) return step * power;
    }
  }
}

double RoundStep(double span, int most) {
  const double exact = span / most;
  const double power = std::pow(10.0, std::floor(std::log10(exact)));
  for (const double factor : {1.0, 2.0, 2.5, 5.0}) {
    if (factor * power >= exact * (1.0 - kSlack)) return factor * power;
  }
  return 10.0 * power;
}

std::vector<ValueMark> RoundMarks(double low, double high, int most, ValueUnit unit) {
  const double base = unit == ValueUnit::kRatio ? 1.0 : 0.0;
  const double step = RoundStep(high - low, most);
  const double first = std::ceil((low - base) / step - kSlack);
  const double last = std::floor((high - base) / step + kSlack);
  std::vector<ValueMark> marks;
  for (double k = first; k <= last && marks.size() <= static_cast<std::size_t>(most); k += 1.0) {
    const double value = k == 0.0 ? base : base + k * step;
    marks.push_back({value, MarkText(value, step, unit), k == 0.0});
  }
  return marks;
}

std::string MarkText(double value, double step, ValueUnit unit) {
  if (!IsRebased(unit)) return PlainText(value, step);
  const double change = unit == ValueUnit::kRatio ? value - 1.0 : value;
  return Signed(change * 100.0, step * 100.0, true) + "%";
}

}  // namespace vistaplot
