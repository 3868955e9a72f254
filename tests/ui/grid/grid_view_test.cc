#include "ui/grid/grid_view.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QClipboard>
#include <QElapsedTimer>
#include <QHelpEvent>
#include <QImage>
#include <QScrollBar>
#include <QToolTip>

#include "support/screen_world.h"
#include "ui/grid/grid_world.h"

namespace vistaplot::test {
namespace {

class GridTest : public testing::Test, protected GridWorld {
 protected:
  void RightClick(int row, int col) {
    QTest::mouseClick(area.viewport(), Qt::RightButton, {}, At(row, col));
  }

  // The leftmost and rightmost column with ink in a cell, from its left edge.
  std::pair<int, int> Ink(int row, int col) {
    const QRect cell = geometry.Place({row, col, row, col}).adjusted(1, 1, -2, -2);  // no lines
    const QImage image = area.viewport()->grab(cell).toImage();
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
};

constexpr Qt::KeyboardModifiers kShift = Qt::ShiftModifier;
constexpr Qt::KeyboardModifiers kControl = Qt::ControlModifier;

TEST_F(GridTest, MouseChoosesCellsColumnsAndRows) {
  Click(3, 2);
  EXPECT_EQ(Selected(), "3,2-3,2");
  Click(5, 3, kShift);
  EXPECT_EQ(Selected(), "3,2-5,3");
  Click(1, 4, kControl);  // the symbol in the heading row
  EXPECT_EQ(Selected(), "3,2-5,3 1,4-201,4");
  Click(0, 2);  // the letter above it
  Click(0, 4, kShift);
  EXPECT_EQ(Selected(), "1,2-201,4");
  Click(6, 0);
  EXPECT_EQ(Selected(), "6,1-6,31");
  Click(0, 0);
  EXPECT_EQ(Selected(), "1,1-201,31");
  Drag(At(4, 2), At(8, 4));
  EXPECT_EQ(Selected(), "4,2-8,4");
  Drag(At(1, 3), At(9, 4));
  EXPECT_EQ(Selected(), "1,3-201,4") << "columns also when the drag leaves the headings";
}

// Each key with what is selected after it, from the first price on.
TEST_F(GridTest, KeysMoveAndExtendTheSelection) {
  Click(2, 2);
  for (const auto step :
       Split("Down 3,2-3,2|Right 3,3-3,3|Shift+Right 3,3-3,4|Shift+Down 3,3-4,4|"
             "Ctrl+Space 1,3-201,4|Shift+Left 1,3-201,3|Ctrl+End 201,31-201,31|Down 201,31-201,31|"
             "Home 201,2-201,2|Ctrl+Shift+Home 2,2-201,2|Ctrl+Home 2,2-2,2|End 2,31-2,31|"
             "Up 1,31-1,31|Ctrl+A 1,1-201,31|Ctrl+Home 2,2-2,2|Ctrl+Space 1,2-201,2|"
             "Shift+F8 1,2-201,2|Right 1,2-201,2|Right 1,2-201,2|Ctrl+Space 1,2-201,2 1,4-201,4|"
             "Shift+F8 1,2-201,2 1,4-201,4|Left 1,2-201,2 1,4-201,4|Left 1,2-201,2 1,4-201,4|"
             "Ctrl+Space 1,4-201,4|Shift+F8 1,4-201,4|Left 1,4-201,4|Shift+Down 1,4-201,4 2,1-3,1|"
             "Shift+F8 1,4-201,4 2,1-3,1|Esc 1,4-201,4 2,1-3,1|Right 3,2-3,2|Shift+F8 3,2-3,2|"
             "Ctrl+Space 1,2-201,2",
             '|')) {
    const auto key = QKeySequence::fromString(QtText(step.substr(0, step.find(' '))))[0];
    Key(key.key(), key.keyboardModifiers());
    EXPECT_EQ(Selected(), step.substr(step.find(' ') + 1)) << step;
  }
}

TEST_F(GridTest, PagesScrollByWhatIsInViewAndHeadingsStay) {
  Click(2, 2);
  const int page = geometry.PageRows();
  ASSERT_GT(page, 5);
  Key(Qt::Key_PageDown);
  EXPECT_EQ(geometry.ScrolledRows(), page);
  EXPECT_EQ(table.Active().selection.front().SelStartRow, 2 + page);
  EXPECT_EQ(At(1, 1),
            (QPoint(geometry.StripWidth() + geometry.Width(1) / 2,
                    geometry.StripHeight() + geometry.RowHeight() / 2)));
  Key(Qt::Key_End);
  EXPECT_GT(geometry.ScrolledPixels(), 0);
  EXPECT_LE(geometry.Left(31) + geometry.Width(31), area.viewport()->width());
  // What is under the mouse follows.
  Click(page + 4, 31);
  EXPECT_EQ(table.Active().selection.front(), (CellRange{page + 4, 31, page + 4, 31}));
  Click(page + 4, 1);
  EXPECT_EQ(table.Active().selection.front(), (CellRange{page + 4, 1, page + 4, 1}));
}

TEST_F(GridTest, DragBeyondTheEdgeScrolls) {
  const QPoint outside(At(5, 3).x(), area.viewport()->height() + 60);
  QTest::mousePress(area.viewport(), Qt::LeftButton, {}, At(5, 3));
  QTest::mouseMove(area.viewport(), outside);
  EXPECT_TRUE(QTest::qWaitFor([this] { return geometry.ScrolledRows() > 3; }, 5000));
  QTest::mouseRelease(area.viewport(), Qt::LeftButton, {}, outside);
  const CellRange range = table.Active().selection.front();
  EXPECT_EQ(range.SelStartRow, 5);
  EXPECT_GT(range.SelEndRow, geometry.PageRows() + 3);
}

TEST_F(GridTest, HeadingsTellClicksAndCellsOnlyRightOnes) {
  table.SetActiveSheet(2);
  Click(1, 3);
  Click(0, 3);
  Click(2, 0);
  Click(2, 2);            // among the rows: a selection and no sort
  Click(1, 3, kControl);  // takes part in the selection only
  Drag(At(1, 1), At(1, 2));
  EXPECT_EQ(log, "click 1,3; click 0,3; click 2,0; ");
  log.clear();
  Click(3, 2);
  RightClick(3, 2);
  Key(Qt::Key_Up);
  Key(Qt::Key_Menu);
  Key(Qt::Key_F10, kShift);
  Key(Qt::Key_Up);
  Key(Qt::Key_Return);
  EXPECT_EQ(log, "right 3,2; right 2,2; right 2,2; click 1,2; ");
  log.clear();
  table.SetActiveSheet(1);  // only a row of the summary stands for something to chart
  RightClick(3, 2);
  Key(Qt::Key_Menu);
  EXPECT_EQ(log, "");
}

TEST_F(GridTest, RightClickKeepsASelectionThatItMeets) {
  Drag(At(1, 2), At(1, 3));
  RightClick(7, 3);
  EXPECT_EQ(Selected(), "1,2-201,3");
  RightClick(7, 4);
  EXPECT_EQ(Selected(), "7,4-7,4");
}

TEST_F(GridTest, FollowsASelectionMadeByTheProgram) {
  table.SheetAt(1).selection = {{1, 30, 201, 30}};
  table.NotifyContent(1);
  EXPECT_LE(geometry.Left(30) + geometry.Width(30), area.viewport()->width());
  Key(Qt::Key_Right, kShift);
  EXPECT_EQ(Selected(), "1,30-201,31");
  area.horizontalScrollBar()->setValue(0);
  table.SheetAt(1).selection = {{201, 31, 201, 31}};  // where importers leave it
  table.NotifyContent(1);
  EXPECT_EQ(geometry.ScrolledPixels(), 0);
  EXPECT_EQ(geometry.ScrolledRows(), 0);
}

TEST_F(GridTest, SheetsKeepTheirPlaceUntilTheyAreLoadedAnew) {
  Click(2, 3);
  area.verticalScrollBar()->setValue(40);
  table.SetActiveSheet(2);
  EXPECT_EQ(geometry.ScrolledRows(), 0);
  table.SetActiveSheet(1);
  EXPECT_EQ(geometry.ScrolledRows(), 40);
  Key(Qt::Key_Down);
  EXPECT_EQ(Selected(), "3,3-3,3");
  table.SheetAt(1).SheetName = "OTHER";
  table.NotifyContent(1);
  EXPECT_EQ(geometry.ScrolledRows(), 0);
}

TEST_F(GridTest, TabsShowEverySheetButTheSpareOne) {
  QTabBar& tabs = view.Tabs();
  const auto captions = [&tabs] {
    std::string text;
    for (int i = 0; i < tabs.count(); ++i) text += tabs.tabText(i).toStdString() + ";";
    return text;
  };
  EXPECT_EQ(captions(), "PRICES;Summary;");
  QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
  EXPECT_EQ(table.ActiveSheet(), 2);
  EXPECT_EQ(area.model()->rowCount(), 3);
  table.SheetAt(3).MaxRow = 1;
  table.SheetAt(3).SheetName = "S&P";
  table.NotifyContent(3);
  EXPECT_EQ(captions(), "PRICES;Summary;S&&P;");
  table.Reset(1);
  EXPECT_EQ(captions(), "Sheet1;");
  Key(Qt::Key_Down);  // nothing to move over
  EXPECT_EQ(Selected(), "");
}

TEST_F(GridTest, KeysNeverLeadToTheSpareSheet) {
  std::string visited;
  for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_PageUp}) {
    Key(key, kControl);
    visited += std::to_string(table.ActiveSheet());
  }
  QTest::keyClick(&view.Tabs(), Qt::Key_PageDown, kControl);
  EXPECT_EQ(visited + std::to_string(table.ActiveSheet()), "22112");
}

TEST_F(GridTest, OpensAtTheFirstPriceAndScrollsBackFromThere) {
  std::vector<float> late(200, -1.0F);
  std::fill(late.begin() + 120, late.end(), 3.5F);
  Sheet& sheet = table.SheetAt(1);
  for (int col = 2; col <= GridWorld::kCols; ++col) sheet.SetPriceColumn(col, "LATE", late);
  sheet.SheetName = "LATE";
  table.NotifyContent(1);
  EXPECT_EQ(geometry.ScrollingRows().first, 122);
  Key(Qt::Key_Up);
  EXPECT_EQ(geometry.ScrollingRows().first, 121);
}

TEST_F(GridTest, ASortedColumnBearsAnArrowThatTurns) {
  table.SetActiveSheet(2);
  const QRect heading(At(1, 3) - QPoint(40, 8), QSize(80, 16));
  const auto painted = [this, heading](int sorted_by) {
    table.SheetAt(2).SortedBy = sorted_by;
    return area.viewport()->grab(heading).toImage();
  };
  const QImage plain = painted(0);
  const QImage up = painted(3);
  EXPECT_NE(up, plain);
  EXPECT_NE(painted(-3), up);
  EXPECT_EQ(painted(2), plain) << "another column";
}

TEST_F(GridTest, WidthsAreTheSheetsAndTheMousesToChange) {
  const double twips_per_pixel = GridFonts(area.font()).Sizes().twips_per_pixel;
  table.SheetAt(1).SetColumnWidth(2, 2000);
  table.NotifyContent(1);
  EXPECT_NEAR(geometry.Width(2), 2000 / twips_per_pixel, 0.5);
  const int width = geometry.Width(3);
  const QPoint border(geometry.Left(3) + width - 1, 5);
  Drag(border, border + QPoint(30, 0));
  EXPECT_EQ(geometry.Width(3), width + 30);
  EXPECT_NEAR(table.SheetAt(1).ColumnWidth(3), (width + 30) * twips_per_pixel, 1);
  EXPECT_EQ(Selected(), "") << "a border is no heading";
  QTest::mouseDClick(
      area.viewport(), Qt::LeftButton, {}, {geometry.Left(3) + geometry.Width(3) - 1, 5});
  EXPECT_LT(geometry.Width(3), width) << "12.5 needs less than a date";
}

TEST_F(GridTest, HeadingsThatWouldFillTheViewScroll) {
  Sheet& sheet = table.SheetAt(1);
  sheet.FixedCols = 3;
  sheet.FixedRows = 100;
  sheet.SetColumnWidth(3, 9000);
  table.NotifyContent(1);
  EXPECT_EQ(geometry.FixedCols(), 2);
  EXPECT_LT(geometry.FrozenHeight(), area.viewport()->height() * 3 / 4);
  Key(Qt::Key_End, kControl);
  EXPECT_EQ(Selected(), "201,31-201,31");
  EXPECT_LT(geometry.Top(201), area.viewport()->height());
}

TEST_F(GridTest, CopiesTheSelectionAsTabbedText) {
  table.SetActiveSheet(2);
  Click(1, 1);
  Click(1, 3, kControl);
  Key(Qt::Key_C, kControl);
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(),
            "Symbol\tAnn %\nAAA\t12.50\nBBB\t-1.00\n");
}

