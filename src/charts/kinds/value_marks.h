// Round values of an axis and their texts.
#pragma once

#include <string>
#include <vector>

#include "charts/view/chart_view.h"

namespace vistaplot {

struct ValueMark {
  double value = 0.0;
  std::string text;
  bool zero = false;  ///< stands for no change, or 0
};

/// The smallest step of 1, 2, 2.5 or 5 times a power of ten that divides `span` (above 0) into at
/// most `most` (at least 1) steps.
double RoundStep(double span, int most);

/// The multiples of a round step from `low` to `high` (low < high), at most `most` + 1 of them.
std::vector<ValueMark> RoundMarks(double low, double high, int most, ValueUnit unit);

/// "+10%", "0%", "−2.5%", "0.75", "1.5M": as many decimals as multiples of `step` need.
std::string MarkText(double value, double step, ValueUnit unit);

}  // namespace vistaplot
