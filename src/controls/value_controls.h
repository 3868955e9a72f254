// Controls that hold a value. Setting a value from code raises the same event as the user's action,
// at once: store, tell the skin, raise; so a handler that sets the same control again finds all in
// step. Leaving a text box is the user's alone.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "charts/view/chart_view.h"
#include "controls/control.h"

namespace vistaplot {

class EntryControl;

/// What a text box is filled with, for skins that can offer more than typing.
enum class TextContent { kPlain, kDrive, kFolder };

class TextBox : public Control {
 public:
  TextBox() : Control(ControlKind::kTextBox) {}

  TextContent content = TextContent::kPlain;
  /// The list that typing here moves through; its key Down leads into it. Null for most.
  EntryControl* searched = nullptr;
  std::function<void()> Change;
  std::function<void()> LostFocus;

  const std::string& Text() const { return text_; }
  /// Raises Change when the text differs.
  void SetText(std::string_view text);

  void RaiseLostFocus() {
    if (LostFocus) LostFocus();
  }

  /// Why the text does not do; empty when it does. Skins show such a text as wrong.
  const std::string& Fault() const { return fault_; }
  void SetFault(std::string_view why);

 private:
  std::string text_;
  std::string fault_;
};

class CheckBox : public Control {
 public:
  CheckBox() : Control(ControlKind::kCheckBox) {}

  std::function<void()> Click;

  bool Checked() const { return checked_; }
  /// Raises Click when it changes.
  void SetChecked(bool checked);

 private:
  bool checked_ = false;
};

/// A scroll bar; Value stays within Min and Max.
class ScrollBar : public Control {
 public:
  ScrollBar() : Control(ControlKind::kScrollBar) {}

  std::function<void()> Change;

  int Min() const { return min_; }
  int Max() const { return max_; }
  int Value() const { return value_; }

  /// A bound that passes Value moves it along, which raises Change.
  void SetMin(int min);
  void SetMax(int max);
  /// Brought within the bounds; raises Change when it changes.
  void SetValue(int value);

 private:
  int min_ = 0;
  int max_ = 32767;
  int value_ = 0;
};

// Controls with a caption and at most a click: labels, panels, frames, buttons, menu items, and the
// timer.

class Label : public Control {
 public:
  Label() : Control(ControlKind::kLabel) {}
};

/// A panel: a tool bar, or a field of the status line. A meter shows a percentage as well.
class Panel : public Control {
 public:
  Panel() : Control(ControlKind::kPanel) {}

  int Percent() const { return percent_; }  ///< 0 to 100
  /// Stores it, and repaints when it changed.
  void SetPercent(int percent);

 private:
  int percent_ = 0;
};

class Frame : public Control {
 public:
  Frame() : Control(ControlKind::kFrame) {}
};

class Button : public Control {
 public:
  Button() : Control(ControlKind::kButton) {}

  std::function<void()> Click;
  std::function<void()> MouseMove;  ///< the pointer came over it (tool buttons)
  int tip_number = 0;               ///< number of the tool's tip; 0 for other buttons

  void RaiseClick() {
    if (Click) Click();
  }
};

/// A menu (without a Click) or one of its commands.
class MenuItem : public Control {
 public:
  MenuItem() : Control(ControlKind::kMenuItem) {}

  std::function<void()> Click;

  bool Checked() const { return checked_; }
  void SetChecked(bool checked);

  void RaiseClick() {
    if (Click) Click();
  }

 private:
  bool checked_ = false;
};

class Timer : public Control {
 public:
  Timer() : Control(ControlKind::kTimer) {}

  int interval = 0;  ///< milliseconds; 0 stands still
  std::function<void()> Tick;
};

// Controls that show large contents: the spreadsheet grid and the charts.

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
