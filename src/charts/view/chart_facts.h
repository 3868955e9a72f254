// What a chart is, beside what it shows: facts that the builders state and that drawing, cross-hair
// and read-out need. A chart's dump does not hold them. Rows and series count from 1.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace vistaplot {

// What the builder of a chart over two parameters states of its grid, beside the cells themselves.

/// From where a surface is looked at, in degrees: `azimuth` around the box, counter-clockwise from
/// the X axis; `elevation` above its base.
struct SurfaceTurn {
  double azimuth = 225.0;
  double elevation = 30.0;
  bool operator==(const SurfaceTurn&) const = default;
};

struct GridParameters {
  double first_x = 1.0;  ///< the parameter of column 1, the smallest
  double step_x = 1.0;   ///< from column to column
  double first_y = 1.0;  ///< the parameter of row 1, the largest
  double step_y = 1.0;   ///< from row down to row
  int x_column = 0;      ///< of the sheet, from 1; 0: unknown
  int y_column = 0;
  bool lower_is_better = false;  ///< a draw-down, an ulcer index

  /// The sheet's row of each cell, grid row by grid row; 0 for an empty cell. May be shorter.
  std::vector<int> cases;

  SurfaceTurn turn;
  bool turning = false;  ///< large surfaces are drawn coarser, to follow the hand

  /// The sheet's row of a cell of a grid of `columns` columns; 0 where none is known.
  int CaseAt(int columns, int row, int column) const {
    const auto index = static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(columns) +
                       static_cast<std::size_t>(column - 1);
    return row >= 1 && column >= 1 && column <= columns && index < cases.size() ? cases[index] : 0;
  }
};

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
  kPlain,        ///< a number
  kChange,       ///< fractional change since a base price: 0.1 reads "+10%"
  kRatio,        ///< value relative to a base price: 1.1 reads "+10%"
  kPrice,        ///< a price
  kPeriod,       ///< market days of a cycle
  kPower,        ///< of a spectrum
  kCoefficient,  ///< an exponent of Hurst, a correlation
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
  /// The part of the picture's height at its top where a line of text lies over this one.
  double covered_top = 0.0;
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
