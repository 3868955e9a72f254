#include "charts/layout_series.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "charts/line_thinner.h"

namespace vistaplot {
namespace {

constexpr double kPixelsPerPoint = 96.0 / 72.0;
constexpr double kLineWidth = 1.5;         // of a pen of width 1, at scale 1
constexpr std::size_t kManyPoints = 3000;  // among so many points wide lines would smear
constexpr double kLargestMarker = 6.0;     // of a whole series, at scale 1
constexpr double kSmallestMarker = 3.0;
constexpr double kMarkerStroke = 1.3;

bool IsThere(PicturePoint point) {
  return !std::isnan(point.y);
}

// The series' points on the picture, row by row; y is not a number where the point is missing.
std::vector<PicturePoint> PlacePoints(const ChartView& view,
                                      const DrawnSeries& series,
                                      const PlotScale& scale) {
  constexpr PicturePoint kMissing{0.0, std::numeric_limits<double>::quiet_NaN()};
  const std::vector<double>& values = view.ColumnData(series.y_column);
  std::vector<PicturePoint> points(values.size(), kMissing);
  const double first = scale.X(1.0);
  const double row_width = scale.X(2.0) - first;
  const double* positions = series.x_column > 0 ? view.ColumnData(series.x_column).data() : nullptr;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!std::isfinite(values[i])) continue;
    if (positions == nullptr) {
      points[i] = {first + static_cast<double>(i) * row_width, scale.Y(values[i])};
    } else if (std::isfinite(positions[i])) {
      points[i] = {scale.X(positions[i]), scale.Y(values[i])};
    }
  }
  return points;
}

LineThinner ThinCurve(const std::vector<PicturePoint>& points, double detail) {
  LineThinner thinner(detail);
  for (const PicturePoint& point : points) {
    if (IsThere(point)) {
      thinner.Add(point);
    } else {
      thinner.Break();
    }
  }
  thinner.Break();
  return thinner;
}

// The markers of one look, each pixel once.
class MarkerLayer {
 public:
  MarkerLayer(const PictureBox& box, double detail)
      : left_(box.left - kReach), top_(box.top - kReach), detail_(detail) {
    columns_ = static_cast<std::size_t>((box.Width() + 2.0 * kReach) * detail) + 1;
    rows_ = static_cast<std::size_t>((box.Height() + 2.0 * kReach) * detail) + 1;
    taken_.resize(columns_ * rows_);
  }

  // True for the first marker on this pixel; false also for places outside the plot.
  bool Take(PicturePoint at) {
    const double column = (at.x - left_) * detail_;
    const double row = (at.y - top_) * detail_;
    if (!(column >= 0.0 && row >= 0.0)) return false;
    if (column >= static_cast<double>(columns_) || row >= static_cast<double>(rows_)) return false;
    const std::size_t pixel =
        static_cast<std::size_t>(row) * columns_ + static_cast<std::size_t>(column);
    if (taken_[pixel]) return false;
    taken_[pixel] = true;
    return true;
  }

 private:
  static constexpr double kReach = 2.0;  // points on the plot's edge count
  double left_;
  double top_;
  double detail_;
  std::size_t columns_ = 0;
  std::size_t rows_ = 0;
  std::vector<bool> taken_;
};

double SeriesMarkerSize(const LayoutContext& context, const PlotScale& scale) {
  const double rows = std::max(1, context.view.rowcount());
  const double size = 0.8 * scale.box.Width() / rows / context.scale;
  return std::round(std::clamp(size, kSmallestMarker, kLargestMarker) * context.scale);
}

void StampWholeSeries(const LayoutContext& context,
                      int series,
                      const std::vector<PicturePoint>& points,
                      const PlotScale& scale,
                      ChartPicture& picture) {
  const auto& own = SettingsOf(context.view, series).DataPoints.items;
  auto next_own = own.begin();
  MarkerLayer layer(scale.box, context.detail);
  StampMarkers markers{.shape = SeriesMarkerShape(series),
                       .size = SeriesMarkerSize(context, scale),
                       .width = kMarkerStroke * context.scale,
                       .color = SeriesInk(context, series),
                       .centers = {}};
  for (std::size_t i = 0; i < points.size(); ++i) {
    while (next_own != own.end() && next_own->first < static_cast<int>(i) + 1) ++next_own;
    if (next_own != own.end() && next_own->first == static_cast<int>(i) + 1) continue;
    if (IsThere(points[i]) && layer.Take(points[i])) markers.centers.push_back(points[i]);
  }
  if (!markers.centers.empty()) picture.Add(std::move(markers));
}

bool SameLook(const StampMarkers& one, const StampMarkers& other) {
  return one.shape == other.shape && one.size == other.size && one.width == other.width &&
         one.color == other.color;
}

