#include "ui/grid/grid_view.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QClipboard>
#include <QElapsedTimer>
#include <QImage>
#include <QScrollBar>

#include "ui/grid/grid_world.h"

namespace vistaplot {
namespace {

using namespace test;

constexpr Qt::KeyboardModifiers kShift = Qt::ShiftModifier;
constexpr Qt::KeyboardModifiers kControl = Qt::ControlModifier;

TEST(GridView, MouseChoosesCellsColumnsAndRows) {
  GridWorld world;
  world.Click(3, 2);
  EXPECT_EQ(world.Selected(), "3,2-3,2");
  world.Click(5, 3, kShift);
  EXPECT_EQ(world.Selected(), "3,2-5,3");
  world.Click(1, 4, kControl);  // the symbol in the heading row
  EXPECT_EQ(world.Selected(), "3,2-5,3 1,4-201,4");
  world.Click(0, 2);  // the letter above it
  world.Click(0, 4, kShift);
  EXPECT_EQ(world.Selected(), "1,2-201,4");
  world.Click(6, 0);
  EXPECT_EQ(world.Selected(), "6,1-6,31");
  world.Click(0, 0);
  EXPECT_EQ(world.Selected(), "1,1-201,31");
  world.Drag(world.At(4, 2), world.At(8, 4));
  EXPECT_EQ(world.Selected(), "4,2-8,4");
  world.Drag(world.At(1, 3), world.At(9, 4));
  EXPECT_EQ(world.Selected(), "1,3-201,4") << "columns also when the drag leaves the headings";
}

TEST(GridView, KeysMoveAndExtendTheSelection) {
  struct Case {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    const char* selected;
  };
  const Case cases[] = {{Qt::Key_Down, {}, "3,2-3,2"},
                        {Qt::Key_Right, {}, "3,3-3,3"},
                        {Qt::Key_Right, kShift, "3,3-3,4"},
                        {Qt::Key_Down, kShift, "3,3-4,4"},
                        {Qt::Key_Space, kControl, "1,3-201,4"},
                        {Qt::Key_Left, kShift, "1,3-201,3"},
                        {Qt::Key_End, kControl, "201,31-201,31"},
                        {Qt::Key_Down, {}, "201,31-201,31"},
                        {Qt::Key_Home, {}, "201,2-201,2"},
                        {Qt::Key_Home, kControl | kShift, "2,2-201,2"},
                        {Qt::Key_Home, kControl, "2,2-2,2"},
                        {Qt::Key_End, {}, "2,31-2,31"},
                        {Qt::Key_Up, {}, "1,31-1,31"},
                        {Qt::Key_A, kControl, "1,1-201,31"},
                        {Qt::Key_Home, kControl, "2,2-2,2"},
                        {Qt::Key_Space, kControl, "1,2-201,2"},
                        {Qt::Key_F8, kShift, "1,2-201,2"},
                        {Qt::Key_Right, {}, "1,2-201,2"},
                        {Qt::Key_Right, {}, "1,2-201,2"},
                        {Qt::Key_Space, kControl, "1,2-201,2 1,4-201,4"},
                        {Qt::Key_F8, kShift, "1,2-201,2 1,4-201,4"},
                        {Qt::Key_Left, {}, "1,2-201,2 1,4-201,4"},
                        {Qt::Key_Left, {}, "1,2-201,2 1,4-201,4"},
                        {Qt::Key_Space, kControl, "1,4-201,4"},
                        {Qt::Key_F8, kShift, "1,4-201,4"},
                        {Qt::Key_Left, {}, "1,4-201,4"},
                        {Qt::Key_Down, kShift, "1,4-201,4 2,1-3,1"},
                        {Qt::Key_F8, kShift, "1,4-201,4 2,1-3,1"},
                        {Qt::Key_Escape, {}, "1,4-201,4 2,1-3,1"},
                        {Qt::Key_Right, {}, "3,2-3,2"},
                        {Qt::Key_F8, kShift, "3,2-3,2"},
                        {Qt::Key_Space, kControl, "1,2-201,2"}};
  GridWorld world;
  world.Click(2, 2);
  for (const Case& a_case : cases) {
    world.Key(a_case.key, a_case.modifiers);
    EXPECT_EQ(world.Selected(), a_case.selected) << "key " << a_case.key;
  }
}

TEST(GridView, PagesScrollByWhatIsInViewAndHeadingsStay) {
  GridWorld world;
  world.Click(2, 2);
  const GridGeometry& geometry = world.area.Geometry();
  const int page = geometry.PageRows();
  ASSERT_GT(page, 5);
  world.Key(Qt::Key_PageDown);
  EXPECT_EQ(geometry.ScrolledRows(), page);
  EXPECT_EQ(world.table.Active().selection.front().SelStartRow, 2 + page);
  EXPECT_EQ(world.At(1, 1),
            (QPoint(geometry.StripWidth() + geometry.Width(1) / 2,
                    geometry.StripHeight() + geometry.RowHeight() / 2)));
  world.Key(Qt::Key_End);
  EXPECT_GT(geometry.ScrolledPixels(), 0);
  EXPECT_LE(geometry.Left(31) + geometry.Width(31), world.area.viewport()->width());
  // What is under the mouse follows.
  world.Click(page + 4, 31);
  EXPECT_EQ(world.table.Active().selection.front(), (CellRange{page + 4, 31, page + 4, 31}));
  world.Click(page + 4, 1);
  EXPECT_EQ(world.table.Active().selection.front(), (CellRange{page + 4, 1, page + 4, 1}));
}

TEST(GridView, DragBeyondTheEdgeScrolls) {
  GridWorld world;
  const QPoint outside(world.At(5, 3).x(), world.area.viewport()->height() + 60);
  QTest::mousePress(world.area.viewport(), Qt::LeftButton, {}, world.At(5, 3));
  QTest::mouseMove(world.area.viewport(), outside);
  EXPECT_TRUE(QTest::qWaitFor([&] { return world.area.Geometry().ScrolledRows() > 3; }, 5000));
  QTest::mouseRelease(world.area.viewport(), Qt::LeftButton, {}, outside);
  const CellRange range = world.table.Active().selection.front();
  EXPECT_EQ(range.SelStartRow, 5);
  EXPECT_GT(range.SelEndRow, world.area.Geometry().PageRows() + 3);
}

TEST(GridView, HeadingsTellClicksAndCellsOnlyRightOnes) {
  GridWorld world;
  world.table.SetActiveSheet(2);
  world.Click(1, 3);
  world.Click(0, 3);
  world.Click(2, 0);
  world.Click(2, 2);            // among the rows: a selection and no sort
  world.Click(1, 3, kControl);  // takes part in the selection only
  world.Drag(world.At(1, 1), world.At(1, 2));
  EXPECT_EQ(world.log, "click 1,3; click 0,3; click 2,0; ");
  world.log.clear();
  world.Click(3, 2);
  QTest::mouseClick(world.area.viewport(), Qt::RightButton, {}, world.At(3, 2));
  world.Key(Qt::Key_Up);
  world.Key(Qt::Key_Menu);
  world.Key(Qt::Key_F10, kShift);
  world.Key(Qt::Key_Up);
  world.Key(Qt::Key_Return);
  EXPECT_EQ(world.log, "right 3,2; right 2,2; right 2,2; click 1,2; ");
  world.log.clear();
  world.table.SetActiveSheet(1);  // only a row of the summary stands for something to chart
  QTest::mouseClick(world.area.viewport(), Qt::RightButton, {}, world.At(3, 2));
  world.Key(Qt::Key_Menu);
  EXPECT_EQ(world.log, "");
}

TEST(GridView, RightClickKeepsASelectionThatItMeets) {
  GridWorld world;
  world.Drag(world.At(1, 2), world.At(1, 3));
  QTest::mouseClick(world.area.viewport(), Qt::RightButton, {}, world.At(7, 3));
  EXPECT_EQ(world.Selected(), "1,2-201,3");
  QTest::mouseClick(world.area.viewport(), Qt::RightButton, {}, world.At(7, 4));
  EXPECT_EQ(world.Selected(), "7,4-7,4");
}

TEST(GridView, FollowsASelectionMadeByTheProgram) {
  GridWorld world;
  world.table.SheetAt(1).selection = {{1, 30, 201, 30}};
  world.table.NotifyContent(1);
  const GridGeometry& geometry = world.area.Geometry();
  EXPECT_LE(geometry.Left(30) + geometry.Width(30), world.area.viewport()->width());
  world.Key(Qt::Key_Right, kShift);
  EXPECT_EQ(world.Selected(), "1,30-201,31");
  world.area.horizontalScrollBar()->setValue(0);
  world.table.SheetAt(1).selection = {{201, 31, 201, 31}};  // where importers leave it
  world.table.NotifyContent(1);
  EXPECT_EQ(geometry.ScrolledPixels(), 0);
  EXPECT_EQ(geometry.ScrolledRows(), 0);
}

TEST(GridView, SheetsKeepTheirPlaceUntilTheyAreLoadedAnew) {
  GridWorld world;
  world.Click(2, 3);
  world.area.verticalScrollBar()->setValue(40);
  world.table.SetActiveSheet(2);
  EXPECT_EQ(world.area.Geometry().ScrolledRows(), 0);
  world.table.SetActiveSheet(1);
  EXPECT_EQ(world.area.Geometry().ScrolledRows(), 40);
  world.Key(Qt::Key_Down);
  EXPECT_EQ(world.Selected(), "3,3-3,3");
  world.table.SheetAt(1).SheetName = "OTHER";
  world.table.NotifyContent(1);
  EXPECT_EQ(world.area.Geometry().ScrolledRows(), 0);
}

TEST(GridView, TabsShowEverySheetButTheSpareOne) {
  GridWorld world;
  QTabBar& tabs = world.view.Tabs();
  const auto captions = [&tabs] {
    std::string text;
    for (int i = 0; i < tabs.count(); ++i) text += tabs.tabText(i).toStdString() + ";";
    return text;
  };
  EXPECT_EQ(captions(), "PRICES;Summary;");
  QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
  EXPECT_EQ(world.table.ActiveSheet(), 2);
  EXPECT_EQ(world.area.model()->rowCount(), 3);
  world.Key(Qt::Key_PageUp, kControl);
  EXPECT_EQ(tabs.currentIndex(), 0);
  QTest::keyClick(&tabs, Qt::Key_PageDown, kControl);
  EXPECT_EQ(tabs.currentIndex(), 1);
  world.table.SheetAt(3).MaxRow = 1;
  world.table.SheetAt(3).SheetName = "S&P";
  world.table.NotifyContent(3);
  EXPECT_EQ(captions(), "PRICES;Summary;S&&P;");
  world.table.Reset(1);
  EXPECT_EQ(captions(), "Sheet1;");
  world.Key(Qt::Key_Down);  // nothing to move over
  EXPECT_EQ(world.Selected(), "");
}

TEST(GridView, KeysNeverLeadToTheSpareSheet) {
  GridWorld world;
  std::string visited;
  for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_PageUp}) {
    world.Key(key, kControl);
    visited += std::to_string(world.table.ActiveSheet());
  }
  EXPECT_EQ(visited, "2211");
}

