#include "ui/chart/chart_canvas.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainterPath>
#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "charts/kinds/facet_raster.h"
#include "charts/view/palette.h"

namespace vistaplot {
namespace {

QRectF ToQt(const PictureBox& box) {
  return {box.left, box.top, box.Width(), box.Height()};
}

void CopyTo(QPolygonF& polygon, const std::vector<PicturePoint>& points) {
  polygon.resize(static_cast<qsizetype>(points.size()));
  QPointF* corner = polygon.data();
  for (const PicturePoint& point : points) *corner++ = QPointF(point.x, point.y);
}

QString ToQt(const std::string& text) {
  return QString::fromStdString(text);
}

QPolygonF Star(double radius) {
  constexpr int kTips = 5;
  QPolygonF star;
  for (int corner = 0; corner < 2 * kTips; ++corner) {
    const double angle = std::numbers::pi * (corner / static_cast<double>(kTips) - 0.5);
    const double reach = corner % 2 == 0 ? radius : radius * 0.42;
    star.append(QPointF(std::cos(angle), std::sin(angle)) * reach);
  }
  return star;
}

// The marker's outline about (0, 0) and whether it is filled or stroked.
struct MarkerPath {
  QPainterPath path;
  bool filled = true;
};

QPainterPath Lines(std::initializer_list<QLineF> lines) {
  QPainterPath path;
  for (const QLineF& line : lines) {
    path.moveTo(line.p1());
    path.lineTo(line.p2());
  }
  return path;
}

MarkerPath PathOf(MarkerShape shape, double size) {
  const double r = size / 2.0;
  QPainterPath path;
  switch (shape) {
    case MarkerShape::kDot:
      path.addEllipse(QPointF(), r, r);
      break;
    case MarkerShape::kSquare:
      path.addRect(QRectF(-0.9 * r, -0.9 * r, 1.8 * r, 1.8 * r));
      break;
    case MarkerShape::kTriangle:
      path.addPolygon(QPolygonF({{0.0, -1.1 * r}, {1.1 * r, 0.9 * r}, {-1.1 * r, 0.9 * r}}));
      break;
    case MarkerShape::kDiamond:
      path.addPolygon(
          QPolygonF({{0.0, -1.2 * r}, {1.2 * r, 0.0}, {0.0, 1.2 * r}, {-1.2 * r, 0.0}}));
      break;
    case MarkerShape::kStar:
      path.addPolygon(Star(1.15 * r));
      break;
    case MarkerShape::kCircle:
      path.addEllipse(QPointF(), r, r);
      return {path, false};
    case MarkerShape::kCross:
      return {Lines({{-r, -r, r, r}, {-r, r, r, -r}}), false};
    case MarkerShape::kPlus:
      return {Lines({{-r, 0.0, r, 0.0}, {0.0, -r, 0.0, r}}), false};
  }
  path.closeSubpath();
  return {path, true};
}

void PrepareFor(QPainter& painter, const MarkerPath& marker, const StampMarkers& item) {
  painter.setRenderHint(QPainter::Antialiasing, true);
  if (marker.filled) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QtColor(item.color));
  } else {
    painter.setPen(QPen(QtColor(item.color), item.width, Qt::SolidLine, Qt::RoundCap));
    painter.setBrush(Qt::NoBrush);
  }
}

// One marker with its centre in the middle of the image; an odd number of device pixels wide, so
// that the centre falls on a pixel's middle.
QImage StampOf(const MarkerPath& marker, const StampMarkers& item, double ratio) {
  const int half = static_cast<int>(std::ceil((item.size * 0.7 + item.width) * ratio)) + 1;
  const int side = 2 * half + 1;
  QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  PrepareFor(painter, marker, item);
  painter.translate(side / 2.0, side / 2.0);
  painter.scale(ratio, ratio);
  painter.drawPath(marker.path);
  painter.end();
  return image;
}

// How far two stretches that meet at a corner reach beyond it: to the outer edge's own corner, at
// most half the width, and a trace more than nothing, or the seam would show.
double CornerReach(QPointF from, QPointF to, double width) {
  constexpr double kSeam = 0.2;
  const double dot = QPointF::dotProduct(from, to);
  const double cross = std::abs(from.x() * to.y() - from.y() * to.x());
  const double size = std::hypot(dot, cross);  // the product of both lengths
  if (size <= 0.0 || dot <= -0.999 * size) return width / 2.0;
  const double half_tangent = cross / (size + dot);
  return std::min(width / 2.0, kSeam + width / 2.0 * half_tangent);
}

