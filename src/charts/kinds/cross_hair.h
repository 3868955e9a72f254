// Where a chart's cross-hair stands: on one stop of its kind of figure, which is a market day on
// charts of days. Knows no painting.
#pragma once

#include <vector>

#include "charts/view/chart_view.h"

namespace vistaplot {

// Where a chart's cross-hair can rest, and where an arrow key goes from there.

struct Stop {
  double position = 0.0;  ///< on the chart's horizontal scale
  int row = 0;            ///< of the view, from 1
  int column = 0;         ///< of charts over two parameters; else 0
  double value = 0.0;     ///< on the vertical scale, where several stops share a position
};

/// The stops of one chart, from left to right and from bottom to top; counted from 0.
class StopList {
 public:
  StopList() = default;

  /// Rows 1 to `count` at the positions 1 to `count`.
  static StopList OfRows(int count);

  /// Any order. `stacked`: stops that share a position are told apart by their values; else one
  /// after the other.
  explicit StopList(std::vector<Stop> stops, bool stacked = false);

  int Count() const { return count_; }
  bool Stacked() const { return stacked_; }

  /// Where a cross-hair appears when a key asks for it: the last stop, or what was set.
  int Start() const { return start_ < 0 ? count_ - 1 : start_; }
  void SetStart(int stop) { start_ = stop; }

  Stop At(int stop) const;

  /// The stop of a row (and column); Count() when there is none.
  int Find(int row, int column = 0) const;

  /// The stop nearest to a place on the horizontal scale, of stacked ones to the value too; -1
  /// without stops.
  int Nearest(double position, double value) const;

  /// `steps` stops to the right, or left; of stacked ones that many positions, at the value nearest
  /// to the present one. Stays on the list.
  int Beside(int stop, int steps) const;

  /// `steps` stops up, or down, at the same position; the same stop when it is the last one there
  /// or stops are not stacked.
  int Above(int stop, int steps) const;

 private:
  int FirstAt(double position) const;  ///< the first stop at or behind a position

  std::vector<Stop> stops_;  ///< empty where positions are the row numbers
  int count_ = 0;
  int start_ = -1;
  bool stacked_ = false;
};

class CrossHair {
 public:
  /// Takes over a view's stops. Hides when no stop is left. A row number that the view no longer
  /// has becomes its last.
  void Follow(const ChartView& view);

  /// False when the view has nothing to stand on.
  bool Possible() const { return stops_.Count() > 0; }
  bool Shown() const { return shown_; }
  void Hide() { shown_ = false; }

  /// Whether Up and Down go from stop to stop; else they may go from series to series.
  bool Climbs() const { return stops_.Stacked(); }

  int Row() const { return Place().row; }  ///< from 1; of the place where it stands or stood last
  double Position() const { return Place().position; }  ///< on the chart's horizontal scale
  Stop Place() const { return stops_.At(stop_); }

  // Each shows the cross-hair and returns true when it appeared or moved.

  /// The stop nearest to a place on the horizontal scale, and on the vertical one where that
  /// counts.
  bool SnapTo(double position, double value = 0.0);
  bool GoToRow(int row, int column = 0);  ///< nothing happens when the row has no stop
  bool Step(int steps);   ///< to the right, or left; a hidden one appears where stops start
  bool Climb(int steps);  ///< up, or down, where it Climbs
  bool Appear() { return GoTo(stops_.Start()); }
  bool GoToFirst() { return GoTo(0); }
  bool GoToLast() { return GoTo(stops_.Count() - 1); }

 private:
  bool GoTo(int stop);

  StopList stops_;
  int stop_ = 0;  ///< from 0
  bool shown_ = false;
};

}  // namespace vistaplot
