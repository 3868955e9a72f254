// What contour and surface charts share: the cells of the grid in bands, the marks of the best
// ones, and what is read off at a cell.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "charts/kinds/cell_grid.h"
#include "charts/kinds/draw_context.h"
#include "charts/kinds/legend_mark.h"
#include "charts/kinds/read_out.h"
#include "charts/kinds/value_bands.h"

namespace vistaplot {

/// The cells of a view as they are drawn.
struct ParameterCells {
  explicit ParameterCells(const ChartView& view);

  CellGrid grid;
  ValueBands bands;
  std::optional<GridCell> best;     ///< of equal cells the first case of the file
  std::optional<GridCell> plateau;  ///< the cell with the best neighbourhood
};

/// The numbers that stand at columns and rows: their labels where a case has set them, else what
/// the grid's step makes of the neighbours'. `number` from 1.
std::string ColumnNumber(const ChartView& view, int number);
std::string RowNumber(const ChartView& view, int number);

/// "12.5 – 15" for each band, the highest first, then the two marks.
std::vector<LegendMark> ParameterLegend(const ChartView& view, const ChartTheme& theme);

/// The mark of the best cell (a star) or of the best plateau (a diamond), `size` wide.
FillShape CellMark(bool best, PicturePoint at, double size);

/// The two parameters as heading; value, rank and plateau of a filled cell as entries.
ReadOut ReadCell(const ChartView& view, int row, int column, const ChartTheme& theme);

}  // namespace vistaplot
