// Where a chart's cross-hair stands: on one stop of its kind of figure, which is a market day on
// charts of days. Knows no painting.
#pragma once

#include "charts/kinds/stops.h"
#include "charts/view/chart_view.h"

namespace vistaplot {

class CrossHair {
 public:
  /// Takes over a view's stops; views without any (surfaces) get no cross-hair. Hides when no stop
  /// is left. A row number that the view no longer has becomes its last.
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
  bool Step(int steps);   ///< to the right, or left; a hidden one appears on the last stop
  bool Climb(int steps);  ///< up, or down, where it Climbs
  bool GoToFirst() { return GoTo(0); }
  bool GoToLast() { return GoTo(stops_.Count() - 1); }

 private:
  bool GoTo(int stop);

  StopList stops_;
  int stop_ = 0;  ///< from 0
  bool shown_ = false;
};

}  // namespace vistaplot
