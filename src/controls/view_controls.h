// Controls that show large contents: the spreadsheet grid and the charts.
#pragma once

#include <functional>

#include "charts/view/chart_view.h"
#include "controls/control.h"

namespace vistaplot {

/// A spreadsheet over the active sheet of the data table. The skin reads the table itself.
class Grid : public Control {
 public:
  Grid() : Control(ControlKind::kGrid) {}

  /// Row and column clicked, from 1; 0 is the heading strip of the view itself.
  std::function<void(int row, int col)> Click;
  std::function<void(int row, int col)> RClick;

  void RaiseClick(int row, int col) {
    if (Click) Click(row, col);
  }
  void RaiseRClick(int row, int col) {
    if (RClick) RClick(row, col);
  }
};

class ChartBox : public Control {
 public:
  ChartBox() : Control(ControlKind::kChartBox) {
    view.SetObserver([this] { Tell(ControlAspect::kValue); });
  }

  ChartView view;
  std::function<void(PointSelection& selection)> PointSelected;

  void RaisePointSelected(PointSelection& selection) {
    if (PointSelected) PointSelected(selection);
  }

  /// A cell of a chart over two parameters was opened: Enter, or a double click.
  std::function<void(int row, int column)> CellOpened;

  void RaiseCellOpened(int row, int column) {
    if (CellOpened) CellOpened(row, column);
  }

  /// The day axes of this chart and `other` lie below each other, and one cross-hair goes through
  /// both. Both live as long as their form.
  void ShareDaysWith(ChartBox& other) {
    other_ = &other;
    other.other_ = this;
    view.days_with = &other.view;
    other.view.days_with = &view;
  }

  /// The cross-hair stands on `row` now, or nowhere (0): the chart that shares the days follows.
  void Point(int row) {
    if (other_ == nullptr || other_->pointed_row_ == row) return;
    if (row > 0 && other_->view.rowcount() != view.rowcount()) return;
    other_->pointed_row_ = row;
    other_->Tell(ControlAspect::kPointed);
  }

  /// The row that the other chart was pointed to last; 0 for none.
  int PointedRow() const { return pointed_row_; }

 private:
  ChartBox* other_ = nullptr;
  int pointed_row_ = 0;
};

}  // namespace vistaplot