TEST_F(GridTest, PaintsNumbersAtTheRightAndTextsAtTheLeftOnAnyPalette) {
  for (const bool is_dark : {false, true}) {
    table.SetActiveSheet(1);
    QPalette palette = area.palette();
    palette.setColor(QPalette::Base, is_dark ? QColor(30, 30, 30) : Qt::white);
    palette.setColor(QPalette::Text, is_dark ? Qt::white : Qt::black);
    area.setPalette(palette);
    const int width = geometry.Width(2) - 3;
    const auto price = Ink(5, 2);
    EXPECT_GT(price.second, width - 8);
    EXPECT_GT(price.first, width / 2);
    table.SetActiveSheet(2);
    const auto name = Ink(2, 2);
    EXPECT_LT(name.first, 8);
    EXPECT_LT(name.second, geometry.Width(2) - 6);
    EXPECT_GT(Ink(1, 3).first, 8) << "a heading stands over its numbers";
  }
}

TEST_F(GridTest, ATitleRunsOnOverItsRowAndIsLaidOutAsFarAsItShows) {
  Sheet& sheet = table.SheetAt(2);
  sheet.SetTextColumn(1, {std::string(30'000'000, 'W'), "AAA", "BBB"});
  for (const int col : {2, 3}) sheet.SetCellText(1, col, "");
  QElapsedTimer watch;
  watch.start();
  table.SetActiveSheet(2);
  EXPECT_LT(Ink(1, 2).first, 8);
  EXPECT_GT(Ink(1, 3).second, geometry.Width(3) / 2);
  const QPoint border(geometry.Left(2) - 1, 5);
  QTest::mouseDClick(area.viewport(), Qt::LeftButton, {}, border);
  EXPECT_LT(geometry.Width(1), 100) << "the column fits what stands below";
  EXPECT_LT(watch.elapsed(), 5000) << "all of it would take minutes and gigabytes";
}