TEST(GridView, OpensAtTheFirstPriceAndScrollsBackFromThere) {
  GridWorld world;
  std::vector<float> late(200, -1.0F);
  std::fill(late.begin() + 120, late.end(), 3.5F);
  Sheet& sheet = world.table.SheetAt(1);
  for (int col = 2; col <= GridWorld::kCols; ++col) sheet.SetPriceColumn(col, "LATE", late);
  sheet.SheetName = "LATE";
  world.table.NotifyContent(1);
  EXPECT_EQ(world.area.Geometry().ScrollingRows().first, 122);
  world.Key(Qt::Key_Up);
  EXPECT_EQ(world.area.Geometry().ScrollingRows().first, 121);
}

TEST(GridView, ASortedColumnBearsAnArrowThatTurns) {
  GridWorld world;
  world.table.SetActiveSheet(2);
  const QRect heading(world.At(1, 3) - QPoint(40, 8), QSize(80, 16));
  const auto painted = [&world, heading](int sorted_by) {
    world.table.SheetAt(2).SortedBy = sorted_by;
    return world.area.viewport()->grab(heading).toImage();
  };
  const QImage plain = painted(0);
  const QImage up = painted(3);
  EXPECT_NE(up, plain);
  EXPECT_NE(painted(-3), up);
  EXPECT_EQ(painted(2), plain) << "another column";
}

