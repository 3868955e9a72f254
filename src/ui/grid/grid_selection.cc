#include "ui/grid/grid_selection.h"

#include <algorithm>

namespace vistaplot {

namespace {

CellRange Around(const CellRange& a, const CellRange& b) {
  return {.SelStartRow = std::min(a.SelStartRow, b.SelStartRow),
          .SelStartCol = std::min(a.SelStartCol, b.SelStartCol),
          .SelEndRow = std::max(a.SelEndRow, b.SelEndRow),
          .SelEndCol = std::max(a.SelEndCol, b.SelEndCol)};
}

// What is left of a range without `hole`: the parts above, left, right and below.
void AppendRest(const CellRange& range, const CellRange& hole, std::vector<CellRange>& rest) {
  const CellRange gone = Common(range, hole);
  if (IsEmpty(gone)) {
    rest.push_back(range);
    return;
  }
  CellRange above = range;
  above.SelEndRow = gone.SelStartRow - 1;
  CellRange left = gone;
  left.SelStartCol = range.SelStartCol;
  left.SelEndCol = gone.SelStartCol - 1;
  CellRange right = gone;
  right.SelStartCol = gone.SelEndCol + 1;
  right.SelEndCol = range.SelEndCol;
  CellRange below = range;
  below.SelStartRow = gone.SelEndRow + 1;
  for (const CellRange& part : {above, left, right, below}) {
    if (!IsEmpty(part)) rest.push_back(part);
  }
}

bool AnyHolds(const std::vector<CellRange>& ranges, GridCell cell) {
  return std::any_of(ranges.begin(), ranges.end(), [cell](const CellRange& range) {
    return Holds(range, cell.row, cell.col);
  });
}

}  // namespace

void GridSelection::SetExtent(int rows, int cols) {
  rows_ = rows;
  cols_ = cols;
  anchor_ = Inside(anchor_);
  current_ = Inside(current_);
}

void GridSelection::Adopt(const std::vector<CellRange>& ranges) {
  ranges_ = ranges;
  unit_ = GridUnit::kCell;
  is_open_ = !ranges.empty();
  if (ranges.empty()) return;
  const CellRange& last = ranges.back();
  anchor_ = Inside({last.SelStartRow, last.SelStartCol});
  current_ = Inside({last.SelEndRow, last.SelEndCol});
  if (last.SelStartRow == 1 && last.SelEndRow >= rows_ && rows_ > 1) {
    unit_ = GridUnit::kColumn;
    current_.row = 1;
  } else if (last.SelStartCol == 1 && last.SelEndCol >= cols_ && cols_ > 1) {
    unit_ = GridUnit::kRow;
    current_.col = 1;
  }
}

void GridSelection::Place(GridCell cell) {
  current_ = Inside(cell);
  anchor_ = current_;
  unit_ = GridUnit::kCell;
  is_open_ = false;
}

void GridSelection::Start(GridUnit unit, GridCell cell) {
  ranges_.clear();
  Toggle(unit, cell);
}

void GridSelection::Toggle(GridUnit unit, GridCell cell) {
  Place(cell);
  unit_ = unit;
  const CellRange taken = UnitAt(unit, current_);
  const auto holding = std::find_if(ranges_.begin(), ranges_.end(), [&](const CellRange& range) {
    return Common(range, taken) == taken;
  });
  if (holding == ranges_.end()) {
    std::erase_if(ranges_, [&](const CellRange& range) { return Common(range, taken) == range; });
    ranges_.push_back(taken);
    is_open_ = true;
    return;
  }
  std::vector<CellRange> rest;
  for (const CellRange& range : ranges_) AppendRest(range, taken, rest);
  ranges_ = std::move(rest);
}

void GridSelection::ExtendTo(GridCell cell) {
  current_ = Inside(cell);
  if (!is_open_) ranges_.emplace_back();
  is_open_ = true;
  ranges_.back() = Around(UnitAt(unit_, anchor_), UnitAt(unit_, current_));
}

void GridSelection::Widen(GridUnit unit) {
  unit_ = unit;
  if (unit == GridUnit::kSheet) {
    ranges_.clear();
    is_open_ = false;
  }
  ExtendTo(current_);
}

bool GridSelection::Contains(GridCell cell) const {
  return AnyHolds(ranges_, cell);
}

CellRange GridSelection::UnitAt(GridUnit unit, GridCell cell) const {
  const bool whole_column = unit == GridUnit::kColumn || unit == GridUnit::kSheet;
  const bool whole_row = unit == GridUnit::kRow || unit == GridUnit::kSheet;
  return {.SelStartRow = whole_column ? 1 : cell.row,
          .SelStartCol = whole_row ? 1 : cell.col,
          .SelEndRow = whole_column ? rows_ : cell.row,
          .SelEndCol = whole_row ? cols_ : cell.col};
}

GridCell GridSelection::Inside(GridCell cell) const {
  return {std::clamp(cell.row, 1, std::max(rows_, 1)), std::clamp(cell.col, 1, std::max(cols_, 1))};
}

}  // namespace vistaplot
