// What the parts of the layout share: the view with its size and theme, the series as columns, and
// the ranges of the axes. For the layout's own sources.
#pragma once

#include <string>
#include <vector>

#include "charts/layout/layout.h"
#include "charts/view/chart_picture.h"
#include "charts/view/chart_view.h"
#include "charts/view/palette.h"

namespace vistaplot {

struct LayoutContext {
  const ChartView& view;
  const TextMeasure& measure;
  PictureSize size;
  ChartTheme theme;
  double scale = 1.0;   ///< of texts and margins; 1 on a picture of 640 by 480
  double detail = 1.0;  ///< device pixels a unit

  /// Whole pixels of a font size in points (96 to the inch), grown with the picture; at least 7.
  int FontPixels(double points) const;
};

/// A series that lines or markers stand for.
struct DrawnSeries {
  int number = 0;    ///< from 1: its place in SeriesCollection and in clicks
  int x_column = 0;  ///< 0: the row number is the position
  int y_column = 0;
};

/// The series of a combination chart (one a column) or of an XY chart (one a pair of columns);
/// none for other kinds.
std::vector<DrawnSeries> SeriesOf(const ChartView& view);

/// The settings of series `number`; the defaults when the collection is shorter.
const ChartSeries& SettingsOf(const ChartView& view, int number);

PictureColor SeriesInk(const LayoutContext& context, int number);

/// A marker's colour: its own pen's, else (a black one counts as unset) the series'.
PictureColor MarkerInk(const LayoutContext& context, const ChartMarker& marker, int series);

/// The shape of the markers of a whole series, or of one marker by its style.
MarkerShape SeriesMarkerShape(int number);
MarkerShape MarkerShapeOf(const ChartMarker& marker, int series);

struct ValueRange {
  double low = 0.0;
  double high = 1.0;
};

struct AxisRanges {
  ValueRange positions;
  ValueRange values;
};

/// What the axes span: rows or X values, and the values with a margin, or the bounds that the view
/// fixes. low < high always.
AxisRanges RangesOf(const ChartView& view);

/// Text metrics of the charts' fonts as parts of the pixel size.
inline constexpr double kCapHeight = 0.73;
inline constexpr double kLineHeight = 1.35;

/// `text` cut to `width` with an ellipsis two thirds along it, so that names that differ at their
/// end alone stay apart; at least one letter stays. A text that fits comes back whole.
std::string ElideText(const LayoutContext& context,
                      const std::string& text,
                      int pixels,
                      double width);

}  // namespace vistaplot
