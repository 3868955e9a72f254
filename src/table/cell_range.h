// Rectangles of cells. Rows and columns count from 1.
#pragma once

#include <algorithm>

namespace vistaplot {

/// A rectangle of cells, bounds included.
struct CellRange {
  int SelStartRow = 1;
  int SelStartCol = 1;
  int SelEndRow = 1;
  int SelEndCol = 1;

  bool operator==(const CellRange&) const = default;
};

inline bool IsEmpty(const CellRange& range) {
  return range.SelStartRow > range.SelEndRow || range.SelStartCol > range.SelEndCol;
}

inline bool Holds(const CellRange& range, int row, int col) {
  return row >= range.SelStartRow && row <= range.SelEndRow && col >= range.SelStartCol &&
         col <= range.SelEndCol;
}

/// The cells that lie in both; empty when there are none.
inline CellRange Common(const CellRange& a, const CellRange& b) {
  return {.SelStartRow = std::max(a.SelStartRow, b.SelStartRow),
          .SelStartCol = std::max(a.SelStartCol, b.SelStartCol),
          .SelEndRow = std::min(a.SelEndRow, b.SelEndRow),
          .SelEndCol = std::min(a.SelEndCol, b.SelEndCol)};
}

}  // namespace vistaplot
