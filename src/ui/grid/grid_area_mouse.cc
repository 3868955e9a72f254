// The mouse over the grid: choosing cells, dragging, column widths, clicks.
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimerEvent>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "base/text.h"
#include "table/sheet_text.h"
#include "ui/controls/widgets.h"
#include "ui/grid/grid_area.h"

namespace vistaplot {

namespace {

constexpr int kDragInterval = 40;  // milliseconds between two steps of scrolling
constexpr int kDragReach = 24;     // pixels outside for one more row or column step
constexpr int kLeastWidth = 12;
constexpr int kFitMargin = 12;

// How far a place lies outside of the part that scrolls; negative before it, 0 inside.
int Overrun(int place, int first, int last) {
  if (place < first) return place - first;
  return std::max(place - last, 0);
}

int Steps(int overrun) {
  if (overrun == 0) return 0;
  return overrun < 0 ? overrun / kDragReach - 1 : overrun / kDragReach + 1;
}

}  // namespace

void GridArea::mousePressEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  const GridCell cell = geometry_.CellAt(point);
  const bool is_inside = cell.row <= geometry_.Rows() && cell.col <= geometry_.Cols();
  if (geometry_.Rows() == 0 || !is_inside) return;
  if (event->button() == Qt::RightButton) {
    pressed_right_ = cell;
    const GridCell nearest{std::max(cell.row, 1), std::max(cell.col, 1)};
    if (!Chosen().Contains(nearest)) Choose(cell, Qt::NoModifier);
  }
  if (event->button() != Qt::LeftButton) return;
  if (const auto border = geometry_.BorderAt(point)) {
    resize_ = {.col = *border, .from_x = point.x(), .width = geometry_.Width(*border)};
    return;
  }
  pressed_ = cell;
  is_drag_ = false;
  Choose(cell, event->modifiers());
}

void GridArea::Choose(GridCell cell, Qt::KeyboardModifiers modifiers) {
  adding_ = false;
  GridSelection& chosen = Chosen();
  const GridUnit unit = UnitOf(cell);
  if (modifiers.testFlag(Qt::ShiftModifier)) {
    chosen.ExtendTo(cell);
    if (unit != GridUnit::kCell) chosen.Widen(unit);
  } else if (modifiers.testFlag(Qt::ControlModifier)) {
    chosen.Toggle(unit, cell);
  } else {
    chosen.Start(unit, cell);
  }
  Commit();
}

void GridArea::mouseMoveEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  if (resize_) {
    SetWidth(resize_->col, resize_->width + point.x() - resize_->from_x);
  } else if (pressed_) {
    DragTo(point);
  } else if (geometry_.Rows() > 0 && geometry_.BorderAt(point)) {
    viewport()->setCursor(Qt::SplitHCursor);
  } else {
    viewport()->unsetCursor();
  }
}

// What was taken out of the selection by the press is not dragged.
void GridArea::DragTo(QPoint point) {
  GridSelection& chosen = Chosen();
  if (!chosen.Contains(chosen.Current())) return;
  drag_point_ = point;
  const QPoint overrun = DragOverrun(point);
  if (overrun.isNull()) {
    drag_timer_.stop();
  } else if (!drag_timer_.isActive()) {
    drag_timer_.start(kDragInterval, this);
  }
  GridCell cell = geometry_.CellAt(point - overrun);
  cell.row = std::clamp(cell.row, 1, geometry_.Rows());
  cell.col = std::clamp(cell.col, 1, geometry_.Cols());
  const GridCell pressed{std::max(pressed_->row, 1), std::max(pressed_->col, 1)};
  if (cell == (is_drag_ ? chosen.Current() : pressed)) return;
  is_drag_ = true;
  chosen.ExtendTo(cell);
  Commit();
}

