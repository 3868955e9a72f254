// A surface over the grid of two parameters as it is seen from one side: where each point of the
// box around it lies on the picture, and the faces of the surface, those behind first.
//
// Orthographic: parallels stay parallel and no part is larger for being near. The box's base is a
// square whatever the parameters' ranges are; its height follows the values' bands.
#pragma once

#include <array>

#include "charts/kinds/cell_grid.h"
#include "charts/kinds/value_bands.h"
#include "charts/view/chart_facts.h"
#include "charts/view/chart_picture.h"

namespace vistaplot {

/// `turn` moved by degrees; it may go round, and tilts from just above the base to straight above.
SurfaceTurn TurnedBy(SurfaceTurn turn, double azimuth, double elevation);

/// A point of the box: x and y from -1 to 1 along the parameters, z from 0 (base) to 1 (top).
struct BoxPoint {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
};

class SurfaceScene {
 public:
  /// Fits the box into `room` at any azimuth, so that a turn does not change its size.
  SurfaceScene(const CellGrid& grid, const ValueBands& bands, SurfaceTurn turn, PictureBox room);

  PicturePoint Project(const BoxPoint& point) const;

  /// How near to the reader a point is; larger is nearer.
  double Nearness(const BoxPoint& point) const;

  /// A place of the grid, with fractions, at a value, above the base by a gap at least, so that the
  /// base can be seen below; row 1 stands at y = 1.
  BoxPoint PointAt(double row, double column, double value) const;
  BoxPoint OnBase(double row, double column) const;

  /// Whether a part of the surface stands before a point, seen by the reader.
  bool Hidden(const BoxPoint& point) const;

  /// The corner of the base nearest to the reader: x and y are -1 or 1, z is 0.
  BoxPoint NearestCorner() const;

  /// Pixels from one column to the next, as wide as they are seen anywhere around.
  double FacetWidth() const;

  /// The faces between each `stride` rows and columns, those behind first, coloured by height and
  /// shaded by a light from the upper left of the reader; none where a corner is empty. A filled
  /// cell that no face can reach stands on the base as a pin.
  FillFacets Facets(int stride, bool dark) const;

 private:
  double HeightAt(double x, double y) const;
  void AddPin(GridCell cell, PictureColor color, FillFacets& drawn) const;
  PictureColor FacetColor(const std::array<BoxPoint, 4>& corners, const PictureColor& full) const;

  const CellGrid& grid_;
  double bottom_;
  double top_;
  double radius_ = 0.0;  // pixels of one unit of the box
  PicturePoint middle_;
  double right_x_, right_y_;  // unit vector to the right of the reader, on the base
  double near_x_, near_y_;    // and towards the reader
  double rise_;               // cosine and sine of the elevation
  double tilt_;
};

}  // namespace vistaplot
