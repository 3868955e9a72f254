#include "ui/grid/grid_area.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "table/sheet_text.h"
#include "ui/controls/widgets.h"

namespace vistaplot {

GridArea::GridArea(Grid& grid, DataTable& table, EventGuard& guard, QWidget* parent)
    : QTableView(parent),
      grid_(grid),
      table_(table),
      guard_(guard),
      model_(table, this),
      fonts_(font()) {
  setModel(&model_);
  horizontalHeader()->hide();
  verticalHeader()->hide();
  QTableView::updateGeometries();  // hides the corner between the headers
  setFrameShape(QFrame::NoFrame);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setAutoScroll(false);
  setAttribute(Qt::WA_InputMethodEnabled, false);
  viewport()->setMouseTracking(true);
  connect(this, &GridArea::FocusCame, this, &GridArea::TellFocus, Qt::QueuedConnection);
  ShowSheet();
}

GridArea::SheetPlace& GridArea::Place() {
  const auto index = static_cast<std::size_t>(table_.ActiveSheet()) - 1;
  if (index >= places_.size()) places_.resize(index + 1);
  return places_[index];
}

const GridArea::SheetPlace& GridArea::Place() const {
  return places_[static_cast<std::size_t>(table_.ActiveSheet()) - 1];
}

void GridArea::ShowSheet() {
  adding_ = false;
  const Sheet& sheet = table_.Active();
  SheetPlace& place = Place();
  const bool is_new =
      place.rows != sheet.MaxRow || place.cols != sheet.MaxCol || place.name != sheet.SheetName;
  if (is_new) {
    place = {.name = sheet.SheetName,
             .rows = sheet.MaxRow,
             .cols = sheet.MaxCol,
             .scroll = QPoint(0, FirstRowToShow(sheet) - sheet.FixedRows - 1),
             .selection = {}};
  }
  place.places.clear();
  Measure();
  place.selection.SetExtent(geometry_.Rows(), geometry_.Cols());
  if (is_new) place.selection.Place({FirstRowToShow(sheet), sheet.FixedCols + 1});
  ScrollTo(place.scroll);
  if (sheet.selection != place.selection.Ranges()) TakeSelection();
  model_.Refresh();
  TellCurrent();
  setAccessibleName(QStringLiteral("Sheet ") + QtText(sheet.SheetName));
  viewport()->update();
}

// Follows a selection that was made elsewhere. A column that was chosen there is brought into view;
// a cell is not: importers leave one at the far end of their sheet.
void GridArea::TakeSelection() {
  GridSelection& chosen = Chosen();
  chosen.Adopt(table_.Active().selection);
  const auto& ranges = chosen.Ranges();
  const bool is_column = !ranges.empty() && ranges.back().SelStartRow == 1 &&
                         ranges.back().SelEndRow >= geometry_.Rows();
  if (is_column) ShowCell({1, chosen.Current().col});
}

void GridArea::Measure() {
  geometry_.Measure(table_.Active(), fonts_.Sizes());
  geometry_.SetView(viewport()->size());
}

void GridArea::ScrollTo(QPoint scroll) {
  geometry_.ScrollTo(scroll.y(), scroll.x());
  UpdateBars();
  viewport()->update();
}

void GridArea::UpdateBars() {
  updating_bars_ = true;
  QScrollBar& rows = *verticalScrollBar();
  rows.setRange(0, geometry_.MostScrolledRows());
  rows.setPageStep(geometry_.PageRows());
  rows.setSingleStep(1);
  rows.setValue(geometry_.ScrolledRows());
  QScrollBar& pixels = *horizontalScrollBar();
  pixels.setRange(0, geometry_.MostScrolledPixels());
  pixels.setPageStep(std::max(geometry_.View().width() - geometry_.FrozenWidth(), 1));
  pixels.setSingleStep(fonts_.Sizes().default_width / 2);
  pixels.setValue(geometry_.ScrolledPixels());
  updating_bars_ = false;
}

void GridArea::scrollContentsBy(int /*dx*/, int /*dy*/) {
  if (updating_bars_) return;
  geometry_.ScrollTo(verticalScrollBar()->value(), horizontalScrollBar()->value());
  Place().scroll = {geometry_.ScrolledPixels(), geometry_.ScrolledRows()};
  viewport()->update();
}

void GridArea::updateGeometries() {
  geometry_.SetView(viewport()->size());
  UpdateBars();
}

void GridArea::ShowCell(GridCell cell) {
  ScrollTo(geometry_.ScrollToShow(cell));
  Place().scroll = {geometry_.ScrolledPixels(), geometry_.ScrolledRows()};
}

void GridArea::Commit() {
  table_.Active().selection = Chosen().Ranges();
  TellCurrent();
  viewport()->update();
}

// Assistive tools follow the model's current cell.
void GridArea::TellCurrent() {
  const GridCell cell = Chosen().Current();
  selectionModel()->setCurrentIndex(model_.index(cell.row - 1, cell.col - 1),
                                    QItemSelectionModel::NoUpdate);
}

QString GridArea::SelectedText() const {
  return QtText(TabbedText(table_.Active(), table_.Active().selection));
}

void GridArea::CopySelection() const {
  const QString text = SelectedText();
  if (!text.isEmpty()) QApplication::clipboard()->setText(text);
}

void GridArea::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(viewport());
  if (geometry_.Rows() == 0) {
    painter.setPen(palette().color(QPalette::Disabled, QPalette::WindowText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter, tr("This sheet is empty."));
    return;
  }
  const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
  QPalette colors = palette();
  colors.setCurrentColorGroup(group);
  PaintGrid(painter,
            {.sheet = table_.Active(),
             .geometry = geometry_,
             .selection = Place().selection,
             .places = Place().places,
             .palette = colors,
             .has_focus = hasFocus()},
            fonts_);
}

void GridArea::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() != QEvent::FontChange) return;
  fonts_ = GridFonts(font());
  Measure();
  UpdateBars();
}

