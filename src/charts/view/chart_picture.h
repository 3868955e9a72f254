// A chart as it is drawn: lines, shapes and texts in paint order, and where its points lie. Plain
// values in picture units (x to the right, y downwards); one unit is a pixel of a plain display.
// A skin or an export replays the items; it decides nothing.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace vistaplot {

struct PicturePoint {
  double x = 0.0;
  double y = 0.0;
  bool operator==(const PicturePoint&) const = default;
};

struct PictureBox {
  double left = 0.0;
  double top = 0.0;
  double right = 0.0;
  double bottom = 0.0;

  double Width() const { return right - left; }
  double Height() const { return bottom - top; }
  bool Contains(PicturePoint p) const {
    return p.x >= left && p.x <= right && p.y >= top && p.y <= bottom;
  }
  bool Overlaps(const PictureBox& other) const {
    return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
  }
};

struct PictureColor {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  std::uint8_t alpha = 255;
  bool operator==(const PictureColor&) const = default;
};

/// A filled box without an outline, sharp at its edges; guide lines and ticks are thin ones.
struct FillBox {
  PictureBox box;
  PictureColor color;
};

/// Lengths drawn and left out in turn along a line, beginning with one that is drawn.
struct LineDash {
  double on = 0.0;  ///< 0: unbroken
  double off = 0.0;
  bool operator==(const LineDash&) const = default;
};

/// One line through its points.
struct StrokeLine {
  std::vector<PicturePoint> points;  ///< at least two
  PictureColor color;
  double width = 1.0;
  LineDash dash{};
};

/// A closed shape; width 0 leaves its outline away, fill.alpha 0 its inside.
struct FillShape {
  std::vector<PicturePoint> points;
  PictureColor fill;
  PictureColor outline;
  double width = 0.0;
};

/// A filled area of several closed rings without an outline; what rings wind around once is inside,
/// so that a ring of the other direction leaves a hole.
struct FillRegion {
  std::vector<std::vector<PicturePoint>> rings;
  PictureColor color;
};

/// One face of a body: four corners, in order around it.
struct PictureFacet {
  std::array<PicturePoint, 4> corners;
  PictureColor color;
};

/// Many faces, those behind first; later ones hide earlier ones.
struct FillFacets {
  std::vector<PictureFacet> facets;
  double outline = 1.0;  ///< light of the faces' edges, as part of their colour's; 1: no edges
};

enum class MarkerShape { kDot, kSquare, kTriangle, kDiamond, kCircle, kCross, kPlus, kStar };

/// The same marker at many places; places of one pixel occur once.
struct StampMarkers {
  MarkerShape shape = MarkerShape::kDot;
  double size = 6.0;   ///< width and height
  double width = 1.0;  ///< of the strokes of circle, cross and plus
  PictureColor color;
  std::vector<PicturePoint> centers;
};

enum class TextAlign { kLeft, kCenter, kRight };

struct DrawText {
  std::string text;  ///< UTF-8, one line
  PicturePoint at;   ///< on the base line, at the end or middle that `align` names
  TextAlign align = TextAlign::kLeft;
  int pixel_size = 11;
  bool bold = false;
  bool upwards = false;  ///< reads from bottom to top
  PictureColor color;
};

/// Everything up to the next SetClip is cut at `box`.
struct SetClip {
  PictureBox box;
};

using PictureItem = std::variant<FillBox,
                                 StrokeLine,
                                 FillShape,
                                 FillRegion,
                                 FillFacets,
                                 StampMarkers,
                                 DrawText,
                                 SetClip>;

/// Where values lie: positions (a row number, or the X value of an XY chart) from left to right,
/// values from bottom to top.
struct PlotScale {
  PictureBox box;  ///< the corners of the two ranges
  double first_position = 1.0;
  double last_position = 2.0;
  double lowest = 0.0;
  double highest = 1.0;

  double X(double position) const {
    return box.left + (position - first_position) * box.Width() / (last_position - first_position);
  }
  double Y(double value) const {
    return box.bottom - (value - lowest) * box.Height() / (highest - lowest);
  }
};

/// A shape that stands for a point where a place alone does not tell (a candle, a cell).
struct HitRegion {
  PictureBox box;
  int series = 0;
  int point = 0;
};

/// What a click means.
struct ChartHit {
  int series = 0;  ///< from 1; in an XY chart a series is a pair of columns
  int point = 0;   ///< row, from 1
};

struct ChartPicture {
  double width = 0.0;
  double height = 0.0;
  PictureColor background;
  PictureBox plot;    ///< guide lines, their labels and the data
  PictureBox legend;  ///< empty when there is none
  PlotScale scale;
  std::vector<PictureItem> items;  ///< first painted first
  std::vector<HitRegion> regions;  ///< last painted last

  /// Adds an item above the others.
  template <class Item>
  void Add(Item item) {
    items.emplace_back(std::in_place_type<Item>, std::move(item));
  }
};

}  // namespace vistaplot
