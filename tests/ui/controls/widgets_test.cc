// The widgets of controls, and what assistive tools call them: never by a name that only the
// program understands.
#include "ui/controls/widgets.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QTest>
#include <set>

#include "support/temporary_folder.h"
#include "ui/controls/folder_box.h"
#include "ui/controls/list_focus.h"
#include "ui/frame/form_view.h"
#include "ui/frame/program_windows.h"

namespace vistaplot::test {
namespace {

constexpr const char* kCaption = "% of data to g&raph";

struct LabelWorld {
  CaptionLabel label{nullptr};
  int line = label.fontMetrics().lineSpacing();
  int whole = label.fontMetrics().size(Qt::TextShowMnemonic, kCaption).width();

  LabelWorld() { label.show(); }

  void Place(int width, int height) {
    label.resize(width, height);
    label.SetCaption(kCaption);
  }
};

TEST(CaptionLabel, WhatFitsIsShownInAsManyLinesAsThereIsRoomFor) {
  LabelWorld world;
  world.Place(world.whole + 20, world.line);
  EXPECT_EQ(world.label.Fitted(), kCaption);
  world.Place(world.whole * 2 / 3, 2 * world.line);
  EXPECT_EQ(world.label.Fitted().count(u'\n'), 1);
  EXPECT_FALSE(world.label.Fitted().contains(u'…'));
  EXPECT_EQ(world.label.toolTip(), "");
}

TEST(CaptionLabel, WhatDoesNotFitEndsInAnEllipsisAndIsToldAsAToolTip) {
  LabelWorld world;
  for (const int lines : {1, 2}) {
    world.Place(world.whole / 3, lines * world.line + 1);
    EXPECT_EQ(world.label.Fitted().count(u'\n'), lines - 1);
    EXPECT_TRUE(world.label.Fitted().endsWith(u'…')) << world.label.Fitted().toStdString();
    EXPECT_EQ(world.label.toolTip(), "% of data to graph");
    EXPECT_EQ(world.label.text(), kCaption) << "read out whole";
  }
  world.label.resize(world.whole + 20, world.line);
  EXPECT_EQ(world.label.toolTip(), "");
}

/// A list and, beside it, something else that can take the keyboard.
struct FocusWorld {
  QWidget window;
  QListWidget list{&window};
  QListWidget other{&window};

  explicit FocusWorld(const QPalette& palette) {
    window.resize(400, 200);
    list.setGeometry(0, 0, 200, 200);
    other.setGeometry(200, 0, 200, 200);
    list.setPalette(palette);
    list.addItems({"a", "b", "c"});
    list.setSelectionMode(QAbstractItemView::ExtendedSelection);
    FrameFocus(list);
    window.show();
    window.activateWindow();
    list.setFocus();
    list.setCurrentRow(1);
    QApplication::processEvents();
  }

  QColor Edge() { return list.grab().toImage().pixelColor(0, 150); }

