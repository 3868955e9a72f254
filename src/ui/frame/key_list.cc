#include "ui/frame/key_list.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <initializer_list>
#include <span>

namespace vistaplot {

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
    {"F1", "this list"},
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
  columns->addLayout(Column({{"Everywhere", kEverywhere}, {"Lists", kLists}}));
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
