// What a chart is, beside what it shows: facts that the builders state and that drawing, cross-hair
// and read-out need. A chart's dump does not hold them. Rows and series count from 1.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "charts/view/grid_parameters.h"

namespace vistaplot {

/// The kind of figure; each is a file of charts/kinds.
enum class FigureKind {
  kOfChartType,  ///< the one that the view's ChartType names
  kLines,        ///< lines or markers over rows
  kXY,           ///< lines or markers over X values
  kCandles,
  kBoxes,  ///< point and figure: X and O over columns of boxes
  kContour,
  kSurface,
};

/// What the values of the value axis are.
enum class ValueUnit {
  kPlain,     ///< a number
  kChange,    ///< fractional change since a base price: 0.1 reads "+10%"
  kRatio,     ///< value relative to a base price: 1.1 reads "+10%"
  kPrice,     ///< a price
  kPeriod,    ///< market days of a cycle
  kPower,     ///< of a spectrum
  kExponent,  ///< of Hurst
};

/// True for values relative to a base price, which axis and read-out show as percent change.
inline bool IsRebased(ValueUnit unit) {
  return unit == ValueUnit::kChange || unit == ValueUnit::kRatio;
}

/// What a series stands for; drawing tells them apart by weight, shade and dash.
enum class SeriesRole {
  kPlain,            ///< a fund's price or bars, or anything that is the chart's own subject
  kAverage,          ///< exponential
  kAdaptiveAverage,  ///< adaptive
  kStop,             ///< parabolic
  kUpperBand,
  kMiddleBand,
  kLowerBand,
  kTrend,
  kForecast,  ///< a forecast that was added: all its rows are predicted but the first
  kPeak,
};

struct SeriesFacts {
  /// For the read-out: "ABC upper band 20", "Trend", "peak 1". Empty: the column's label.
  /// Of bars and boxes, the fund alone ("ABC").
  std::string name;
  SeriesRole role = SeriesRole::kPlain;
  /// The series whose hue this one takes (an overlay its fund's price); 0: its own.
  int parent = 0;
  /// The price at which a change is 0 or a ratio is 1; 0 where values stand for no price.
  double base = 0.0;
  /// The row of the last price when its history has ended (days behind repeat that price).
  /// May lie outside the chart: below 1 when it ended before the first row.
  std::optional<int> last_price_row;
};

/// One box of a point-and-figure chart.
struct BoxFacts {
  std::string date;    ///< of the day that added it: "03/14/23"
  double size = 0.0;   ///< its height on the level axis; it stands about its level
  bool rises = false;  ///< an X, else an O
};

struct ChartFacts {
  FigureKind kind = FigureKind::kOfChartType;
  ValueUnit unit = ValueUnit::kPlain;
  /// The last row that is a real day; rows behind are a forecast. 0: all rows are real.
  int last_real_row = 0;
  /// The part of the picture's width at its right where another chart lies over this one.
  double covered_right = 0.0;
  /// What a row is where its label alone does not tell: "period". Empty on charts of days.
  std::string row_name;
  /// Element s - 1 belongs to series s as clicks count them (of bars, a fund's four columns are one
  /// series); may be shorter than the series.
  std::vector<SeriesFacts> series;
  /// Of charts of boxes, the box of row r at index r - 1; rows behind are fillers.
  std::vector<BoxFacts> boxes;
  /// Of charts over two parameters.
  GridParameters cells;

  /// The facts of series `number`, made on first use. Valid until the next series is made.
  SeriesFacts& Series(int number);
  /// The same to read; all defaults where none were stated.
  const SeriesFacts& SeriesAt(int number) const;
};

}  // namespace vistaplot