bool IsGentle(QPointF along) {
  constexpr double kSteepest = 0.25;
  return std::abs(along.y()) <= kSteepest * std::abs(along.x());
}

// The corners of a line that are seen as such: those left out lie within a small part of a pixel of
// the straight stretch between their neighbours. `pixel`: a device pixel in the line's units.
class CornerFinder {
 public:
  explicit CornerFinder(double pixel) : reach_(0.08 * pixel) {}

  void Find(const std::vector<PicturePoint>& points, QList<QPointF>& corners) {
    corners.clear();
    if (points.empty()) return;
    corners.append({points.front().x, points.front().y});
    QPointF last = corners.back();
    Restart();
    for (std::size_t i = 1; i < points.size(); ++i) {
      const QPointF point(points[i].x, points[i].y);
      if (!Extends(point - corners.back())) {
        corners.append(last);
        Restart();
        Extends(point - last);
      }
      last = point;
    }
    corners.append(last);
  }

 private:
  void Restart() {
    length_ = 0.0;
    least_ = -std::numbers::pi;
    most_ = std::numbers::pi;
  }

  // Whether the stretch from the last corner can run on to `along` and still pass all points.
  bool Extends(QPointF along) {
    const double length = std::hypot(along.x(), along.y());
    if (length < length_) return false;  // turned back
    length_ = length;
    if (length <= reach_) return true;
    const double angle = std::atan2(along.y(), along.x());
    if (angle < least_ || angle > most_) return false;
    const double half = std::asin(reach_ / length);
    least_ = std::max(least_, angle - half);
    most_ = std::min(most_, angle + half);
    return true;
  }

  double reach_;
  double length_ = 0.0;
  double least_ = 0.0;  // directions that pass all points so far
  double most_ = 0.0;
};

// Replays one kind of item after the other.
class Replay {
 public:
  Replay(QPainter& painter, const PictureTexts& texts)
      : painter_(painter),
        texts_(texts),
        pixels_(painter.paintEngine()->type() == QPaintEngine::Raster),
        ratio_(painter.device()->devicePixelRatioF()),
        place_(painter.worldTransform() * QTransform::fromScale(ratio_, ratio_)) {}

  void operator()(const FillBox& item) {
    painter_.setRenderHint(QPainter::Antialiasing, false);
    painter_.fillRect(ToQt(item.box), QtColor(item.color));
  }

