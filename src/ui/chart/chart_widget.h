// A chart on a screen: the picture of a chart box's view, a cross-hair over it, and below it the
// values that the cross-hair reads off. Reading changes nothing of the view.
//
// Keys: Left and Right move the cross-hair by a row, Page Up and Page Down by a label's spacing,
// Home and End to the ends, Up and Down to the next series, or to the next box of a column; Enter
// selects the point like a click; Escape hides the cross-hair. On cells of two parameters the
// arrows go from cell to cell, the best one first, and Enter or a double click opens the cell's
// case. A surface is turned by the arrow keys or the hand and put back by Home; there Shift and an
// arrow go from cell to cell.
#pragma once

#include <QPixmap>
#include <QString>
#include <QWidget>
#include <functional>
#include <optional>

#include "charts/kinds/cross_hair.h"
#include "charts/kinds/kind.h"
#include "charts/kinds/read_out.h"
#include "charts/layout/layout.h"
#include "charts/view/chart_picture.h"
#include "controls/value_controls.h"
#include "ui/chart/chart_canvas.h"
#include "ui/chart/crosshair_marks.h"
#include "ui/controls/control_adapter.h"

namespace vistaplot {

class ReadOutLine;

/// What the chart's screen does for it; each may be missing.
struct ChartHooks {
  /// The wheel was turned: notches, above 0 to later days.
  std::function<void(int notches)> scroll;
  /// The wheel was turned with Ctrl: steps, above 0 to longer periods.
  std::function<void(int steps)> change_period;
};

class ChartWidget : public QWidget {
  Q_OBJECT

 public:
  /// `control` and `guard` outlive the widget. Whoever observes the control calls ViewChanged.
  ChartWidget(ChartBox& control, EventGuard& guard, QWidget* parent);

  void SetHooks(ChartHooks hooks);

  /// The view is another one now: lays it out and paints it when it is next seen. The cross-hair
  /// keeps its row; where the view has another number of rows, its place on the screen.
  void ViewChanged();

  /// The chart that shares this one's days was pointed to a row (0: to none): the cross-hair goes
  /// there too.
  void FollowRow(int row);

  /// What the cross-hair reads off, as one line; empty while there is none.
  const QString& ReadOutText() const { return read_out_text_; }

  /// The room of the chart, above the read-out.
  QSize ChartSize() const;

  /// The chart below the cross-hair as it was last painted; keeps its key until it is painted
  /// again.
  const QPixmap& Painted() const { return painted_; }

  QSize sizeHint() const override { return {640, 480}; }
  QSize minimumSizeHint() const override { return {160, 120}; }

 signals:
  /// The view was changed while the widget is seen; told once for many changes.
  void Outdated();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void Prepare();
  void LayOut();
  void PaintChart(QPainter& painter);
  void KeepPainted();
  void PaintWithCrossHair(QPainter& painter, const QRegion& region);
  void PaintNoChart(QPainter& painter) const;
  void PaintFocusFrame(QPainter& painter) const;
  bool DoKey(int key);
  bool MovesCell(int key, Qt::KeyboardModifiers modifiers) const;
  bool DoTurnKey(int key);
  void Drag(QPointF at);
  void ReadCellAt(QPointF at);
  bool HasCells() const;
  void OpenCell(const ChartHit& hit);
  bool DoEnter();
  bool ChooseNext(int step);
  int LabelSpacing() const;
  void PointAt(QPointF at);
  int RowOfClick(const ChartHit& hit) const;
  void SelectPoint(int series, int point);
  void ShowCrossHair(std::optional<double> near_y = {});
  void HideCrossHair();
  void ClearCrossHair();
  void ReplaceMarks(const CrossHairMarks& marks);
  void PlaceReadOut();

  ChartBox& control_;
  EventGuard& guard_;
  ChartHooks hooks_;
  ReadOutLine& read_out_line_;
  ChartTheme theme_ = LightTheme();
  bool stale_ = true;   ///< the view has changed since picture_ was laid out
  PictureTexts texts_;  ///< laid out once, used from step to step
  ChartPicture picture_;
  int picture_rows_ = 0;
  QPixmap painted_;
  bool paint_anew_ = true;      ///< painted_ does not show picture_
  double painted_ratio_ = 0.0;  ///< device pixels a pixel when it was last seen
  CrossHair cross_hair_;
  CrossHairMarks marks_;
  int chosen_series_ = 1;  ///< from 1; the cross-hair's horizontal line goes through its point
  QString read_out_text_;
  std::optional<QPointF> pressed_at_;
  std::optional<QPointF> dragged_to_;  ///< while a surface follows the hand
  int scroll_rest_ = 0;                ///< turns of the wheel that are no whole notch yet
  int period_rest_ = 0;
};

}  // namespace vistaplot
