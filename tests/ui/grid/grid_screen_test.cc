// The grid at work on the data screen of a loaded family.
#include <gtest/gtest.h>

#include "support/screen_world.h"
#include "ui/grid/grid_view.h"
#include "ui/grid/grid_world.h"

namespace vistaplot {
namespace {

struct DataScreen {
  test::ScreenWorld world;
  EventGuard guard;
  GridView view{world.screens.frmData.F1Book1, world.state.table, guard, nullptr};
  const GridGeometry& geometry = view.Area().Geometry();

  DataScreen() {
    view.resize(1200, 300);
    view.show();
    world.LoadTrio();
  }

  void Click(Qt::MouseButton button, int row, int col) {
    const QPoint corner(geometry.Left(col) + 10, geometry.Top(row) + 5);
    QTest::mouseClick(view.Area().viewport(), button, {}, corner);
  }
  std::string SummarySymbols() const {
    std::string symbols;
    for (int row = 1; row <= 4; ++row) {
      symbols += world.state.table.SheetAt(2).CellText(row, 1) + " ";
    }
    return symbols;
  }
};

TEST(GridScreen, ClicksOnASummaryHeadingSortUpAndDown) {
  DataScreen screen;
  EXPECT_EQ(screen.view.Tabs().count(), 2);
  screen.view.Tabs().setCurrentIndex(1);
  screen.Click(Qt::LeftButton, 1, 3);  // AAA quadruples, BBB falls, CCC is worth 11 times as much
  EXPECT_EQ(screen.SummarySymbols(), "Symbol BBB AAA CCC ");
  screen.Click(Qt::LeftButton, 1, 3);
  EXPECT_EQ(screen.SummarySymbols(), "Symbol CCC AAA BBB ");
  screen.Click(Qt::LeftButton, 2, 1);  // a fund's own cell
  EXPECT_EQ(screen.SummarySymbols(), "Symbol CCC AAA BBB ");
}

TEST(GridScreen, ARightClickOnASummaryRowChartsItsFund) {
  DataScreen screen;
  screen.view.Tabs().setCurrentIndex(1);
  screen.Click(Qt::RightButton, 4, 2);
  EXPECT_EQ(screen.world.state.selection.SelectedColumns, std::vector<std::int16_t>{4});
  EXPECT_EQ(screen.world.state.table.ActiveSheet(), 2);
  EXPECT_EQ(screen.view.Tabs().currentIndex(), 1);
}

TEST(GridScreen, ColumnsChosenWithTheKeyboardAreCharted) {
  DataScreen screen;
  GridArea& area = screen.view.Area();
  QTest::keyClick(&area, Qt::Key_Right);
  QTest::keyClick(&area, Qt::Key_Space, Qt::ControlModifier);
  QTest::keyClick(&area, Qt::Key_Right, Qt::ShiftModifier);
  screen.world.screens.frmMain.mnuFileGraph_Click();
  EXPECT_EQ(screen.world.state.selection.SelectedColumns, (std::vector<std::int16_t>{3, 4}));
}

}  // namespace
}  // namespace vistaplot