StampMarkers LookOf(const LayoutContext& context, const ChartMarker& marker, int series) {
  return {.shape = MarkerShapeOf(marker, series),
          .size = std::max(2.0, std::round(marker.Size * kPixelsPerPoint * context.scale)),
          .width = std::max(1.0, marker.Pen.Width) * kMarkerStroke * context.scale,
          .color = MarkerInk(context, marker, series),
          .centers = {}};
}

void StampOwnMarkers(const LayoutContext& context,
                     int series,
                     const std::vector<PicturePoint>& points,
                     ChartPicture& picture) {
  std::vector<StampMarkers> looks;
  for (const auto& [number, point] : SettingsOf(context.view, series).DataPoints.items) {
    const auto index = static_cast<std::size_t>(number - 1);
    if (!point.Marker.Visible || index >= points.size() || !IsThere(points[index])) continue;
    StampMarkers look = LookOf(context, point.Marker, series);
    auto known = std::find_if(
        looks.begin(), looks.end(), [&](const auto& other) { return SameLook(look, other); });
    if (known == looks.end()) known = looks.insert(looks.end(), std::move(look));
    known->centers.push_back(points[index]);
  }
  for (StampMarkers& look : looks) picture.Add(std::move(look));
}

// Labels in the order of the points; one that would cover an earlier one is left away.
void WriteLabels(const LayoutContext& context,
                 int series,
                 const std::vector<PicturePoint>& points,
                 ChartPicture& picture) {
  std::vector<PictureBox> written;
  for (const auto& [number, point] : SettingsOf(context.view, series).DataPoints.items) {
    const auto index = static_cast<std::size_t>(number - 1);
    if (!point.DataPointLabel || index >= points.size() || !IsThere(points[index])) continue;
    const ChartPointLabel& label = *point.DataPointLabel;
    const int pixels = context.FontPixels(label.VtFont.Size);
    const double half = context.measure.Width(label.Text, pixels, false) / 2.0;
    const PicturePoint at = points[index];
    const double top = at.y + point.Marker.Size * kPixelsPerPoint * context.scale / 2.0 + 1.0;
    const PictureBox box{at.x - half, top, at.x + half, top + pixels};
    if (std::any_of(written.begin(), written.end(), [&](const auto& other) {
          return other.Overlaps(box);
        })) {
      continue;
    }
    written.push_back(box);
    picture.Add(DrawText{.text = label.Text,
                         .at = {at.x, std::round(top + 0.85 * pixels)},
                         .align = TextAlign::kCenter,
                         .pixel_size = pixels,
                         .color = context.theme.label});
  }
}

std::size_t CountPoints(const std::vector<LineThinner>& curves) {
  std::size_t count = 0;
  for (const LineThinner& curve : curves) {
    for (const auto& piece : curve.Pieces()) count += piece.size();
  }
  return count;
}

void DrawCurve(const LayoutContext& context,
               int series,
               const LineThinner& curve,
               bool fine,
               ChartPicture& picture) {
  const double pen = std::max(SettingsOf(context.view, series).Pen.Width, 0.5);
  const double width = fine ? std::max(1.0, pen) : std::max(1.0, pen * kLineWidth * context.scale);
  const PictureColor ink = SeriesInk(context, series);
  for (const auto& piece : curve.Pieces()) picture.Add(StrokeLine{piece, ink, width});
  if (curve.Alone().empty()) return;
  picture.Add(StampMarkers{.shape = MarkerShape::kDot,
                           .size = std::round(width + 2.0 * context.scale),
                           .width = 0.0,
                           .color = ink,
                           .centers = curve.Alone()});
}

}  // namespace

void DrawSeries(const LayoutContext& context, const PlotScale& scale, ChartPicture& picture) {
  const std::vector<DrawnSeries> all = SeriesOf(context.view);
  std::vector<std::vector<PicturePoint>> points;
  std::vector<LineThinner> curves;
  for (const DrawnSeries& series : all) {
    points.push_back(PlacePoints(context.view, series, scale));
    const bool line = SettingsOf(context.view, series.number).showline;
    curves.push_back(line ? ThinCurve(points.back(), context.detail) : LineThinner(1.0));
  }
  const bool fine = static_cast<double>(CountPoints(curves)) >
                    static_cast<double>(kManyPoints) * std::max(1.0, context.detail);
  for (std::size_t s = 0; s < all.size(); ++s) {
    DrawCurve(context, all[s].number, curves[s], fine, picture);
  }
  for (std::size_t s = 0; s < all.size(); ++s) {
    if (SettingsOf(context.view, all[s].number).SeriesMarker.Show) {
      StampWholeSeries(context, all[s].number, points[s], scale, picture);
    }
    StampOwnMarkers(context, all[s].number, points[s], picture);
  }
  for (std::size_t s = 0; s < all.size(); ++s) {
    WriteLabels(context, all[s].number, points[s], picture);
  }
}

}  // namespace vistaplot