TEST(GridView, WidthsAreTheSheetsAndTheMousesToChange) {
  GridWorld world;
  const GridGeometry& geometry = world.area.Geometry();
  const double twips_per_pixel = GridFonts(world.area.font()).Sizes().twips_per_pixel;
  world.table.SheetAt(1).SetColumnWidth(2, 2000);
  world.table.NotifyContent(1);
  EXPECT_NEAR(geometry.Width(2), 2000 / twips_per_pixel, 0.5);
  const int width = geometry.Width(3);
  const QPoint border(geometry.Left(3) + width - 1, 5);
  world.Drag(border, border + QPoint(30, 0));
  EXPECT_EQ(geometry.Width(3), width + 30);
  EXPECT_NEAR(world.table.SheetAt(1).ColumnWidth(3), (width + 30) * twips_per_pixel, 1);
  EXPECT_EQ(world.Selected(), "") << "a border is no heading";
  QTest::mouseDClick(
      world.area.viewport(), Qt::LeftButton, {}, {geometry.Left(3) + geometry.Width(3) - 1, 5});
  EXPECT_LT(geometry.Width(3), width) << "12.5 needs less than a date";
}

TEST(GridView, HeadingsThatWouldFillTheViewScroll) {
  GridWorld world;
  Sheet& sheet = world.table.SheetAt(1);
  sheet.FixedCols = 3;
  sheet.FixedRows = 100;
  sheet.SetColumnWidth(3, 9000);
  world.table.NotifyContent(1);
  const GridGeometry& geometry = world.area.Geometry();
  EXPECT_EQ(geometry.FixedCols(), 2);
  EXPECT_LT(geometry.FrozenHeight(), world.area.viewport()->height() * 3 / 4);
  world.Key(Qt::Key_End, kControl);
  EXPECT_EQ(world.Selected(), "201,31-201,31");
  EXPECT_LT(geometry.Top(201), world.area.viewport()->height());
}