TEST_F(GridTest, TellsAssistiveToolsTheCurrentCell) {
  QAccessible::setActive(true);
  Click(4, 3);
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&area);
  ASSERT_NE(spoken, nullptr);
  EXPECT_EQ(spoken->role(), QAccessible::Table);
  EXPECT_EQ(spoken->text(QAccessible::Name).toStdString(), "Sheet PRICES");
  QAccessibleInterface* cell = spoken->focusChild();
  ASSERT_NE(cell, nullptr);
  EXPECT_EQ(cell->text(QAccessible::Name).toStdString(), "12.5, F3, 01/02/1999, C4");
  QAccessible::setActive(false);
}

TEST_F(GridTest, TheTipOfAHeadingTellsWhatItMeans) {
  QHelpEvent help(QEvent::ToolTip, At(1, 3), area.viewport()->mapToGlobal(At(1, 3)));
  QApplication::sendEvent(area.viewport(), &help);
  EXPECT_EQ(QToolTip::text().left(18), "Daily prices of F3");
  QToolTip::hideText();
}

TEST_F(GridTest, ClickThatFailsIsReportedAndNotThrownIntoTheToolkit) {
  grid.Click = [](int, int) { throw ProgramEnded{}; };
  Click(1, 2);
  EXPECT_TRUE(guard.Status().has_value());
}

