// Where the cells of a sheet stand in the grid's area, in logical pixels: a strip of column letters
// on top, a strip of row numbers at the left, then the heading rows and columns, which stay, and
// the cells that scroll. Rows are all of one height. Rows and columns count from 1; 0 is a strip.
#pragma once

#include <QRect>
#include <QSize>
#include <optional>
#include <vector>

#include "controls/form_host.h"
#include "table/sheet.h"
#include "ui/grid/grid_selection.h"

namespace vistaplot {

/// Sizes that follow from the font.
struct GridSizes {
  int row_height = 20;
  int digit_width = 8;
  int default_width = 80;  ///< of a column whose width is not set
  /// Column widths are made for digits of 110 twips; wider ones get wider columns.
  double twips_per_pixel = static_cast<double>(kTwipsPerPixel);
};

/// First to last line, both shown; empty when last < first.
struct GridSpan {
  int first = 1;
  int last = 0;
};

class GridGeometry {
 public:
  /// Takes the extent, the headings and the column widths of a sheet.
  void Measure(const Sheet& sheet, const GridSizes& sizes);
  void SetView(QSize view);

  /// Scrolled by `rows` whole rows and `pixels` pixels; brought into what there is.
  void ScrollTo(int rows, int pixels);

  int Rows() const { return rows_; }
  int Cols() const { return cols_; }
  /// Headings that stay; fewer than the sheet has where they would fill most of the view.
  int FixedRows() const { return fixed_rows_; }
  int FixedCols() const { return fixed_cols_; }
  int RowHeight() const { return sizes_.row_height; }
  int StripWidth() const { return strip_width_; }
  int StripHeight() const { return sizes_.row_height; }
  QSize View() const { return view_; }

  /// Right and lower edge of what stays.
  int FrozenWidth() const;
  int FrozenHeight() const;

  int ScrolledRows() const { return scrolled_rows_; }
  int ScrolledPixels() const { return scrolled_pixels_; }
  int MostScrolledRows() const;
  int MostScrolledPixels() const;
  int PageRows() const;  ///< rows that scroll and are wholly in view, at least 1

  GridSpan ScrollingRows() const;  ///< of the rows that scroll, those in view
  GridSpan ScrollingCols() const;

  int Left(int col) const;
  int Width(int col) const;
  int Top(int row) const;
  QRect Place(const CellRange& range) const;

  /// The cell at a point; 0 for a strip, one behind the last where there is none.
  GridCell CellAt(QPoint point) const;

  /// The column whose right border is under a point of the letter strip.
  std::optional<int> BorderAt(QPoint point) const;

  /// The scroll position nearest to the present one at which a cell is in view.
  QPoint ScrollToShow(GridCell cell) const;

 private:
  int Edge(int col) const { return edges_[static_cast<std::size_t>(col)]; }
  int ColumnAt(int x) const;
  int RowAt(int y) const;
  void FreezeHeadings();

  GridSizes sizes_;
  QSize view_;
  int rows_ = 0;
  int cols_ = 0;
  int sheet_fixed_rows_ = 0;
  int sheet_fixed_cols_ = 0;
  int fixed_rows_ = 0;
  int fixed_cols_ = 0;
  int strip_width_ = 0;
  int scrolled_rows_ = 0;
  int scrolled_pixels_ = 0;
  std::vector<int> edges_{0};  ///< right edge of column c at index c, from column 1's left edge
};

}  // namespace vistaplot