TEST(GridView, CopiesTheSelectionAsTabbedText) {
  GridWorld world;
  world.table.SetActiveSheet(2);
  world.Click(1, 1);
  world.Click(1, 3, kControl);
  world.Key(Qt::Key_C, kControl);
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(),
            "Symbol\tAnn %\nAAA\t12.50\nBBB\t-1.00\n");
}

// The leftmost and rightmost column with ink in a cell, from its left edge.
std::pair<int, int> Ink(const GridWorld& world, int row, int col) {
  const GridGeometry& geometry = world.area.Geometry();
  const QRect cell =
      geometry.Place({row, col, row, col}).adjusted(1, 1, -2, -2);  // without the lines
  const QImage image = world.area.viewport()->grab(cell).toImage();
  const QColor ground = image.pixelColor(0, 0);
  std::pair<int, int> ink{image.width(), 0};
  for (int x = 0; x < image.width(); ++x) {
    for (int y = 0; y < image.height(); ++y) {
      if (qAbs(image.pixelColor(x, y).lightness() - ground.lightness()) < 40) continue;
      ink = {std::min(ink.first, x), std::max(ink.second, x)};
    }
  }
  return ink;
}

TEST(GridView, PaintsNumbersAtTheRightAndTextsAtTheLeftOnAnyPalette) {
  for (const bool is_dark : {false, true}) {
    GridWorld world;
    QPalette palette = world.area.palette();
    palette.setColor(QPalette::Base, is_dark ? QColor(30, 30, 30) : Qt::white);
    palette.setColor(QPalette::Text, is_dark ? Qt::white : Qt::black);
    world.area.setPalette(palette);
    const int width = world.area.Geometry().Width(2) - 3;
    const auto price = Ink(world, 5, 2);
    EXPECT_GT(price.second, width - 8);
    EXPECT_GT(price.first, width / 2);
    world.table.SetActiveSheet(2);
    const auto name = Ink(world, 2, 2);
    EXPECT_LT(name.first, 8);
    EXPECT_LT(name.second, world.area.Geometry().Width(2) - 6);
    const auto heading = Ink(world, 1, 3);
    EXPECT_GT(heading.first, 8) << "a heading stands over its numbers";
  }
}

TEST(GridView, ATitleRunsOnOverItsRowAndIsLaidOutAsFarAsItShows) {
  GridWorld world;
  Sheet& sheet = world.table.SheetAt(2);
  sheet.SetTextColumn(1, {std::string(30'000'000, 'W'), "AAA", "BBB"});
  for (const int col : {2, 3}) sheet.SetCellText(1, col, "");
  QElapsedTimer watch;
  watch.start();
  world.table.SetActiveSheet(2);
  EXPECT_LT(Ink(world, 1, 2).first, 8);
  EXPECT_GT(Ink(world, 1, 3).second, world.area.Geometry().Width(3) / 2);
  const QPoint border(world.area.Geometry().Left(2) - 1, 5);
  QTest::mouseDClick(world.area.viewport(), Qt::LeftButton, {}, border);
  EXPECT_LT(world.area.Geometry().Width(1), 100) << "the column fits what stands below";
  EXPECT_LT(watch.elapsed(), 5000) << "all of it would take minutes and gigabytes";
}

TEST(GridView, TellsAssistiveToolsTheCurrentCell) {
  GridWorld world;
  QAccessible::setActive(true);
  world.Click(4, 3);
  QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&world.area);
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->role(), QAccessible::Table);
  EXPECT_EQ(table->text(QAccessible::Name).toStdString(), "Sheet PRICES");
  QAccessibleInterface* cell = table->focusChild();
  ASSERT_NE(cell, nullptr);
  EXPECT_EQ(cell->text(QAccessible::Name).toStdString(), "12.5, F3, 01/02/1999, C4");
  QAccessible::setActive(false);
}

TEST(GridView, ClickThatFailsIsReportedAndNotThrownIntoTheToolkit) {
  GridWorld world;
  world.grid.Click = [](int, int) { throw ProgramEnded{}; };
  world.Click(1, 2);
  EXPECT_TRUE(world.guard.Status().has_value());
}

}  // namespace
}  // namespace vistaplot
