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
};

}  // namespace vistaplot
