// A grid over a table of made-up prices whose clicks are written down, for tests.
#pragma once

#include <QApplication>
#include <QTest>
#include <algorithm>
#include <string>
#include <vector>

#include "base/text.h"
#include "ui/controls/widgets.h"
#include "ui/grid/grid_view.h"

namespace vistaplot::test {

/// "r,c-r,c" of each range.
inline std::string Shown(const std::vector<CellRange>& ranges) {
  std::string text;
  for (const CellRange& range : ranges) {
    if (!text.empty()) text += ' ';
    text += std::to_string(range.SelStartRow) + "," + std::to_string(range.SelStartCol) + "-" +
            std::to_string(range.SelEndRow) + "," + std::to_string(range.SelEndCol);
  }
  return text;
}

/// One line a row, cells separated by commas.
inline Sheet SheetOf(const std::vector<std::string>& lines) {
  Sheet sheet;
  for (const std::string& line : lines) {
    ++sheet.MaxRow;
    const auto cells = Split(line, ',');
    for (std::size_t i = 0; i < cells.size(); ++i) {
      sheet.SetCellText(sheet.MaxRow, static_cast<int>(i) + 1, cells[i]);
    }
    sheet.MaxCol = std::max(sheet.MaxCol, static_cast<int>(cells.size()));
  }
  return sheet;
}

class GridWorld {
 public:
  static constexpr int kRows = 201;
  static constexpr int kCols = 31;

  /// Sheet 1 "PRICES": dates and 30 issues of 200 days; sheet 2 "Summary"; sheet 3 spare.
  GridWorld() {
    table.SetSheetCount(3);
    FillPrices(table.SheetAt(1));
    Sheet& summary = table.SheetAt(2);
    summary = SheetOf({"Symbol,Name,Ann %", "AAA,First fund,12.50", "BBB,Second fund,-1.00"});
    summary.SheetName = "Summary";
    summary.FixedRows = 1;
    table.NotifySheets();
    grid.Click = [this](int row, int col) { Log("click", row, col); };
    grid.RClick = [this](int row, int col) { Log("right", row, col); };
    view.resize(600, 400);
    view.show();
    area.setFocus();
    QApplication::setActiveWindow(&view);
  }

  /// Where a cell is in view; row or column 0 is a strip.
  QPoint At(int row, int col) const {
    const int x = col == 0 ? 5 : geometry.Left(col) + geometry.Width(col) / 2;
    const int y = row == 0 ? 5 : geometry.Top(row) + geometry.RowHeight() / 2;
    return {x, y};
  }
  void Click(int row, int col, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(area.viewport(), Qt::LeftButton, modifiers, At(row, col));
  }
  void Drag(QPoint from, QPoint to) {
    QTest::mousePress(area.viewport(), Qt::LeftButton, {}, from);
    QTest::mouseMove(area.viewport(), to);
    QTest::mouseRelease(area.viewport(), Qt::LeftButton, {}, to);
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&area, key, modifiers);
  }
  std::string Selected() const { return Shown(table.Active().selection); }

  DataTable table;
  Grid grid;
  EventGuard guard;
  std::string log;
  GridView view{grid, table, guard, nullptr};
  GridArea& area = view.Area();
  const GridGeometry& geometry = area.Geometry();

 private:
  static void FillPrices(Sheet& sheet) {
    sheet.SheetName = "PRICES";
    for (int row = 2; row <= kRows; ++row) sheet.SetCellText(row, 1, "01/02/1999");
    for (int col = 2; col <= kCols; ++col) {
      sheet.SetPriceColumn(
          col, std::string(1, 'F') + std::to_string(col), std::vector<float>(200, 12.5F));
    }
    sheet.MaxRow = kRows;
    sheet.MaxCol = kCols;
    sheet.FixedRows = 1;
    sheet.FixedCols = 1;
  }
  void Log(const char* what, int row, int col) {
    log += std::string(what) + " " + std::to_string(row) + "," + std::to_string(col) + "; ";
  }
};

}  // namespace vistaplot::test