// Only a drag that began among the cells that scroll makes them scroll.
QPoint GridArea::DragOverrun(QPoint point) const {
  const QRect view = viewport()->rect();
  const bool scrolls_rows = pressed_->row > geometry_.FixedRows();
  const bool scrolls_cols = pressed_->col > geometry_.FixedCols();
  const int top = scrolls_rows ? geometry_.FrozenHeight() : 0;
  const int left = scrolls_cols ? geometry_.FrozenWidth() : 0;
  return {Overrun(point.x(), left, view.right()), Overrun(point.y(), top, view.bottom())};
}

void GridArea::timerEvent(QTimerEvent* event) {
  if (event->timerId() == drag_timer_.timerId()) {
    ScrollForDrag();
  } else {
    QTableView::timerEvent(event);
  }
}

void GridArea::ScrollForDrag() {
  if (!pressed_) {
    drag_timer_.stop();
    return;
  }
  const QPoint overrun = DragOverrun(drag_point_);
  QScrollBar& rows = *verticalScrollBar();
  QScrollBar& pixels = *horizontalScrollBar();
  if (pressed_->row > geometry_.FixedRows()) rows.setValue(rows.value() + Steps(overrun.y()));
  if (pressed_->col > geometry_.FixedCols()) {
    pixels.setValue(pixels.value() + Steps(overrun.x()) * pixels.singleStep() / 2);
  }
  DragTo(drag_point_);
}

void GridArea::mouseReleaseEvent(QMouseEvent* event) {
  const GridCell cell = geometry_.CellAt(event->position().toPoint());
  if (event->button() == Qt::RightButton) {
    const bool is_click = pressed_right_ == cell;
    pressed_right_.reset();
    if (is_click) RaiseRClick(cell);
  }
  if (event->button() != Qt::LeftButton) return;
  // With Shift or Ctrl the heading only takes part in the selection.
  const bool is_plain =
      !(event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier));
  const bool is_click = pressed_ == cell && !is_drag_ && is_plain && IsHeading(cell);
  pressed_.reset();
  resize_.reset();
  drag_timer_.stop();
  if (is_click) RaiseClick(cell);
}

void GridArea::mouseDoubleClickEvent(QMouseEvent* event) {
  const auto border = geometry_.BorderAt(event->position().toPoint());
  if (border && event->button() == Qt::LeftButton) {
    FitWidth(*border);
  } else {
    mousePressEvent(event);
  }
}

// A context menu there is none: the right button's click and its key have been told already.
void GridArea::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
}

void GridArea::SetWidth(int col, int pixels) {
  const double twips = std::max(pixels, kLeastWidth) * fonts_.Sizes().twips_per_pixel;
  table_.Active().SetColumnWidth(col, static_cast<int>(std::lround(twips)));
  Measure();
  UpdateBars();
  viewport()->update();
}

void GridArea::FitWidth(int col) {
  const Sheet& sheet = table_.Active();
  int width = 0;
  for (int row = 1; row <= geometry_.Rows(); ++row) {
    if (IsTitle(sheet, row, col)) continue;
    const GridText& text = row <= sheet.FixedRows ? fonts_.heading : fonts_.plain;
    width = std::max(width, text.Width(sheet.CellText(row, col)));
  }
  SetWidth(col, width + kFitMargin);
}

bool GridArea::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  ShowTip(help->pos(), help->globalPos());
  return true;
}

// The whole text of a cell that is cut, and what a heading means.
void GridArea::ShowTip(QPoint point, QPoint global) {
  const GridCell cell = geometry_.CellAt(point);
  QString text;
  if (IsCell(cell)) {
    const std::string shown = table_.Active().CellText(cell.row, cell.col);
    const bool is_cut = fonts_.heading.Width(shown) + kFitMargin > geometry_.Width(cell.col);
    if (is_cut) text = QtText(OneLine(TrimBlanks(shown)));
    if (UnitOf(cell) == GridUnit::kColumn) {
      const QString tip = QtText(HeadingTip(table_.Active(), cell.col));
      text += text.isEmpty() || tip.isEmpty() ? tip : QStringLiteral(": ") + tip;
    }
  }
  QToolTip::showText(global, text.toHtmlEscaped(), viewport());
}

}  // namespace vistaplot
