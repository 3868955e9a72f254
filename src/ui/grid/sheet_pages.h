// A sheet on paper: its columns as wide as their texts, rows and columns cut into pages. Heading
// rows stand on every page, heading columns ahead of every block of columns.
#pragma once

#include <QFont>
#include <QPainter>
#include <QSizeF>
#include <QString>
#include <string>
#include <vector>

#include "table/sheet.h"

namespace vistaplot {

/// What stands on one page besides the headings; numbers from 1, ends included.
struct SheetPage {
  int first_row = 1;
  int last_row = 0;
  int first_col = 1;
  int last_col = 0;
};

class SheetPages {
 public:
  /// Cuts `sheet`, which outlives the pages, for a page of that size: all rows of the first block
  /// of columns, then those of the next. The letters shrink, to no less than 0.7 of `font`, where
  /// all columns then stand side by side, and further only where a single column is wider than the
  /// page; no cell is cut. `font` and sizes in the device's own units; the text widths are those on
  /// `device`. A sheet without cells has no page.
  SheetPages(
      const Sheet& sheet, const QFont& font, QPaintDevice* device, QSizeF page, QString title);

  /// The width that all columns take side by side in the font asked for.
  double NaturalWidth() const { return natural_width_; }

  /// The width of column `col` (from 1), the gaps to its neighbours included.
  double ColumnWidth(int col) const { return widths_[static_cast<std::size_t>(col) - 1]; }

  const std::vector<SheetPage>& Pages() const { return pages_; }

  /// Paints page `index` (from 0) with the title above and the day's date and "Page 2 of 7" below
  /// it; the
  /// painter's origin is the page's upper left corner.
  void Paint(QPainter& painter, std::size_t index) const;

 private:
  void UseFont(const QFont& font);
  void FitToWidth();
  void MeasureColumns();
  double HeadingWidth() const;
  std::vector<SheetPage> BlocksWithin(double width) const;
  std::vector<SheetPage> ColumnBlocks() const;
  void CutPages();
  void PaintRow(QPainter& painter, const SheetPage& page, int row, double top) const;
  void PaintTitle(QPainter& painter, const std::string& title, QPointF at) const;
  double PaintCells(QPainter& painter, int row, int first, int last, QPointF at) const;

  const Sheet& sheet_;
  QString title_;
  QFont font_;
  QFont bold_;
  QPaintDevice* device_;
  QSizeF page_;
  double natural_width_ = 0.0;
  double line_ = 1.0;           ///< height of a row
  double gap_ = 0.0;            ///< on each side of a column's texts
  std::vector<double> widths_;  ///< column c at index c - 1, gap included
  std::vector<bool> numbers_;   ///< columns of numbers
  std::vector<SheetPage> pages_;
};

}  // namespace vistaplot