class GridScreen : public testing::Test, protected ScreenWorld {
 protected:
  GridScreen() {
    view_.resize(1200, 300);
    view_.show();
    LoadTrio();
    view_.Tabs().setCurrentIndex(1);
  }

  void Click(Qt::MouseButton button, int row, int col) {
    const GridGeometry& geometry = view_.Area().Geometry();
    const QPoint corner(geometry.Left(col) + 10, geometry.Top(row) + 5);
    QTest::mouseClick(view_.Area().viewport(), button, {}, corner);
  }

  std::string SummarySymbols() const {
    std::string symbols;
    for (int row = 1; row <= 4; ++row) symbols += state.table.SheetAt(2).CellText(row, 1) + " ";
    return symbols;
  }

  EventGuard guard_;
  GridView view_{screens.frmData.F1Book1, state.table, guard_, nullptr};
};

TEST_F(GridScreen, ClicksOnASummaryHeadingSortUpAndDownAndARightClickChartsItsFund) {
  EXPECT_EQ(view_.Tabs().count(), 2);
  Click(Qt::LeftButton, 1, 3);  // AAA quadruples, BBB falls, CCC is worth 11 times as much
  EXPECT_EQ(SummarySymbols(), "Symbol BBB AAA CCC ");
  Click(Qt::LeftButton, 1, 3);
  EXPECT_EQ(SummarySymbols(), "Symbol CCC AAA BBB ");
  Click(Qt::LeftButton, 2, 1);  // a fund's own cell
  EXPECT_EQ(SummarySymbols(), "Symbol CCC AAA BBB ");
  Click(Qt::RightButton, 2, 2);
  EXPECT_EQ(state.selection.SelectedColumns, std::vector<std::int16_t>{4});
  EXPECT_EQ(state.table.ActiveSheet(), 2);
  EXPECT_EQ(view_.Tabs().currentIndex(), 1);
}

TEST_F(GridScreen, ColumnsChosenWithTheKeyboardAreCharted) {
  view_.Tabs().setCurrentIndex(0);
  QTest::keyClick(&view_.Area(), Qt::Key_Right);
  QTest::keyClick(&view_.Area(), Qt::Key_Space, Qt::ControlModifier);
  QTest::keyClick(&view_.Area(), Qt::Key_Right, Qt::ShiftModifier);
  screens.frmMain.mnuFileGraph_Click();
  EXPECT_EQ(state.selection.SelectedColumns, (std::vector<std::int16_t>{3, 4}));
}

}  // namespace
}  // namespace vistaplot::test
