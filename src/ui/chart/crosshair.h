// Where a chart's cross-hair stands: on one row of the view, which is a market day on charts of
// days. Knows no painting.
#pragma once

#include <vector>

#include "charts/view/chart_view.h"

namespace vistaplot {

class CrossHair {
 public:
  /// Takes over a view's rows, in the order in which they lie from left to right; views whose rows
  /// have no such places (surfaces) get no cross-hair. Hides when no row is left. A row number
  /// that the view no longer has becomes its last.
  void Follow(const ChartView& view);

  /// False when the view has no rows to stand on.
  bool Possible() const { return count_ > 0; }
  bool Shown() const { return shown_; }
  void Hide() { shown_ = false; }

  int Row() const;          ///< from 1; of the place where it stands or stood last
  double Position() const;  ///< on the chart's horizontal scale: the row, or the row's X value

  // Each shows the cross-hair and returns true when it appeared or moved.

  bool SnapTo(double position);  ///< the row nearest to a place on the horizontal scale
  bool GoToRow(int row);         ///< nothing happens when the row has no place
  bool Step(int rows);           ///< to the right, or left; a hidden one appears on the last row
  bool GoToFirst() { return GoTo(0); }
  bool GoToLast() { return GoTo(count_ - 1); }

 private:
  struct Stop {
    double position;
    int row;
  };

  bool GoTo(int stop);
  int StopOfRow(int row) const;
  Stop StopAt(int stop) const;

  std::vector<Stop> stops_;  ///< by position; empty where positions are the row numbers
  int count_ = 0;
  int stop_ = 0;  ///< from 0
  bool shown_ = false;
};

}  // namespace vistaplot
