#include "charts/kinds/value_marks.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/number_text.h"

namespace vistaplot {
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
