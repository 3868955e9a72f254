#include "ui/frame/frame_menus.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QKeySequence>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QString>
#include <QVBoxLayout>
#include <algorithm>
#include <initializer_list>
#include <span>

#include "base/text.h"
#include "ui/controls/widgets.h"

namespace vistaplot {

namespace {

bool BeginsWord(const QString& text, qsizetype at) {
  return at == 0 || !text[at - 1].isLetter();
}

/// Where the free letter of `text` stands; 0 when there is none.
qsizetype PlaceOfKey(const QString& text, const QString& taken) {
  qsizetype any = -1;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (!text[i].isLetter() || taken.contains(text[i], Qt::CaseInsensitive)) continue;
    if (BeginsWord(text, i)) return i;
    if (any < 0) any = i;
  }
  return std::max<qsizetype>(any, 0);
}

QString KeyOf(const QString& text) {
  return QKeySequence::mnemonic(text).toString().right(1);
}

bool HoldsItems(const Control& item, const Form& frame) {
  return std::any_of(frame.Controls().begin(), frame.Controls().end(), [&item](Control* other) {
    return other->Container() == &item;
  });
}

}  // namespace

void MenuBar::paintEvent(QPaintEvent* event) {
  QMenuBar::paintEvent(event);
  QAction* current = activeAction();
  if (!hasFocus() || current == nullptr) return;
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Highlight));
  painter.drawRect(actionGeometry(current).adjusted(0, 0, -1, -1));
}

void GiveAccessKeys(const QList<QAction*>& actions) {
  QString taken;
  for (const QAction* action : actions) taken += KeyOf(action->text());
  for (QAction* action : actions) {
    QString text = action->text();
    if (text.isEmpty() || !KeyOf(text).isEmpty()) continue;
    text.insert(PlaceOfKey(text, taken), u'&');
    taken += KeyOf(text);
    action->setText(text);
  }
}

MenuItemAdapter::MenuItemAdapter(MenuItem& item, QAction& action, EventGuard& guard)
    : ControlAdapter(item, guard), item_(item), action_(action) {
  action_.setObjectName(QtText(item.Name()));
  connect(&action_, &QAction::triggered, this, [this] { Act([this] { item_.RaiseClick(); }); });
}

void MenuItemAdapter::CopyVisible() {
  action_.setVisible(item_.Visible());
}

void MenuItemAdapter::CopyEnabled() {
  action_.setEnabled(item_.Enabled());
}

void MenuItemAdapter::CopyCaption() {
  if (item_.Caption() == "-") {
    action_.setSeparator(true);
  } else {
    action_.setText(QtText(item_.Caption()));
  }
}

void MenuItemAdapter::CopyValue() {
  action_.setCheckable(item_.Checked());
  action_.setChecked(item_.Checked());
}

FrameMenus::FrameMenus(const Form& frame, QMenuBar& bar, EventGuard& guard) : bar_(bar) {
  for (Control* control : frame.Controls()) {
    if (control->Kind() != ControlKind::kMenuItem) continue;
    AddItem(static_cast<MenuItem&>(*control), frame, guard);
  }
  GiveAccessKeys(bar.actions());
  for (const QAction* above : bar.actions()) {
    if (above->menu() != nullptr) GiveAccessKeys(above->menu()->actions());
  }
}

QAction* FrameMenus::Find(std::string_view name) const {
  for (const auto& item : items_) {
    if (EqualsIgnoringCase(item->Source().Name(), name)) return &item->Action();
  }
  return nullptr;
}

void FrameMenus::AddItem(MenuItem& item, const Form& frame, EventGuard& guard) {
  QWidget* holder = &bar_;
  if (item.Container() != nullptr) {
    QAction* above = Find(item.Container()->Name());
    if (above != nullptr && above->menu() != nullptr) holder = above->menu();
  }
  auto* action = HoldsItems(item, frame) ? (new QMenu(&bar_))->menuAction() : new QAction(&bar_);
  holder->addAction(action);
  items_.push_back(std::make_unique<MenuItemAdapter>(item, *action, guard));
  items_.back()->CopyAll();
}

