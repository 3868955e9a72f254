// The cells of the active sheet: painting, scrolling, and the user's mouse and keys. What the user
// selects is written to the sheet at once.
//
// It is one of the toolkit's table views so that assistive tools find rows, columns and the current
// cell; geometry, painting and selection are its own, since headings that stay and ranges in the
// order in which they were made are beyond that view.
#pragma once

#include <QBasicTimer>
#include <QTableView>
#include <optional>
#include <string>
#include <vector>

#include "controls/value_controls.h"
#include "table/data_table.h"
#include "ui/controls/control_adapter.h"
#include "ui/grid/grid_geometry.h"
#include "ui/grid/grid_model.h"
#include "ui/grid/grid_painter.h"
#include "ui/grid/grid_selection.h"

namespace vistaplot {

class GridArea : public QTableView {
  Q_OBJECT

 public:
  GridArea(Grid& grid, DataTable& table, EventGuard& guard, QWidget* parent);

  /// Shows what the active sheet holds now. A sheet keeps its scroll position and current cell
  /// until its name or extent changes.
  void ShowSheet();

  /// The selected cells, see TabbedText; empty when there are none.
  QString SelectedText() const;
  void CopySelection() const;

  const GridGeometry& Geometry() const { return geometry_; }

  QRect visualRect(const QModelIndex& index) const override;
  void scrollTo(const QModelIndex& index, ScrollHint hint) override;
  QModelIndex indexAt(const QPoint& point) const override;

 signals:
  void FocusCame();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void updateGeometries() override;
  void changeEvent(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  int horizontalOffset() const override { return geometry_.ScrolledPixels(); }
  int verticalOffset() const override { return geometry_.ScrolledRows() * geometry_.RowHeight(); }

 private:
  /// What the view remembers of a sheet.
  struct SheetPlace {
    std::string name;
    int rows = -1;
    int cols = -1;
    QPoint scroll;  ///< pixels, rows
    GridSelection selection;
    ColumnPlaces places = {};
  };
  struct Resize {
    int col = 0;
    int from_x = 0;
    int width = 0;
  };

  SheetPlace& Place();
  const SheetPlace& Place() const;
  GridSelection& Chosen() { return Place().selection; }
  void TakeSelection();
  void Measure();
  void UpdateBars();
  void ScrollTo(QPoint scroll);
  void ShowCell(GridCell cell);
  void Commit();  ///< writes the user's selection to the sheet
  void TellCurrent();
  void TellFocus();

  bool IsHeading(GridCell cell) const;
  bool IsCell(GridCell cell) const;
  GridUnit UnitOf(GridCell cell) const;
  void RaiseClick(GridCell cell);
  void RaiseRClick(GridCell cell);

  void Choose(GridCell cell, Qt::KeyboardModifiers modifiers);
  void DragTo(QPoint point);
  QPoint DragOverrun(QPoint point) const;
  void ScrollForDrag();
  void SetWidth(int col, int pixels);
  void FitWidth(int col);
  void ShowTip(QPoint point, QPoint global);

  bool MoveKey(const QKeyEvent& event);
  bool SelectKey(const QKeyEvent& event);
  bool CommandKey(const QKeyEvent& event);
  void TakeUnit(GridUnit unit);
  std::optional<GridCell> Target(int key, bool to_end) const;

  Grid& grid_;
  DataTable& table_;
  EventGuard& guard_;
  GridModel model_;
  GridFonts fonts_;
  GridGeometry geometry_;
  std::vector<SheetPlace> places_;  ///< of sheet n at index n - 1
  bool updating_bars_ = false;

  std::optional<GridCell> pressed_;  ///< with the left button, until it is released
  std::optional<GridCell> pressed_right_;
  std::optional<Resize> resize_;
  bool adding_ = false;   ///< moving leaves the selection, until further cells are selected
  bool is_drag_ = false;  ///< the pressed button has left its cell
  QPoint drag_point_;
  QBasicTimer drag_timer_;
};

}  // namespace vistaplot
