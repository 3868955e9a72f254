// What the builder of a chart over two parameters states of its grid, beside the cells themselves.
#pragma once

#include <cstddef>
#include <vector>

namespace vistaplot {

/// From where a surface is looked at, in degrees: `azimuth` around the box, counter-clockwise from
/// the X axis; `elevation` above its base.
struct SurfaceTurn {
  double azimuth = 225.0;
  double elevation = 30.0;
  bool operator==(const SurfaceTurn&) const = default;
};

struct GridParameters {
  double first_x = 1.0;  ///< the parameter of column 1, the smallest
  double step_x = 1.0;   ///< from column to column
  double first_y = 1.0;  ///< the parameter of row 1, the largest
  double step_y = 1.0;   ///< from row down to row
  int x_column = 0;      ///< of the sheet, from 1; 0: unknown
  int y_column = 0;
  bool lower_is_better = false;  ///< a draw-down, an ulcer index

  /// The sheet's row of each cell, grid row by grid row; 0 for an empty cell. May be shorter.
  std::vector<int> cases;

  SurfaceTurn turn;
  bool turning = false;  ///< large surfaces are drawn coarser, to follow the hand

  /// The sheet's row of a cell of a grid of `columns` columns; 0 where none is known.
  int CaseAt(int columns, int row, int column) const {
    const auto index = static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(columns) +
                       static_cast<std::size_t>(column - 1);
    return row >= 1 && column >= 1 && column <= columns && index < cases.size() ? cases[index] : 0;
  }
};

}  // namespace vistaplot