namespace {

struct KeyText {
  const char* keys;
  const char* meaning;
};

struct KeyGroup {
  const char* title;
  std::span<const KeyText> keys;
};

constexpr KeyText kEverywhere[] = {
    {"F1", "the manual, at the field that has the keyboard"},
    {"Shift+F1", "this list"},
    {"Alt, Alt+underlined letter", "menu bar; menus, fields, buttons"},
    {"Tab, Shift+Tab", "next, previous field"},
    {"F6", "tool bar, and back to the screen"},
    {"Ctrl+1, Ctrl+2, Ctrl+3, Ctrl+4", "parameters, data, graph, calculations"},
    {"Ctrl+Tab, Ctrl+Shift+Tab", "next, previous screen"},
    {"Ctrl+W", "close the screen"},
    {"F11", "screen on the whole display, and back"},
    {"Escape", "close a box; leave the whole display"},
    {"Ctrl+S", "save the chart; on the data screen the sheet"},
    {"Ctrl+P", "print the chart or the sheet"},
    {"Ctrl+C", "copy the chart or the selected cells"},
    {"Ctrl+Q", "end the program"}};

constexpr KeyText kLists[] = {{"Shift+Up, Shift+Down", "extend the selection"},
                              {"Ctrl+Up, Ctrl+Down", "move without selecting"},
                              {"Ctrl+Space", "select the entry, or take it out"},
                              {"Ctrl+A", "select all entries"}};

constexpr KeyText kData[] = {{"Arrows, Page Up, Page Down", "move by a cell, by a page"},
                             {"Ctrl+arrows", "to the sheet's edge"},
                             {"Home, End", "first, last cell of the row"},
                             {"Ctrl+Home, Ctrl+End", "first, last cell of the sheet"},
                             {"Shift with any of these", "extend the selection"},
                             {"Ctrl+click, Shift+click", "select a further block, up to this cell"},
                             {"Ctrl+Space, Shift+Space", "select whole columns, whole rows"},
                             {"Shift+F8", "move on without selecting, for further blocks"},
                             {"Ctrl+A", "select the whole sheet"},
                             {"Enter on a heading", "sort the summary by this column"},
                             {"Menu key, Shift+F10", "chart the fund of this row of the summary"},
                             {"Ctrl+Page Up, Ctrl+Page Down", "previous, next sheet"}};

constexpr KeyText kChart[] = {{"Left, Right", "cross-hair to the day before, after"},
                              {"Page Up, Page Down", "cross-hair by a longer step"},
                              {"Home, End", "cross-hair to the first, last day"},
                              {"Up, Down", "previous, next curve"},
                              {"Enter, click on a curve", "tell the value of the day"},
                              {"Escape", "put the cross-hair away"},
                              {"Alt+Left, Alt+Right", "previous, next fund, one at a time"},
                              {"Wheel", "earlier, later days"},
                              {"Ctrl+wheel", "shorter, longer time period"}};

constexpr KeyText kCells[] = {{"Arrows", "contour: from cell to cell; surface: turn and tilt"},
                              {"Shift+arrows", "surface: from cell to cell"},
                              {"Home", "surface: as it was turned at first"},
                              {"Enter, double click", "show the case on the data screen"}};

constexpr double kMostOfDisplay = 0.9;
constexpr int kGroupGap = 14;  ///< pixels above a group that is not the first
constexpr int kColumnGap = 40;
constexpr int kRowGap = 6;
constexpr int kKeysGap = 24;  ///< between keys and their meaning

void AddGroup(QGridLayout& rows, const KeyGroup& group) {
  auto* title = new QLabel(QString::fromLatin1(group.title));
  QFont bold = title->font();
  bold.setBold(true);
  title->setFont(bold);
  if (rows.count() > 0) rows.setRowMinimumHeight(rows.rowCount(), kGroupGap);
  rows.addWidget(title, rows.rowCount(), 0, 1, 2);
  for (const KeyText& key : group.keys) {
    const int row = rows.rowCount();
    rows.addWidget(new QLabel(QString::fromLatin1(key.keys)), row, 0);
    rows.addWidget(new QLabel(QString::fromLatin1(key.meaning)), row, 1);
  }
}

QLayout* Column(std::initializer_list<KeyGroup> groups) {
  auto* column = new QVBoxLayout;
  auto* rows = new QGridLayout;
  rows->setHorizontalSpacing(kKeysGap);
  rows->setVerticalSpacing(kRowGap);
  for (const KeyGroup& group : groups) AddGroup(*rows, group);
  column->addLayout(rows);
  column->addStretch();
  return column;
}

QWidget* Groups() {
  auto* page = new QWidget;
  auto* columns = new QHBoxLayout(page);
  columns->setSpacing(kColumnGap);
  columns->addLayout(
      Column({{"Everywhere", kEverywhere}, {"Lists", kLists}, {"Contour and surface", kCells}}));
  columns->addLayout(Column({{"Data screen", kData}, {"Chart", kChart}}));
  return page;
}

QScrollArea* Scrolling(QWidget* page) {
  auto* area = new QScrollArea;
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setAccessibleName(QStringLiteral("Keys"));
  area->setWidget(page);
  return area;
}

/// As large as the whole page asks for, where the display has that room. On a narrow one the groups
/// stand below each other.
void FitToDisplay(QDialog& box, const QScrollArea& area) {
  const QSize room = box.screen()->availableSize() * kMostOfDisplay;
  const QSize around = box.sizeHint() - area.sizeHint();
  const auto wanted = [&] { return area.widget()->sizeHint() + around; };
  if (wanted().width() > room.width()) {
    static_cast<QBoxLayout*>(area.widget()->layout())->setDirection(QBoxLayout::TopToBottom);
  }
  const int bar =
      wanted().height() > room.height() ? area.verticalScrollBar()->sizeHint().width() : 0;
  box.resize((wanted() + QSize(bar, 0)).boundedTo(room));
}

}  // namespace

void ShowKeyList(QWidget* owner) {
  QDialog box(owner);
  box.setWindowTitle(QStringLiteral("Keys"));
  QScrollArea* groups = Scrolling(Groups());
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &box, &QDialog::reject);
  auto* rows = new QVBoxLayout(&box);
  rows->addWidget(groups);
  rows->addWidget(buttons);
  buttons->button(QDialogButtonBox::Close)->setFocus();
  FitToDisplay(box, *groups);
  box.exec();
}

}  // namespace vistaplot
