#include "charts/layout/layout_parts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "charts/kinds/value_marks.h"

namespace vistaplot {
namespace {

constexpr double kPixelsPerPoint = 96.0 / 72.0;
constexpr double kFurthest = 1e300;  // keeps spans of values finite

const ChartSeries& DefaultSettings() {
  static const ChartSeries settings;
  return settings;
}

ValueRange EmptyRange() {
  return {std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()};
}

/// Rebased prices that do not move differ by the rounding of their single-precision base.
constexpr double kRebasedNoise = 1e-6;

// Widened where it is rounding alone, so that a flat price is drawn flat.
ValueRange WithoutNoise(ValueRange range) {
  if (range.low > range.high || range.high - range.low > kRebasedNoise) return range;
  const double middle = std::round((range.low + range.high) / 2.0 / kRebasedNoise) * kRebasedNoise;
  return {middle - 0.01, middle + 0.01};
}

// Widened by `part` of its span at both ends; a single value gets room as well.
ValueRange WithMargin(ValueRange range, double part) {
  if (range.low > range.high) return {};
  range.low = std::max(range.low, -kFurthest);
  range.high = std::min(range.high, kFurthest);
  double margin = (range.high - range.low) * part;
  const double least = std::max(std::abs(range.low), std::abs(range.high)) * 1e-9;
  if (margin <= least) margin = range.low == 0.0 ? 0.01 : std::abs(range.low) * 0.01;
  return {range.low - margin, range.high + margin};
}

void Include(ValueRange& range, double value) {
  range.low = std::min(range.low, value);
  range.high = std::max(range.high, value);
}

void IncludeRows(ValueRange& range, const std::vector<double>& values) {
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

// Where the characters of UTF-8 text begin, and its end.
std::vector<std::size_t> LetterStarts(const std::string& text) {
  std::vector<std::size_t> starts;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if ((static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80U) starts.push_back(i);
  }
  starts.push_back(text.size());
  return starts;
}

// The first two thirds and the last third of `kept` characters, the rest left out.
std::string MiddleElided(const std::string& text,
                         const std::vector<std::size_t>& starts,
                         std::size_t kept) {
  const std::size_t tail = kept / 3;
  return text.substr(0, starts[kept - tail]) + "…" + text.substr(starts[starts.size() - 1 - tail]);
}

ValueRange RowRange(int rows) {
  if (rows < 2) return {0.5, 1.5};
  return {1.0, static_cast<double>(rows)};
}

}  // namespace

int LayoutContext::FontPixels(double points) const {
  return std::max(7, static_cast<int>(std::lround(points * kPixelsPerPoint * scale)));
}

std::vector<DrawnSeries> SeriesOf(const ChartView& view) {
  std::vector<DrawnSeries> series;
  if (view.ChartType == kChartCombination) {
    for (int c = 1; c <= view.ColumnCount(); ++c) series.push_back({c, 0, c});
  } else if (view.ChartType == kChartXY) {
    for (int c = 1; c + 1 <= view.ColumnCount(); c += 2) {
      series.push_back({(c + 1) / 2, c, c + 1});
    }
  }
  return series;
}

const ChartSeries& SettingsOf(const ChartView& view, int number) {
  const auto& all = view.Plot.SeriesCollection;
  const auto index = static_cast<std::size_t>(number - 1);
  return index < all.size() ? all[index] : DefaultSettings();
}

PictureColor SeriesInk(const LayoutContext& context, int number) {
  const ChartColor& pen = SettingsOf(context.view, number).Pen.VtColor;
  return InkOn(context.theme, pen == ChartColor{} ? DefaultSeriesColor(number) : pen);
}

PictureColor MarkerInk(const LayoutContext& context, const ChartMarker& marker, int series) {
  if (marker.Pen.VtColor == ChartColor{}) return SeriesInk(context, series);
  return InkOn(context.theme, marker.Pen.VtColor);
}

MarkerShape SeriesMarkerShape(int number) {
  constexpr std::array kShapes = {MarkerShape::kDot,
                                  MarkerShape::kSquare,
                                  MarkerShape::kTriangle,
                                  MarkerShape::kDiamond,
                                  MarkerShape::kCross,
                                  MarkerShape::kPlus,
                                  MarkerShape::kCircle};
  return kShapes[static_cast<std::size_t>(number - 1) % kShapes.size()];
}

MarkerShape MarkerShapeOf(const ChartMarker& marker, int series) {
  switch (marker.style) {
    case kMarkerCross:
      return MarkerShape::kCross;
    case kMarkerStar:
      return MarkerShape::kStar;
    case kMarkerCircle:
      return MarkerShape::kCircle;
    default:
      return SeriesMarkerShape(series);
  }
}

AxisRanges RangesOf(const ChartView& view) {
  AxisRanges ranges{EmptyRange(), EmptyRange()};
  const bool by_row = view.ChartType != kChartXY;
  for (const DrawnSeries& series : SeriesOf(view)) {
    const auto& values = view.ColumnData(series.y_column);
    if (by_row) {
      IncludeRows(ranges.values, values);
    } else {
      IncludePairs(ranges, view.ColumnData(series.x_column), values);
    }
  }
  ranges.positions = by_row ? RowRange(view.rowcount()) : WithMargin(ranges.positions, 0.02);
  if (ValueUnitOf(view) != ValueUnit::kPlain) ranges.values = WithoutNoise(ranges.values);
  const auto& fixed = view.Plot.Axis[1].ValueScale;
  const bool usable = !fixed.Auto && fixed.Minimum < fixed.Maximum;
  ranges.values =
      usable ? ValueRange{fixed.Minimum, fixed.Maximum} : WithMargin(ranges.values, 0.05);
  return ranges;
}

std::string ElideText(const LayoutContext& context,
                      const std::string& text,
                      int pixels,
                      double width) {
  if (context.measure.Width(text, pixels, false) <= width) return text;
  const std::vector<std::size_t> starts = LetterStarts(text);
  std::size_t fits = 1;
  std::size_t too_many = std::max<std::size_t>(starts.size() - 1, 2);
  while (too_many - fits > 1) {
    const std::size_t middle = (fits + too_many) / 2;
    const std::string tried = MiddleElided(text, starts, middle);
    (context.measure.Width(tried, pixels, false) <= width ? fits : too_many) = middle;
  }
  return MiddleElided(text, starts, fits);
}

}  // namespace vistaplot
