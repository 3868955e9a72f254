// The keyboard over the grid: moving the current cell, choosing cells, commands.
#include <QKeyEvent>

#include "ui/grid/grid_area.h"

namespace vistaplot {

void GridArea::keyPressEvent(QKeyEvent* event) {
  const bool is_used = geometry_.Rows() > 0 && !event->modifiers().testFlag(Qt::AltModifier) &&
                       (CommandKey(*event) || SelectKey(*event) || MoveKey(*event));
  event->setAccepted(is_used);
}

bool GridArea::CommandKey(const QKeyEvent& event) {
  const bool with_shift = event.modifiers().testFlag(Qt::ShiftModifier);
  const GridCell cell = Chosen().Current();
  if (event.matches(QKeySequence::Copy)) {
    CopySelection();
  } else if (event.key() == Qt::Key_Menu || (event.key() == Qt::Key_F10 && with_shift)) {
    RaiseRClick(cell);
  } else if ((event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) && IsHeading(cell)) {
    RaiseClick(cell);
  } else {
    return false;
  }
  return true;
}

bool GridArea::SelectKey(const QKeyEvent& event) {
  const bool with_control = event.modifiers().testFlag(Qt::ControlModifier);
  const bool with_shift = event.modifiers().testFlag(Qt::ShiftModifier);
  if (event.key() == Qt::Key_F8 && with_shift) {
    adding_ = !adding_;
    return true;
  }
  if (event.key() == Qt::Key_Escape && adding_) {
    adding_ = false;
    return true;
  }
  if (event.key() == Qt::Key_A && with_control) {
    Chosen().Widen(GridUnit::kSheet);
  } else if (event.key() == Qt::Key_Space && with_control) {
    TakeUnit(with_shift ? GridUnit::kSheet : GridUnit::kColumn);
  } else if (event.key() == Qt::Key_Space && with_shift) {
    TakeUnit(GridUnit::kRow);
  } else {
    return false;
  }
  adding_ = false;
  Commit();
  return true;
}

// Where the current cell stands beside what is selected, it adds its unit or takes it out, as a
// click with Ctrl does.
void GridArea::TakeUnit(GridUnit unit) {
  if (adding_) {
    Chosen().Toggle(unit, Chosen().Current());
  } else {
    Chosen().Widen(unit);
  }
}

bool GridArea::MoveKey(const QKeyEvent& event) {
  const auto target = Target(event.key(), event.modifiers().testFlag(Qt::ControlModifier));
  if (!target) return false;
  if (event.modifiers().testFlag(Qt::ShiftModifier)) {
    Chosen().ExtendTo(*target);
    adding_ = false;
  } else if (adding_) {
    Chosen().Place(*target);
  } else {
    Chosen().Start(GridUnit::kCell, *target);
  }
  const bool is_page = event.key() == Qt::Key_PageUp || event.key() == Qt::Key_PageDown;
  if (is_page) {
    const int step = event.key() == Qt::Key_PageUp ? -1 : 1;
    ScrollTo({geometry_.ScrolledPixels(), geometry_.ScrolledRows() + step * geometry_.PageRows()});
  }
  ShowCell(Chosen().Current());
  Commit();
  return true;
}

/// Where a key takes the current cell; may lie outside of the sheet. Nowhere for the pages with
/// Ctrl, which change the sheet.
std::optional<GridCell> GridArea::Target(int key, bool to_end) const {
  const GridCell cell = Place().selection.Current();
  const GridCell first{geometry_.FixedRows() + 1, geometry_.FixedCols() + 1};
  const GridCell last{geometry_.Rows(), geometry_.Cols()};
  if (to_end && (key == Qt::Key_PageUp || key == Qt::Key_PageDown)) return std::nullopt;
  switch (key) {
    case Qt::Key_Left:
      return GridCell{cell.row, to_end ? 1 : cell.col - 1};
    case Qt::Key_Right:
      return GridCell{cell.row, to_end ? last.col : cell.col + 1};
    case Qt::Key_Up:
      return GridCell{to_end ? 1 : cell.row - 1, cell.col};
    case Qt::Key_Down:
      return GridCell{to_end ? last.row : cell.row + 1, cell.col};
    case Qt::Key_PageUp:
      return GridCell{cell.row - geometry_.PageRows(), cell.col};
    case Qt::Key_PageDown:
      return GridCell{cell.row + geometry_.PageRows(), cell.col};
    case Qt::Key_Home:
      return GridCell{to_end ? first.row : cell.row, first.col};
    case Qt::Key_End:
      return GridCell{to_end ? last.row : cell.row, last.col};
    default:
      return std::nullopt;
  }
}

}  // namespace vistaplot