  /// Where the frame about an entry runs.
  QColor FrameOfRow(int row) {
    const QRect place = list.visualItemRect(list.item(row));
    return list.viewport()->grab().toImage().pixelColor(place.center().x(), place.top() + 2);
  }
};

QPalette Dark() {
  QPalette palette(QColor(42, 46, 50));
  palette.setColor(QPalette::Base, QColor(27, 30, 32));
  palette.setColor(QPalette::Highlight, QColor(61, 174, 233));
  palette.setColor(QPalette::HighlightedText, QColor(252, 252, 252));
  return palette;
}

TEST(ListFocus, FramesShowTheListAndItsCurrentEntryOnLightAndDarkGround) {
  for (const QPalette& palette : {QApplication::palette(), Dark()}) {
    FocusWorld world(palette);
    const QColor highlight = palette.color(QPalette::Highlight);
    EXPECT_EQ(world.Edge(), highlight);
    EXPECT_EQ(world.FrameOfRow(1), palette.color(QPalette::HighlightedText)) << "selected";
    EXPECT_EQ(world.FrameOfRow(2), palette.color(QPalette::Base));
    QTest::keyClick(&world.list, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(world.FrameOfRow(1), highlight) << "selected, not current";
    EXPECT_EQ(world.FrameOfRow(2), highlight) << "current, not selected";
    world.other.setFocus();
    EXPECT_NE(world.Edge(), highlight);
    EXPECT_EQ(world.FrameOfRow(2), palette.color(QPalette::Base));
  }
}

TEST(FolderBox, PathsKeepTheStyleInWhichTheyWereNamed) {
  EXPECT_EQ(FolderAbove("/a/b"), "/a");
  EXPECT_EQ(FolderAbove("/a/"), "/");
  EXPECT_EQ(FolderAbove("/"), "/");
  EXPECT_EQ(FolderAbove("D:\\X\\Y"), "D:\\X");
  EXPECT_EQ(FolderAbove("D:\\X"), "D:\\");
  EXPECT_EQ(FolderAbove("D:/"), "D:/");
  EXPECT_EQ(FolderInside("/a", "b"), "/a/b");
  EXPECT_EQ(FolderInside("D:/", "X"), "D:/X");
  EXPECT_EQ(FolderInside("D:\\X", "Y"), "D:\\X\\Y");
}

TEST(FolderBox, TheUserWalksAnOldStyleTreeWithTheKeyboard) {
  const test::TemporaryFolder folder;
  folder.MakeFolder("DATA/INNER");
  folder.Write("file.txt", "no folder");
  PathRoots roots;
  roots.QuotelineDir = folder.Path();
  FolderBox box(roots, nullptr);
  QObject::connect(
      &box, &FolderBox::FolderChosen, [&box](const std::string& chosen) { box.SetFolder(chosen); });
  box.SetFolder("C:\\QL");
  ASSERT_EQ(box.List().count(), 2);  // ".." and DATA
  QTest::keyClick(&box.List(), Qt::Key_Down);
  QTest::keyClick(&box.List(), Qt::Key_Return);
  EXPECT_EQ(box.Line().text(), "C:\\QL\\DATA");
  EXPECT_EQ(box.List().item(1)->text(), "INNER");
  QTest::keyClick(&box.List(), Qt::Key_Return);
  EXPECT_EQ(box.Line().text(), "C:\\QL");
  QTest::keyClicks(&box.Line(), "\\NONE");
  EXPECT_EQ(box.List().count(), 0);
}

/// A combo box is called by its chosen entry; its name is its label's or its description.
QString NameOf(QWidget& widget) {
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&widget);
  if (spoken == nullptr) return {};
  if (qobject_cast<QComboBox*>(&widget) == nullptr) return spoken->text(QAccessible::Name);
  const auto labels = spoken->relations(QAccessible::Label);
  const bool labelled = !labels.empty() && !labels.front().first->text(QAccessible::Name).isEmpty();
  return labelled ? widget.accessibleName() : spoken->text(QAccessible::Description);
}

std::set<QString> ControlNames(Screens& screens) {
  std::set<QString> names;
  for (const Form* form : screens.All()) {
    for (const Control* control : form->Controls()) names.insert(QtText(control->Name()));
  }
  return names;
}

/// Names of kinds, which are heard only where a form says nothing about a control.
const std::set<QString> kUnspecific = {"Entry", "Choice", "List", "Scroll bar", "Chart"};

void ExpectSpokenNames(const QWidget& window, const std::set<QString>& control_names) {
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus) continue;
    const QString name = NameOf(*widget);
    const std::string which = widget->objectName().toStdString() + " (" +
                              widget->metaObject()->className() + ") is called \"" +
                              name.toStdString() + "\"";
    EXPECT_FALSE(name.trimmed().isEmpty()) << which;
    EXPECT_FALSE(control_names.contains(name)) << which;
    EXPECT_FALSE(kUnspecific.contains(name)) << which;
    EXPECT_FALSE(name.endsWith(u':') || name.contains(u'&')) << which;
  }
}

using AccessibleNames = StartedProgram;

TEST_F(AccessibleNames, EveryWidgetThatTakesTheKeyboardHasOneOnEveryScreen) {
  const std::set<QString> control_names = ControlNames(screens);
  for (Form* form : screens.All()) {
    if (form == &frmMain) continue;
    form->Show();
    QApplication::processEvents();
    const QWidget* shown = program.Host().ViewOf(*form)->window();
    SCOPED_TRACE(form->Name());
    ExpectSpokenNames(*shown, control_names);
    if (form->Style() != FormStyle::kScreen) form->Unload();
  }
  frmTab.Show();
  for (int type = 0; type < frmTab.cboDataType.Count(); ++type) {
    frmTab.cboDataType.SetListIndex(type);
    QApplication::processEvents();
    SCOPED_TRACE(type);
    ExpectSpokenNames(window, control_names);
  }
}

TEST_F(AccessibleNames, NamesAndAccessKeysFollowTheLabels) {
  frmTab.cboDataType.SetListIndex(1);
  const FormView& view = *program.Host().ViewOf(frmTab);
  QWidget& find = *view.AdapterOf(frmTab.lists.txtIndex)->Widget();
  const auto& label = *qobject_cast<QLabel*>(view.AdapterOf(frmTab.lists.lblIndex)->Widget());
  EXPECT_EQ(NameOf(find), "Find");
  EXPECT_EQ(label.buddy(), &find);
  frmTab.lists.lblIndex.SetCaption("&Search for:");
  EXPECT_EQ(NameOf(find), "Search for");
  frmTab.lists.lblIndex.SetCaption("");
  EXPECT_EQ(NameOf(find), "Entry");
  EXPECT_EQ(label.buddy(), nullptr);
  frmTab.lists.txtIndex.SetDescription("Name or symbol");
  EXPECT_EQ(NameOf(find), "Name or symbol");
}

}  // namespace
}  // namespace vistaplot::test
