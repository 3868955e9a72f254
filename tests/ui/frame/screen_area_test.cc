// Which screen is in front, where the keyboard goes with it, and how the screens lie.
#include "ui/frame/screen_area.h"

#include <gtest/gtest.h>

#include <QMenuBar>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>

#include "ui/frame/program_windows.h"
#include "ui/grid/grid_area.h"

namespace vistaplot {
namespace {

using test::Windows;

class Screening : public testing::Test {
 protected:
  void SetUp() override { windows_.Start(); }

  void Press(Qt::Key key, Qt::KeyboardModifiers with = Qt::ControlModifier) {
    QTest::keyClick(&windows_.program.Window(), key, with);
    QApplication::processEvents();
  }

  void Arrange(const char* command) {
    windows_.Command(command).trigger();
    QApplication::processEvents();
  }

  ScreenWindow& Child(const Form& form) {
    return dynamic_cast<ScreenWindow&>(windows_.Child(form));
  }

  Windows windows_;
  Screens& screens_ = windows_.screens;
};

TEST_F(Screening, AScreenHasTheKeyboardAgainWhereItHadItLast) {
  auto* find = windows_.program.Window().findChild<QWidget*>("txtIndex");
  ASSERT_NE(find, nullptr);
  screens_.frmTab.cboDataType.SetListIndex(1);
  find->setFocus();
  for (int turn = 0; turn < 2; ++turn) {
    Press(Qt::Key_2);
    EXPECT_NE(qobject_cast<GridArea*>(QApplication::focusWidget()), nullptr) << turn;
    Press(turn == 0 ? Qt::Key_1 : Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), find) << turn;
  }
}

TEST_F(Screening, TheSaveKeyMeansWhatIsInFront) {
  const QKeySequence save(Qt::CTRL | Qt::Key_S);
  Press(Qt::Key_2);
  EXPECT_EQ(windows_.Command("mnuFileSaveSheet").shortcut(), save);
  EXPECT_TRUE(windows_.Command("mnuFileSaveChart").shortcut().isEmpty());
  Press(Qt::Key_1);
  EXPECT_EQ(windows_.Command("mnuFileSaveChart").shortcut(), save);
  EXPECT_TRUE(windows_.Command("mnuFileSaveSheet").shortcut().isEmpty());
}

TEST_F(Screening, TheScreenBehindTakesTheKeyboardAndTheRoomOfAClosedOne) {
  Press(Qt::Key_4);
  Press(Qt::Key_2);
  Child(screens_.frmData).close();
  QApplication::processEvents();
  EXPECT_EQ(windows_.program.Host().FrontScreen(), &screens_.frmCalc);
  EXPECT_TRUE(Child(screens_.frmCalc).isMaximized());
  EXPECT_TRUE(Child(screens_.frmCalc).isAncestorOf(QApplication::focusWidget()));
}

TEST_F(Screening, AScreenKeepsItsFocusWhileThoseInFrontOfItAreClosed) {
  Press(Qt::Key_2);
  auto* grid = QApplication::focusWidget();
  Press(Qt::Key_1);
  Press(Qt::Key_4);
  for (const Form* form :
       std::initializer_list<Form*>{&screens_.frmCalc, &screens_.frmTab, &screens_.frmData}) {
    Child(*form).close();
    QApplication::processEvents();
  }
  Press(Qt::Key_2);
  EXPECT_EQ(QApplication::focusWidget(), grid);
}

TEST_F(Screening, AScreenClosedInFullScreenFillsTheAreaWhenItIsBack) {
  Press(Qt::Key_F11, Qt::NoModifier);
  QApplication::processEvents();
  Child(screens_.frmTab).close();
  Press(Qt::Key_F11, Qt::NoModifier);
  QApplication::processEvents();
  Press(Qt::Key_1);
  EXPECT_EQ(Child(screens_.frmTab).size(), windows_.program.Window().Area().viewport()->size());
}

TEST_F(Screening, TiledScreensAreAsBeforeAfterTheFullScreen) {
  Press(Qt::Key_3);
  Arrange("mnuwindowTile");
  const QRect before = Child(screens_.frmGraph).geometry();
  const QRect other = Child(screens_.frmTab).geometry();
  EXPECT_FALSE(before.intersects(other));
  QWidget* chart = QApplication::focusWidget();
  EXPECT_TRUE(Child(screens_.frmGraph).isAncestorOf(chart));
  Press(Qt::Key_F11, Qt::NoModifier);
  EXPECT_GT(Child(screens_.frmGraph).widget()->height(),
            windows_.program.Window().height() - 10);  // no title bar, no frame parts
  EXPECT_EQ(QApplication::focusWidget(), chart);
  Press(Qt::Key_F11, Qt::NoModifier);
  EXPECT_EQ(Child(screens_.frmGraph).geometry(), before);
  EXPECT_EQ(Child(screens_.frmTab).geometry(), other);
}

TEST_F(Screening, TheFrameHasItsMenusToolsAndStatusBackAfterTheFullScreen) {
  const MainWindow& frame = windows_.program.Window();
  const std::vector<QWidget*> parts{
      frame.menuBar(), frame.statusBar(), frame.findChild<QToolBar*>()};
  for (const bool shown : {false, true, false, true}) {
    Press(Qt::Key_F11, Qt::NoModifier);
    for (const QWidget* part : parts)
      EXPECT_EQ(part->isVisible(), shown) << part->metaObject()->className();
  }
}

TEST_F(Screening, ACascadeShowsEveryTitle) {
  Press(Qt::Key_3);
  Press(Qt::Key_4);
  Press(Qt::Key_1);
  Arrange("mnuWindowCascade");
  const ScreenArea& area = windows_.program.Window().Area();
  ASSERT_EQ(area.Visible().size(), 3);
  EXPECT_EQ(windows_.program.Host().FrontScreen(), &screens_.frmTab);
  for (const ScreenWindow* screen : area.Visible()) {
    EXPECT_TRUE(area.rect().contains(screen->geometry()));
    const QPoint title = screen->geometry().topLeft() + QPoint(4, screen->TitleHeight() / 2);
    EXPECT_TRUE(screen->rect().contains(screen->mapFrom(&area, title)));
    EXPECT_EQ(area.viewport()->childAt(title), screen) << screen->windowTitle().toStdString();
  }
}

}  // namespace
}  // namespace vistaplot
