// The cells that the user has chosen on one sheet, and the gestures that choose them. Rows and
// columns count from 1; knows no toolkit.
#pragma once

#include <string>
#include <vector>

#include "table/sheet.h"

namespace vistaplot {

struct GridCell {
  int row = 1;
  int col = 1;

  bool operator==(const GridCell&) const = default;
};

/// What one click takes.
enum class GridUnit { kCell, kColumn, kRow, kSheet };

class GridSelection {
 public:
  /// Columns and rows reach this far; the current cell is kept inside.
  void SetExtent(int rows, int cols);

  /// Takes over a selection that was made elsewhere; its last range is the one that can be
  /// extended. The current cell is that range's last one (of whole columns, the topmost there).
  void Adopt(const std::vector<CellRange>& ranges);

  const std::vector<CellRange>& Ranges() const { return ranges_; }

  /// The cell that the keyboard moves: the moving corner of the last range.
  GridCell Current() const { return current_; }

  /// Makes a cell current without selecting it; extending starts a further range there.
  void Place(GridCell cell);

  /// The unit at `cell` becomes the only range.
  void Start(GridUnit unit, GridCell cell);

  /// The unit at `cell` becomes a further range, in place of those inside it; where it was selected
  /// already it is taken out.
  void Toggle(GridUnit unit, GridCell cell);

  /// The last range reaches from where it was started to `cell`, in its own units.
  void ExtendTo(GridCell cell);

  /// Widens the last range to whole columns or rows, or to the sheet.
  void Widen(GridUnit unit);

  bool Contains(GridCell cell) const;

 private:
  CellRange UnitAt(GridUnit unit, GridCell cell) const;
  GridCell Inside(GridCell cell) const;

  int rows_ = 0;
  int cols_ = 0;
  std::vector<CellRange> ranges_;
  GridUnit unit_ = GridUnit::kCell;
  bool is_open_ = false;  ///< the last range was started at the anchor and can be extended
  GridCell anchor_;
  GridCell current_;
};

}  // namespace vistaplot