  void operator()(const StrokeLine& item) {
    painter_.setRenderHint(QPainter::Antialiasing, true);
    if (pixels_ && item.dash.on > 0.0) return DrawDashes(item);
    if (pixels_ && item.width * place_.m11() > 1.0) return DrawStretches(item);
    QPen pen(QtColor(item.color), item.width, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
    if (item.dash.on > 0.0) {
      pen.setDashPattern({item.dash.on / item.width, item.dash.off / item.width});
    }
    painter_.setPen(pen);
    CopyTo(polygon_, item.points);
    painter_.drawPolyline(polygon_);
  }

  // A veil without an outline lies under lines along its edges: smooth edges of its own would not
  // be seen, and blending their many short runs takes the raster engine ten times as long.
  void operator()(const FillShape& item) {
    const bool is_veil = pixels_ && item.width <= 0.0 && item.fill.alpha < 255;
    painter_.setRenderHint(QPainter::Antialiasing, !is_veil);
    painter_.setBrush(QtColor(item.fill));
    painter_.setPen(item.width > 0.0 ? QPen(QtColor(item.outline), item.width) : QPen(Qt::NoPen));
    CopyTo(polygon_, item.points);
    painter_.drawPolygon(polygon_);
  }

  void operator()(const FillRegion& item) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const std::vector<PicturePoint>& ring : item.rings) {
      CopyTo(polygon_, ring);
      path.addPolygon(polygon_);
      path.closeSubpath();
    }
    painter_.setRenderHint(QPainter::Antialiasing, true);
    painter_.fillPath(path, QtColor(item.color));
  }

  void operator()(const FillFacets& item) {
    if (pixels_ && place_.type() <= QTransform::TxTranslate) {
      DrawPixels(item);
    } else {
      DrawFaces(item);
    }
  }

  void operator()(const StampMarkers& item) {
    const MarkerPath marker = PathOf(item.shape, item.size);
    if (pixels_ && place_.type() <= QTransform::TxScale) {
      Stamp(marker, item);
    } else {
      DrawShapes(marker, item);
    }
  }

  void operator()(const DrawText& item) {
    const PictureTexts::Laid& laid = texts_.Get(item.text, item.pixel_size, item.bold);
    painter_.setFont(texts_.Font(item.pixel_size, item.bold));
    painter_.setPen(QtColor(item.color));
    double shift = 0.0;
    if (item.align != TextAlign::kLeft) {
      shift = item.align == TextAlign::kRight ? -laid.width : -laid.width / 2.0;
    }
    if (!item.upwards && pixels_) {
      painter_.drawStaticText(QPointF(item.at.x + shift, item.at.y - laid.ascent), laid.text);
    } else if (!item.upwards) {
      painter_.drawText(QPointF(item.at.x + shift, item.at.y), laid.text.text());
    } else {
      painter_.save();
      painter_.translate(item.at.x, item.at.y);
      painter_.rotate(-90.0);
      painter_.drawText(QPointF(shift, 0.0), laid.text.text());
      painter_.restore();
    }
  }

  // Thin lines are drawn several times faster with a clip set.
  void operator()(const SetClip& item) { painter_.setClipRect(ToQt(item.box)); }

 private:
  // A wide line stretch by stretch, each a little longer so that corners close: the raster engine
  // fills single stretches ten times faster than the outline of a long line.
  // Where two meet on a gentle slope they end at the border of two pixels instead: whatever they
  // had in common would be painted twice and stand out as a bead.
  void DrawStretches(const StrokeLine& item) {
    painter_.setPen(QPen(QtColor(item.color), item.width, Qt::SolidLine, Qt::FlatCap));
    CornerFinder(1.0 / place_.m11()).Find(item.points, corners_);
    stretches_.clear();
    double before = 0.0;
    for (qsizetype i = 1; i < corners_.size(); ++i) {
      double after = 0.0;
      if (i + 1 < corners_.size() && !MoveToBorder(i)) {
        after =
            CornerReach(corners_[i] - corners_[i - 1], corners_[i + 1] - corners_[i], item.width);
      }
      const QLineF line(corners_[i - 1], corners_[i]);
      const double length = line.length();
      if (length > 0.0) {
        const QPointF along(line.dx() / length, line.dy() / length);
        stretches_.append(QLineF(line.p1() - along * before, line.p2() + along * after));
      }
      before = after;
    }
    painter_.drawLines(stretches_);
  }

  // Dashes cut out of the line as stretches of their own, which the raster engine draws much faster
  // than a dashed pen.
  void DrawDashes(const StrokeLine& item) {
    painter_.setPen(QPen(QtColor(item.color), item.width, Qt::SolidLine, Qt::FlatCap));
    const std::vector<PicturePoint>& points = item.points;
    stretches_.clear();
    constexpr double kRounding = 1e-9;
    bool on = true;
    double left = item.dash.on;  // of the present dash or gap
    for (std::size_t i = 1; i < points.size(); ++i) {
      const QLineF line(points[i - 1].x, points[i - 1].y, points[i].x, points[i].y);
      const double length = line.length();
      double done = 0.0;
      while (done < length) {
        const double part = std::min(length - done, left);
        if (on) {
          const double end = (done + part) / length;
          stretches_.append(QLineF(line.pointAt(done / length), line.pointAt(end)));
        }
        done += part;
        left -= part;
        if (left > kRounding) break;  // goes on behind the corner
        on = !on;
        left = on ? item.dash.on : item.dash.off;
      }
    }
    painter_.drawLines(stretches_);
  }

  void DrawPixels(const FillFacets& item) {
    const QRectF clip = painter_.clipBoundingRect();
    const PixelBlock block =
        RasterOf(item, {clip.left(), clip.top(), clip.right(), clip.bottom()}, ratio_);
    if (block.pixels.empty()) return;
    QImage image(reinterpret_cast<const uchar*>(block.pixels.data()),
                 block.width,
                 block.height,
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio_);
    painter_.drawImage(QPointF(block.left / ratio_, block.top / ratio_), image);
  }

  // Each face with an outline, of its own colour where it has no edges to show: viewers smooth
  // shapes one by one, and the ground would shine through between them.
  void DrawFaces(const FillFacets& item) {
    constexpr double kSeam = 0.4;
    painter_.setRenderHint(QPainter::Antialiasing, true);
    for (const PictureFacet& facet : item.facets) {
      painter_.setBrush(QtColor(facet.color));
      painter_.setPen(QPen(QtColor(Shaded(facet.color, item.outline)), kSeam));
      polygon_.resize(0);
      for (const PicturePoint& corner : facet.corners) polygon_.append({corner.x, corner.y});
      painter_.drawPolygon(polygon_);
    }
  }

  // Moves a corner along the line to the nearest border of two pixel columns; false where the line
  // is too steep for that, or too dense.
  bool MoveToBorder(qsizetype i) {
    const QPointF in = corners_[i] - corners_[i - 1];
    const QPointF out = corners_[i + 1] - corners_[i];
    if (!IsGentle(in) || !IsGentle(out)) return false;
    const double x = corners_[i].x();
    const double border = (std::round(x * place_.m11() + place_.dx()) - place_.dx()) / place_.m11();
    if (border <= corners_[i - 1].x() || border >= corners_[i + 1].x()) return false;
    const QPointF& along = border < x ? in : out;
    corners_[i] += QPointF(border - x, (border - x) * along.y() / along.x());
    return true;
  }

  void Stamp(const MarkerPath& marker, const StampMarkers& item) {
    const QImage stamp = StampOf(marker, item, place_.m11());
    const int half = stamp.width() / 2;
    const QTransform world = painter_.worldTransform();
    QImage image = stamp;
    image.setDevicePixelRatio(ratio_);
    painter_.resetTransform();
    for (const PicturePoint& center : item.centers) {
      const QPointF at = place_.map(QPointF(center.x, center.y));
      painter_.drawImage(
          QPointF((std::floor(at.x()) - half) / ratio_, (std::floor(at.y()) - half) / ratio_),
          image);
    }
    painter_.setWorldTransform(world);
  }

  void DrawShapes(const MarkerPath& marker, const StampMarkers& item) {
    PrepareFor(painter_, marker, item);
    for (const PicturePoint& center : item.centers) {
      painter_.drawPath(marker.path.translated(center.x, center.y));
    }
  }

  QPainter& painter_;
  const PictureTexts& texts_;
  bool pixels_;
  double ratio_;       // device pixels a unit of the painter's device
  QTransform place_;   // to pixels of the device; where a window is painted, of the widget in it
  QPolygonF polygon_;  // its memory serves line after line
  QList<QPointF> corners_;
  QList<QLineF> stretches_;
};

}  // namespace