// The toolkit tells assistive tools only that the table has the keyboard, and only after this; the
// cell is told when it has.
void GridArea::focusInEvent(QFocusEvent* /*event*/) {
  viewport()->update();
  if (QAccessible::isActive()) emit FocusCame();
}

void GridArea::TellFocus() {
  QAccessibleInterface* table = QAccessible::queryAccessibleInterface(this);
  QAccessibleInterface* cell = table == nullptr ? nullptr : table->focusChild();
  if (cell == nullptr || !hasFocus()) return;
  QAccessibleEvent told(cell, QAccessible::Focus);
  QAccessible::updateAccessibility(&told);
}

void GridArea::focusOutEvent(QFocusEvent* /*event*/) {
  adding_ = false;
  viewport()->update();
}

QRect GridArea::visualRect(const QModelIndex& index) const {
  if (!index.isValid()) return {};
  const int row = index.row() + 1;
  const int col = index.column() + 1;
  if (row > geometry_.Rows() || col > geometry_.Cols()) return {};
  return geometry_.Place(
      {.SelStartRow = row, .SelStartCol = col, .SelEndRow = row, .SelEndCol = col});
}

void GridArea::scrollTo(const QModelIndex& index, ScrollHint /*hint*/) {
  if (index.isValid()) ShowCell({index.row() + 1, index.column() + 1});
}

QModelIndex GridArea::indexAt(const QPoint& point) const {
  const GridCell cell = geometry_.CellAt(point);
  return IsCell(cell) ? model_.index(cell.row - 1, cell.col - 1) : QModelIndex();
}

bool GridArea::IsCell(GridCell cell) const {
  return cell.row >= 1 && cell.row <= geometry_.Rows() && cell.col >= 1 &&
         cell.col <= geometry_.Cols();
}

// The headings of the columns and the view's own strips.
bool GridArea::IsHeading(GridCell cell) const {
  return cell.row <= table_.Active().FixedRows || cell.col == 0;
}

GridUnit GridArea::UnitOf(GridCell cell) const {
  if (cell.row == 0 && cell.col == 0) return GridUnit::kSheet;
  if (cell.col == 0) return GridUnit::kRow;
  return IsHeading(cell) ? GridUnit::kColumn : GridUnit::kCell;
}

void GridArea::RaiseClick(GridCell cell) {
  guard_.Run([this, cell] { grid_.RaiseClick(cell.row, cell.col); });
}

// Only a row of the family summary stands for something to chart.
void GridArea::RaiseRClick(GridCell cell) {
  if (table_.ActiveSheet() != kSummarySheet) return;
  guard_.Run([this, cell] { grid_.RaiseRClick(cell.row, cell.col); });
}

}  // namespace vistaplot
