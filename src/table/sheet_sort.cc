#include "table/sheet_sort.h"

#include <algorithm>

#include "base/text.h"

namespace vistaplot {

namespace {

CellRange SelectionOf(const Sheet& sheet) {
  if (!sheet.selection.empty()) return sheet.selection.front();
  return {.SelStartRow = sheet.MaxRow,
          .SelStartCol = sheet.MaxCol,
          .SelEndRow = sheet.MaxRow,
          .SelEndCol = sheet.MaxCol};
}

std::string NameOf(const Sheet& sheet, int col, bool by_second_row) {
  const auto heading = [&](int row) { return std::string(TrimBlanks(sheet.CellText(row, col))); };
  if (by_second_row) return heading(2);
  if (sheet.FixedRows < 2) return heading(1);
  return heading(1) + " " + heading(2);
}

}  // namespace

void SelectForSort(Sheet& sheet) {
  CellRange range = SelectionOf(sheet);
  if (range.SelStartRow != sheet.MaxRow || range.SelStartCol != sheet.MaxCol) return;
  range.SelStartRow = sheet.FixedRows + 1;
  range.SelStartCol = 1;
  sheet.Select(range);
}

CellRange SortBlock(const Sheet& sheet) {
  CellRange block = SelectionOf(sheet);
  block.SelStartRow = std::max(block.SelStartRow, sheet.FixedRows + 1);
  block.SelEndRow = std::min(block.SelEndRow, sheet.MaxRow);
  block.SelEndCol = std::min(block.SelEndCol, sheet.MaxCol);
  return block;
}

std::vector<std::string> SortKeyNames(const Sheet& sheet, bool by_second_row) {
  const CellRange selection = SelectionOf(sheet);
  std::vector<std::string> names;
  for (int col = selection.SelStartCol; col <= std::min(selection.SelEndCol, sheet.MaxCol); ++col) {
    names.push_back(NameOf(sheet, col, by_second_row));
  }
  return names;
}

}  // namespace vistaplot
