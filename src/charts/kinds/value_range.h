// The spans of a chart's axes, from its values.
#pragma once

#include <string>
#include <vector>

#include "charts/view/chart_view.h"

namespace vistaplot {

struct ValueRange {
  double low = 0.0;
  double high = 1.0;
};

struct AxisRanges {
  ValueRange positions;  ///< from left to right: rows, columns or X values
  ValueRange values;     ///< from bottom to top
};

/// A range that holds nothing yet.
ValueRange EmptyRange();

/// Takes in one value, or the finite ones of many.
void Include(ValueRange& range, double value);
void IncludeFinite(ValueRange& range, const std::vector<double>& values);

/// Takes in the pairs whose two values are finite.
void IncludePairs(AxisRanges& ranges, const std::vector<double>& x, const std::vector<double>& y);

/// Widened by `part` of its span at both ends; a single value gets room as well, and an empty range
/// becomes 0 to 1.
ValueRange WithMargin(ValueRange range, double part);

/// Widened where it is the rounding of a single-precision base alone, so that a flat price is drawn
/// flat.
ValueRange WithoutNoise(ValueRange range);

/// The positions of rows 1 to `rows`.
ValueRange RowRange(int rows);

/// The bounds that the view fixes for its value axis where they are usable (Minimum < Maximum),
/// else `range` with the usual margin.
ValueRange FixedOrMargin(const ChartView& view, ValueRange range);

// Round values of an axis and their texts.

struct ValueMark {
  double value = 0.0;
  std::string text;
  bool zero = false;  ///< stands for no change, or 0
};

/// 1, 2, 5, 10, 20, 50, ...: the first at or above `least`; at most a million.
int WholeStep(double least);

/// The smallest step of 1, 2, 2.5 or 5 times a power of ten that divides `span` (above 0) into at
/// most `most` (at least 1) steps.
double RoundStep(double span, int most);

/// The multiples of a round step from `low` to `high` (low < high), at most `most` + 1 of them.
std::vector<ValueMark> RoundMarks(double low, double high, int most, ValueUnit unit);

/// "+10%", "0%", "−2.5%", "0.75", "1.5M": as many decimals as multiples of `step` need.
std::string MarkText(double value, double step, ValueUnit unit);

}  // namespace vistaplot
