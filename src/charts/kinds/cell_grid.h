// The cells of a parameter chart as the drawing sees them: a value, or nothing, at every crossing
// of a row and a column, and what a reader wants to know of one: its rank and its neighbourhood.
// Rows and columns count from 1; row 1 holds the largest Y parameter and stands on top.
#pragma once

#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "charts/kinds/cross_hair.h"
#include "charts/kinds/draw_context.h"
#include "charts/kinds/kind.h"
#include "charts/kinds/read_out.h"
#include "charts/kinds/value_bands.h"
#include "charts/view/chart_view.h"

namespace vistaplot {

/// One crossing of the grid.
struct GridCell {
  int row = 0;
  int column = 0;
  bool operator==(const GridCell&) const = default;
};

/// A copy of a view's values, row by row: neighbours lie side by side while regions are traced.
class CellGrid {
 public:
  explicit CellGrid(const ChartView& view);

  int Rows() const { return rows_; }
  int Columns() const { return columns_; }

  /// The value of a crossing of the grid; not a number where the cell is empty.
  double At(int row, int column) const {
    return values_[static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(columns_) +
                   static_cast<std::size_t>(column - 1)];
  }
  bool Filled(int row, int column) const { return std::isfinite(At(row, column)); }

  /// The square of cells (row, column) to (row + 1, column + 1) has a value at each corner.
  bool SquareFilled(int row, int column) const {
    return row >= 1 && column >= 1 && row < rows_ && column < columns_ && Filled(row, column) &&
           Filled(row, column + 1) && Filled(row + 1, column) && Filled(row + 1, column + 1);
  }

  /// A filled cell that is a corner of no filled square.
  bool Lone(int row, int column) const {
    return Filled(row, column) && !SquareFilled(row, column) && !SquareFilled(row - 1, column) &&
           !SquareFilled(row, column - 1) && !SquareFilled(row - 1, column - 1);
  }

  int FilledCount() const { return filled_; }
  double Lowest() const { return lowest_; }    ///< of the filled cells; 0 without any
  double Highest() const { return highest_; }  ///< of the filled cells; 0 without any

  /// 1 for the best value of the grid; equal values share the better rank.
  int RankOf(double value, bool lower_is_better) const;

  /// The mean of the up to eight neighbours that are not empty, the cell itself left out; nothing
  /// with fewer than three of them. A lone peak stands far above its plateau.
  std::optional<double> PlateauOf(GridCell cell) const;

  /// The best filled cell; of equal ones the one that `earlier(a, b)` puts first.
  template <class Earlier>
  std::optional<GridCell> Best(bool lower_is_better, const Earlier& earlier) const;

  /// The filled cell with the best plateau, in reading order the first of equals.
  std::optional<GridCell> BestPlateau(bool lower_is_better) const;
  bool HasPlateau() const;

  /// The cells of each `stride` rows and columns and of the last ones, to trace regions of: what a
  /// picture with fewer pixels than cells can show.
  CellGrid Thinned(int stride) const;

  /// The numbers of its rows or columns in the whole grid: 1, 1 + stride, ..., and `last`.
  static std::vector<int> Nodes(int last, int stride);

 private:
  CellGrid() = default;

  int rows_ = 0;
  int columns_ = 0;
  std::vector<double> values_;
  int filled_ = 0;
  double lowest_ = 0.0;
  double highest_ = 0.0;
};

template <class Earlier>
std::optional<GridCell> CellGrid::Best(bool lower_is_better, const Earlier& earlier) const {
  const double wanted = lower_is_better ? lowest_ : highest_;
  std::optional<GridCell> best;
  for (int row = 1; row <= rows_; ++row) {
    for (int column = 1; column <= columns_; ++column) {
      const GridCell cell{row, column};
      if (At(row, column) == wanted && (!best || earlier(cell, *best))) best = cell;
    }
  }
  return best;
}

// What contour and surface charts share: the cells of the grid in bands, the marks of the best
// ones, and what is read off at a cell.

/// The cells of a view as they are drawn.
struct ParameterCells {
  explicit ParameterCells(const ChartView& view);

  CellGrid grid;
  ValueBands bands;
  std::optional<GridCell> best;     ///< of equal cells the first case of the file
  std::optional<GridCell> plateau;  ///< the cell with the best neighbourhood
};

/// The parameters of the grid's columns and rows as plain numbers, by its first ones and steps; a
/// case beside the grid counts to the crossing that it landed on. `number` from 1.
std::string ColumnNumber(const ChartView& view, int number);
std::string RowNumber(const ChartView& view, int number);

/// The columns that bear a number, from 1: `least` or more of them from one to the next, at round
/// numbers where the parameters have any.
std::vector<int> LabelledColumns(const ChartView& view, double least);

/// The same of rows, counted from below.
std::vector<int> LabelledRows(const ChartView& view, double least);

/// "12.5 – 15" for each band, the highest first, then the two marks.
std::vector<LegendMark> ParameterLegend(const ChartView& view, const ChartTheme& theme);

/// How much larger the diamond is where the star lies on it.
inline constexpr double kBehindStar = 1.9;

/// The mark of the best cell (a star) or of the best plateau (a diamond), `size` wide.
FillShape CellMark(bool best, PicturePoint at, double size);

/// The filled cells as stops of a cross-hair, column by column, each from below; the best is where
/// it appears. Heights count rows from below.
StopList CellStops(const ChartView& view);

/// The two parameters as heading; value, rank and plateau of a filled cell as entries (a dash where
/// too few neighbours make no plateau).
ReadOut ReadCell(const ChartView& view, int row, int column, const ChartTheme& theme);

/// What the kinds of figures over two parameters have in common: cells in the place of series.
class ParameterKind : public Kind {
 public:
  std::vector<DrawnSeries> Series(const ChartView&) const override { return {}; }
  std::vector<LegendMark> Legend(const ChartView& view, const ChartTheme& theme) const override {
    return ParameterLegend(view, theme);
  }
  void DrawSwatch(const DrawContext& /*context*/,
                  const DrawnSeries& /*series*/,
                  const PictureBox& /*box*/,
                  ChartPicture& /*picture*/) const override {}
  StopList Stops(const ChartView& view) const override { return CellStops(view); }
};

}  // namespace vistaplot