QFont PictureFont(int pixel_size, bool bold) {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(pixel_size);
  font.setBold(bold);
  return font;
}

double PictureTexts::Width(std::string_view text, int pixel_size, bool bold) const {
  return Get(text, pixel_size, bold).width;
}

const PictureTexts::Laid& PictureTexts::Get(std::string_view text,
                                            int pixel_size,
                                            bool bold) const {
  constexpr std::size_t kMostKept = 2000;  // many a scroll step's dates
  Face& face = FaceOf(pixel_size, bold);
  std::string key(text);
  const auto known = face.texts.find(key);
  if (known != face.texts.end()) return known->second;
  if (face.texts.size() >= kMostKept) face.texts.clear();
  Laid laid;
  const QString shown = ToQt(key);
  laid.text.setTextFormat(Qt::PlainText);
  laid.text.setText(shown);
  laid.text.prepare(QTransform(), face.font);
  laid.width = face.metrics.horizontalAdvance(shown);
  laid.ascent = face.metrics.ascent();
  return face.texts.emplace(std::move(key), std::move(laid)).first->second;
}

const QFont& PictureTexts::Font(int pixel_size, bool bold) const {
  return FaceOf(pixel_size, bold).font;
}

PictureTexts::Face& PictureTexts::FaceOf(int pixel_size, bool bold) const {
  const std::pair<int, bool> key(pixel_size, bold);
  const auto found = faces_.find(key);
  if (found != faces_.end()) return found->second;
  const QFont font = PictureFont(pixel_size, bold);
  return faces_.emplace(key, Face{font, QFontMetricsF(font), {}}).first->second;
}

void PaintPicture(QPainter& painter, const ChartPicture& picture, const PictureTexts& texts) {
  const QRectF ground(0.0, 0.0, picture.width, picture.height);
  painter.save();
  painter.fillRect(ground, QtColor(picture.background));
  painter.setClipRect(ground);
  Replay replay(painter, texts);
  for (const PictureItem& item : picture.items) std::visit(replay, item);
  painter.restore();
}

}  // namespace vistaplot
