#include "ui/grid/grid_view.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <cassert>

#include "controls/value_controls.h"
#include "ui/controls/widgets.h"

namespace vistaplot {

namespace {

class GridAdapter : public ControlAdapter {
 public:
  GridAdapter(Grid& grid, const AdapterParts& parts)
      : ControlAdapter(grid, parts.guard),
        view_(new GridView(grid, *parts.table, parts.guard, parts.parent)) {
    SetWidget(view_);
  }

  bool Follows() const override { return true; }

  std::vector<QWidget*> TabStops() const override { return {&view_->Area(), &view_->Tabs()}; }

  /// The sheet shown names itself.
  void SetAccessibleName(const QString& /*name*/, bool /*labelled*/) override {}

 private:
  GridView* view_;
};

}  // namespace

GridView::GridView(Grid& grid, DataTable& table, EventGuard& guard, QWidget* parent)
    : QWidget(parent),
      table_(table),
      guard_(guard),
      area_(new GridArea(grid, table, guard, this)),
      tabs_(new QTabBar(this)) {
  tabs_->setShape(QTabBar::RoundedSouth);
  tabs_->setDocumentMode(true);
  tabs_->setDrawBase(false);
  tabs_->setExpanding(false);
  tabs_->setUsesScrollButtons(true);
  tabs_->setAccessibleName(tr("Sheets"));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(area_, 1);
  layout->addWidget(tabs_);
  setFocusProxy(area_);
  connect(tabs_, &QTabBar::currentChanged, this, &GridView::Choose);
  table_.SetObserver(this);
  ShowTabs();
}

GridView::~GridView() {
  table_.SetObserver(nullptr);
}

void GridView::ActiveSheetChanged() {
  ShowTabs();
  area_->ShowSheet();
}

void GridView::SheetsChanged() {
  ShowTabs();
  area_->ShowSheet();
}

void GridView::ContentChanged(int sheet) {
  ShowTabs();
  if (sheet == table_.ActiveSheet()) area_->ShowSheet();
}

// The spare sheet at the end is the loaders' own; it is shown only while it is active or alone.
std::vector<int> GridView::SheetsToShow() const {
  std::vector<int> sheets;
  for (int number = 1; number <= table_.SheetCount(); ++number) {
    const bool is_spare = number > 1 && number == table_.SheetCount() &&
                          table_.SheetAt(number).MaxRow < 1 && number != table_.ActiveSheet();
    if (!is_spare) sheets.push_back(number);
  }
  return sheets;
}

void GridView::ShowTabs() {
  const QSignalBlocker blocker(tabs_);
  sheets_ = SheetsToShow();
  const int count = static_cast<int>(sheets_.size());
  while (tabs_->count() > count) tabs_->removeTab(tabs_->count() - 1);
  while (tabs_->count() < count) tabs_->addTab({});
  for (int tab = 0; tab < count; ++tab) {
    const int number = sheets_[static_cast<std::size_t>(tab)];
    QString caption = QtText(table_.SheetAt(number).SheetName);
    caption.replace(u'&', QStringLiteral("&&"));
    if (tabs_->tabText(tab) != caption) tabs_->setTabText(tab, caption);
    if (number == table_.ActiveSheet()) tabs_->setCurrentIndex(tab);
  }
}

// Of the cells and of the tabs, neither of which has a use of its own for these keys.
void GridView::keyPressEvent(QKeyEvent* event) {
  const bool pages = event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown;
  if (!pages || event->modifiers() != Qt::ControlModifier) return QWidget::keyPressEvent(event);
  StepSheet(event->key() == Qt::Key_PageUp ? -1 : 1);
}

// No sheet without cells becomes active.
void GridView::StepSheet(int step) {
  const int number = table_.ActiveSheet() + step;
  if (number < 1 || number > table_.SheetCount()) return;
  if (table_.SheetAt(number).MaxRow > 0) table_.SetActiveSheet(number);
}

void GridView::Choose(int tab) {
  if (tab < 0 || tab >= static_cast<int>(sheets_.size())) return;
  const int number = sheets_[static_cast<std::size_t>(tab)];
  guard_.Run([this, number] { table_.SetActiveSheet(number); });
}

std::unique_ptr<ControlAdapter> MakeGrid(Control& control, const AdapterParts& parts) {
  assert(parts.table != nullptr);
  return std::make_unique<GridAdapter>(static_cast<Grid&>(control), parts);
}

}  // namespace vistaplot
