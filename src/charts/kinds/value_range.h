// The spans of a chart's axes, from its values.
#pragma once

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

}  // namespace vistaplot
