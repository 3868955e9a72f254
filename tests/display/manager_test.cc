// What shows only where a window manager places, stacks and activates windows.
#include <QAction>
#include <QClipboard>
#include <QMessageBox>
#include <QScreen>
#include <QToolBar>
#include <QToolButton>

#include "display/display_world.h"
#include "ui/frame/form_view.h"

namespace vistaplot {
namespace {

using namespace test;

class ManagedWindows : public testing::Test {
 protected:
  int Run(const std::function<void()>& steps) { return RunProgram(program_, steps); }

  MainWindow& Main() { return program_.Window(); }
  Screens& AllScreens() { return program_.Screens().AllScreens(); }

  void ClickTool(const char* name) {
    const auto* bar = Main().findChild<QToolBar*>();
    QWidget* tool = bar->widgetForAction(Main().findChild<QAction*>(name));
    ASSERT_NE(tool, nullptr);
    QTest::mouseClick(tool, Qt::LeftButton);
  }

  DisplayWorld world_;
  WindowProgram program_{{.quoteline = world_.quoteline,
                          .settings = world_.settings,
                          .display = std::nullopt,
                          .player = nullptr}};
};

TEST_F(ManagedWindows, TheFrameFitsTheScreenAndFillsItOnRequest) {
  const int status = Run([this] {
    const QRect screen = Main().screen()->geometry();
    EXPECT_TRUE(screen.contains(Main().frameGeometry()));
    QTest::keyClick(&Main(), Qt::Key_3, Qt::ControlModifier);
    QTest::keyClick(&Main(), Qt::Key_F11);
    EXPECT_TRUE(Wait([&] { return Main().isFullScreen() && Main().geometry() == screen; }));
    QTest::keyClick(&Main(), Qt::Key_F11);
    EXPECT_TRUE(Wait([&] { return !Main().isFullScreen() && Main().geometry() != screen; }));
    Main().close();
  });
  EXPECT_EQ(status, 0);
}

TEST_F(ManagedWindows, TheFamilyWindowComesToTheFrontAndGivesTheFocusBack) {
  const int status = Run([this] {
    AllScreens().frmTab.cboDataType.SetListIndex(1);
    Main().findChild<QAction*>("mnuFamilySelect")->trigger();
    QWidget* family = program_.Host().ViewOf(AllScreens().frmFam);
    ASSERT_NE(family, nullptr);
    ASSERT_TRUE(Wait([&] { return family->window()->isActiveWindow(); }));
    family->window()->close();  // as the manager does for a click on its X
    EXPECT_TRUE(Wait([this] { return Main().isActiveWindow() && QApplication::focusWidget(); }));
    QTest::keyClick(&Main(), Qt::Key_Q, Qt::ControlModifier);
  });
  EXPECT_EQ(status, 0);
}

TEST_F(ManagedWindows, AMessageTakesTheKeysAndTheScreenHasThemAgainAfterwards) {
  const int status = Run([this] {
    AllScreens().frmTab.cboDataType.SetListIndex(1);
    QWidget* before = QApplication::focusWidget();
    QString text;
    OnceModal(program_, [&text](QWidget& box) {
      text = dynamic_cast<QMessageBox&>(box).text();
      Press(Qt::Key_Return);
    });
    ClickTool("cmdGraph");  // nothing is loaded yet
    EXPECT_TRUE(text.startsWith(QStringLiteral("Please load"))) << text.toStdString();
    EXPECT_TRUE(Wait([&] { return Main().isActiveWindow(); }));
    EXPECT_EQ(QApplication::focusWidget(), before);
    Main().close();
  });
  EXPECT_EQ(status, 0);
}

TEST_F(ManagedWindows, CellsChosenWithTheMouseReachTheClipboard) {
  const int status = Run([this] {
    AllScreens().frmTab.cboDataType.SetListIndex(1);
    AllScreens().frmTab.lists.lstIndex.Select({0});
    AllScreens().frmTab.lists.cmdLoadData.RaiseClick();
    ClickTool("cmdShowData");
    auto* grid = Main().findChild<GridArea*>();
    ASSERT_TRUE(Wait([&] { return grid->isVisible() && QApplication::focusWidget() == grid; }));
    const GridGeometry& cells = grid->Geometry();
    const auto at = [&](int row, int col) {
      return QPoint(cells.Left(col) + 5, cells.Top(row) + 5);
    };
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, at(2, 2));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::ShiftModifier, at(3, 3));
    QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(Wait([] { return !QApplication::clipboard()->text().isEmpty(); }));
    EXPECT_EQ(QApplication::clipboard()->text().trimmed().toStdString(),
              "100\t200\n100.25\t200.25");
    Main().close();
  });
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace vistaplot
