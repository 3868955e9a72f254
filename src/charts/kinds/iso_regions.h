// Where the values of a grid of cells reach given levels: the regions at or above each level as
// closed rings, and their borders as lines.
//
// Values lie at the crossings of rows and columns; between them they are interpolated linearly
// along the sides of each square of four cells. A square whose diagonal corners reach the level
// while the other two do not is joined or parted by the mean of its corners (marching squares;
// Lorensen and Cline 1987, with the saddle rule of Wyvill et al. 1986). A square with an empty
// corner belongs to no region.
#pragma once

#include <vector>

#include "charts/kinds/cell_grid.h"
#include "charts/view/chart_picture.h"

namespace vistaplot {

/// In grid units: x is a column number, y a row number, both from 1 and with fractions.
using GridLine = std::vector<PicturePoint>;

struct IsoRegion {
  /// Closed rings, holes included; the region is where they wind around other than 0 times.
  std::vector<GridLine> rings;
  /// The parts of the rings along which the value is the level: without the edge of the filled
  /// squares.
  std::vector<GridLine> lines;
};

/// The region at or above each of `levels` (ascending), one entry a level.
std::vector<IsoRegion> TraceRegions(const CellGrid& grid, const std::vector<double>& levels);

/// The squares that have a value at each corner, as rings.
std::vector<GridLine> TraceFilledSquares(const CellGrid& grid);

}  // namespace vistaplot
