#include "ui/key_list.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <array>

namespace vistaplot {

namespace {

struct KeyText {
  const char* keys;
  const char* meaning;
};

constexpr std::array<KeyText, 15> kKeys = {
    {{"Alt+underlined letter", "menus, fields, buttons"},
     {"Alt", "menu bar"},
     {"F6", "tool bar, and back to the screen"},
     {"Ctrl+1, 2, 3, 4", "parameter, data, graph, calculations screen"},
     {"Ctrl+Tab, Ctrl+Shift+Tab", "next, previous screen"},
     {"Shift+arrows, Ctrl+Space", "data: extend the selection, select whole columns"},
     {"Left, Right", "chart: move the cross-hair by a day"},
     {"Page Up, Page Down, Home, End", "chart: move it further"},
     {"Up, Down", "chart: next series"},
     {"Enter, Escape", "chart: the day's value, no cross-hair"},
     {"F11", "chart on the whole display, and back"},
     {"Ctrl+S", "save the chart; on the data screen the sheet"},
     {"Ctrl+P", "print the chart or the sheet"},
     {"Ctrl+C", "copy the chart or the selected cells"},
     {"Ctrl+Q", "end the program"}}};

}  // namespace

void ShowKeyList(QWidget* owner) {
  QDialog box(owner);
  box.setWindowTitle(QStringLiteral("Keys"));
  auto* rows = new QGridLayout(&box);
  rows->setHorizontalSpacing(rows->horizontalSpacing() * 3);
  for (const KeyText& key : kKeys) {
    const int row = rows->rowCount();
    rows->addWidget(new QLabel(QString::fromLatin1(key.keys)), row, 0);
    rows->addWidget(new QLabel(QString::fromLatin1(key.meaning)), row, 1);
  }
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &box, &QDialog::reject);
  rows->addWidget(buttons, rows->rowCount(), 0, 1, 2);
  box.exec();
}

}  // namespace vistaplot
