// Which screen is in front, where the keyboard goes with it, and how the screens lie.
#include "ui/frame/screen_area.h"

#include <gtest/gtest.h>

#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>

#include "ui/frame/program_windows.h"
#include "ui/grid/grid_area.h"

namespace vistaplot::test {
namespace {

class Screening : public StartedProgram {
 protected:
  void Ctrl(Qt::Key key) { Press(key, Qt::ControlModifier); }

  void Arrange(const char* command) {
    Command(command).trigger();
    QApplication::processEvents();
  }

  ScreenWindow& Screen(const Form& form) { return dynamic_cast<ScreenWindow&>(Child(form)); }

  void Close(const Form& form) {
    Screen(form).close();
    QApplication::processEvents();
  }

  QWidget* Focus() const { return QApplication::focusWidget(); }
};

TEST_F(Screening, AScreenHasTheKeyboardAgainWhereItHadItLast) {
  auto* find = window.findChild<QWidget*>("txtIndex");
  ASSERT_NE(find, nullptr);
  frmTab.cboDataType.SetListIndex(1);
  find->setFocus();
  for (int turn = 0; turn < 2; ++turn) {
    Ctrl(Qt::Key_2);
    EXPECT_NE(qobject_cast<GridArea*>(Focus()), nullptr) << turn;
    Ctrl(turn == 0 ? Qt::Key_1 : Qt::Key_Tab);
    EXPECT_EQ(Focus(), find) << turn;
  }
}

TEST_F(Screening, TheSaveKeyMeansWhatIsInFront) {
  const QKeySequence save(Qt::CTRL | Qt::Key_S);
  Ctrl(Qt::Key_2);
  EXPECT_EQ(Command("mnuFileSaveSheet").shortcut(), save);
  EXPECT_TRUE(Command("mnuFileSaveChart").shortcut().isEmpty());
  Ctrl(Qt::Key_1);
  EXPECT_EQ(Command("mnuFileSaveChart").shortcut(), save);
  EXPECT_TRUE(Command("mnuFileSaveSheet").shortcut().isEmpty());
}

TEST_F(Screening, TheScreenBehindTakesTheKeyboardAndTheRoomOfAClosedOne) {
  Ctrl(Qt::Key_4);
  Ctrl(Qt::Key_2);
  Close(screens.frmData);
  EXPECT_EQ(Front(), &screens.frmCalc);
  EXPECT_TRUE(Screen(screens.frmCalc).isMaximized());
  EXPECT_TRUE(Screen(screens.frmCalc).isAncestorOf(Focus()));
}

TEST_F(Screening, AScreenKeepsItsFocusWhileThoseInFrontOfItAreClosed) {
  Ctrl(Qt::Key_2);
  const QWidget* grid = Focus();
  Ctrl(Qt::Key_1);
  Ctrl(Qt::Key_4);
  Close(screens.frmCalc);
  Close(frmTab);
  Close(screens.frmData);
  Ctrl(Qt::Key_2);
  EXPECT_EQ(Focus(), grid);
}

TEST_F(Screening, AScreenClosedInFullScreenFillsTheAreaWhenItIsBack) {
  Press(Qt::Key_F11);
  Close(frmTab);
  Press(Qt::Key_F11);
  Ctrl(Qt::Key_1);
  EXPECT_EQ(Screen(frmTab).size(), window.Area().viewport()->size());
}

TEST_F(Screening, TiledScreensAreAsBeforeAfterTheFullScreen) {
  Ctrl(Qt::Key_3);
  Arrange("mnuwindowTile");
  const QRect before = Screen(screens.frmGraph).geometry();
  const QRect other = Screen(frmTab).geometry();
  EXPECT_FALSE(before.intersects(other));
  QWidget* chart = Focus();
  EXPECT_TRUE(Screen(screens.frmGraph).isAncestorOf(chart));
  Press(Qt::Key_F11);
  EXPECT_GT(Screen(screens.frmGraph).widget()->height(),
            window.height() - 10);  // no title bar, no frame parts
  EXPECT_EQ(Focus(), chart);
  Press(Qt::Key_F11);
  EXPECT_EQ(Screen(screens.frmGraph).geometry(), before);
  EXPECT_EQ(Screen(frmTab).geometry(), other);
}

TEST_F(Screening, TheFrameHasItsMenusToolsAndStatusBackAfterTheFullScreen) {
  const MainWindow& frame = window;
  bool left_by_key = false;  // Esc leads out too
  const std::vector<QWidget*> parts{
      frame.menuBar(), frame.statusBar(), frame.findChild<QToolBar*>()};
  for (const bool shown : {false, true, false, true}) {
    Press(shown && !left_by_key ? Qt::Key_Escape : Qt::Key_F11);
    left_by_key = left_by_key || shown;
    for (const QWidget* part : parts)
      EXPECT_EQ(part->isVisible(), shown) << part->metaObject()->className();
  }
}

TEST_F(Screening, ACascadeShowsEveryTitle) {
  Ctrl(Qt::Key_3);
  Ctrl(Qt::Key_4);
  Ctrl(Qt::Key_1);
  Arrange("mnuWindowCascade");
  const ScreenArea& area = window.Area();
  ASSERT_EQ(area.Visible().size(), 3);
  EXPECT_EQ(Front(), &frmTab);
  QMenu& list = *Command("mnuWindow").menu();
  emit list.aboutToShow();
  const QList<QAction*> listed = list.actions().last(3);
  EXPECT_EQ(listed[0]->text().right(10) + listed[2]->text().left(3), "Parameters&3 ");
  EXPECT_TRUE(listed[0]->isChecked() && !listed[1]->isChecked());
  Press(Qt::Key_Tab, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Front(), &screens.frmCalc) << "the last one is before the first";
  listed[0]->trigger();
  EXPECT_EQ(Front(), &frmTab);
  for (const ScreenWindow* screen : area.Visible()) {
    EXPECT_TRUE(area.rect().contains(screen->geometry()));
    const QPoint title = screen->geometry().topLeft() + QPoint(4, screen->TitleHeight() / 2);
    EXPECT_TRUE(screen->rect().contains(screen->mapFrom(&area, title)));
    EXPECT_EQ(area.viewport()->childAt(title), screen) << screen->windowTitle().toStdString();
  }
}

}  // namespace
}  // namespace vistaplot::test
