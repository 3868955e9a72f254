#include "ui/chart/crosshair_marks.h"

#include <algorithm>
#include <cmath>

#include "charts/kinds/kind.h"
#include "ui/chart/chart_canvas.h"

namespace vistaplot {
namespace {

constexpr double kRing = 4.0;  // radius
constexpr double kChosenRing = 5.5;
constexpr int kReach = 8;  // of a ring with its outline, in whole pixels

// A line of one device pixel lies sharp.
double Snapped(double place, double ratio) {
  return std::floor(place * ratio) / ratio;
}

}  // namespace

const CrossHairPoint* CrossHairMarks::Chosen() const {
  const auto found = std::find_if(points.begin(), points.end(), [&](const CrossHairPoint& point) {
    return point.series == chosen_series;
  });
  return found == points.end() ? nullptr : &*found;
}

int CrossHairMarks::NearestSeries(double y) const {
  const auto nearest = std::min_element(
      points.begin(), points.end(), [y](const CrossHairPoint& a, const CrossHairPoint& b) {
        return std::abs(a.at.y - y) < std::abs(b.at.y - y);
      });
  return nearest == points.end() ? 0 : nearest->series;
}

CrossHairMarks MarksOf(const ChartView& view,
                       const ChartPicture& picture,
                       const CrossHair& cross_hair,
                       const ReadOut& read_out) {
  PictureBox plot = picture.plot;
  plot.left = picture.scale.box.left;  // beside the values of the axis
  CrossHairMarks marks{true, plot, picture.scale.X(cross_hair.Position()), {}, 0};
  if (const Kind& kind = KindOf(view); kind.Turns()) {
    marks.lines = false;
    const Stop place = cross_hair.Place();
    const auto at = kind.PlaceOf(view, picture, place.row, place.column);
    if (at && !read_out.entries.empty()) marks.points = {{1, *at, read_out.entries.front().mark}};
    return marks;
  }
  for (const ReadOutEntry& entry : read_out.entries) {
    if (!entry.at) continue;
    const PicturePoint at{picture.scale.X(entry.at->x), picture.scale.Y(entry.at->y)};
    if (at.y < picture.plot.top - 1.0 || at.y > picture.plot.bottom + 1.0) continue;
    marks.points.push_back({entry.series, at, entry.mark});
  }
  return marks;
}

QRegion AreaOf(const CrossHairMarks& marks) {
  const PictureBox& plot = marks.plot;
  const int left = static_cast<int>(std::floor(plot.left));
  const int top = static_cast<int>(std::floor(plot.top));
  const int width = static_cast<int>(std::ceil(plot.right)) - left;
  const int height = static_cast<int>(std::ceil(plot.bottom)) - top;
  // As wide as the rings on it: a region of few rectangles is painted much faster.
  QRegion area;
  if (marks.lines)
    area = {static_cast<int>(std::floor(marks.x)) - kReach, top, 2 * kReach + 1, height};
  if (const CrossHairPoint* chosen = marks.Chosen(); chosen != nullptr && marks.lines) {
    area += QRect(left, static_cast<int>(std::floor(chosen->at.y)) - 1, width, 3);
  }
  for (const CrossHairPoint& point : marks.points) {
    area += QRect(static_cast<int>(std::floor(point.at.x)) - kReach,
                  static_cast<int>(std::floor(point.at.y)) - kReach,
                  2 * kReach + 1,
                  2 * kReach + 1);
  }
  return area;
}

void PaintLines(QPainter& painter, const CrossHairMarks& marks, const ChartTheme& theme) {
  if (!marks.lines) return;
  const double ratio = painter.device()->devicePixelRatioF();
  const PictureBox& plot = marks.plot;
  const QColor line = QtColor(theme.label);  // opaque: filled at once, not blended line by line
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.fillRect(QRectF(Snapped(marks.x, ratio), plot.top, 1.0, plot.Height()), line);
  if (const CrossHairPoint* chosen = marks.Chosen()) {
    painter.fillRect(QRectF(plot.left, Snapped(chosen->at.y, ratio), plot.Width(), 1.0), line);
  }
}

void PaintRings(QPainter& painter, const CrossHairMarks& marks, const ChartTheme& theme) {
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setPen(QPen(QtColor(theme.background), 1.5));
  const auto paint = [&painter](const CrossHairPoint& point, double radius) {
    painter.setBrush(QtColor(point.color));
    painter.drawEllipse(QPointF(point.at.x, point.at.y), radius, radius);
  };
  for (const CrossHairPoint& point : marks.points) paint(point, kRing);
  if (const CrossHairPoint* chosen = marks.Chosen()) paint(*chosen, kChosenRing);
}

}  // namespace vistaplot
