// Paints what of a sheet is in view: the cells with the selection, the headings that stay, the
// strips of column letters and row numbers. Reads only the cells that it paints.
#pragma once

#include <QFont>
#include <QPainter>
#include <QPalette>
#include <QString>
#include <string>
#include <vector>

#include "ui/grid/grid_geometry.h"
#include "ui/grid/grid_selection.h"
#include "ui/grid/grid_text.h"

namespace vistaplot {

/// "A" to "Z", "AA", ... for columns 1, 2, ...
QString ColumnLetters(int col);

/// True for a text that is a number as a whole.
bool IsNumberCell(std::string_view text);

/// The fonts of a grid, measured once.
struct GridFonts {
  explicit GridFonts(const QFont& font);

  GridSizes Sizes() const;

  GridText plain;
  GridText heading;
};

/// The most places behind the decimal point met so far in each column (column c at index c - 1),
/// see PlacesFromPoint: numbers stand on their points, and what is scrolled into view can only
/// widen the room behind it.
using ColumnPlaces = std::vector<int>;

struct GridScene {
  const Sheet& sheet;
  const GridGeometry& geometry;
  const GridSelection& selection;
  ColumnPlaces& places;
  QPalette palette;
  bool has_focus = false;
};

void PaintGrid(QPainter& painter, const GridScene& scene, GridFonts& fonts);

}  // namespace vistaplot
