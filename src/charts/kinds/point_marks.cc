#include "charts/kinds/point_marks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

namespace vistaplot {
namespace {

constexpr double kLargestMarker = 6.0;  // of a whole series, at scale 1
constexpr double kSmallestMarker = 3.0;
constexpr double kMarkerStroke = 1.3;

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

double SeriesMarkerSize(const DrawContext& context, const PlotScale& scale) {
  const double rows = std::max(1, context.view.rowcount());
  const double size = 1.1 * scale.box.Width() / rows / context.scale;
  return std::round(std::clamp(size, kSmallestMarker, kLargestMarker) * context.scale);
}

void StampWholeSeries(const DrawContext& context,
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
                       .color = SeriesInk(context.view, series, context.theme),
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

StampMarkers LookOf(const DrawContext& context, const ChartMarker& marker, int series) {
  return {.shape = MarkerShapeOf(marker, series),
          .size = std::max(2.0, std::round(marker.Size * kPixelsPerPoint * context.scale)),
          .width = std::max(1.0, marker.Pen.Width) * kMarkerStroke * context.scale,
          .color = MarkerInk(context, marker, series),
          .centers = {}};
}

void StampOwnMarkers(const DrawContext& context,
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
void WriteLabels(const DrawContext& context,
                 int series,
                 const std::vector<PicturePoint>& points,
                 std::vector<DrawText>& labels) {
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
    labels.push_back(DrawText{.text = label.Text,
                              .at = {at.x, std::round(top + 0.85 * pixels)},
                              .align = TextAlign::kCenter,
                              .pixel_size = pixels,
                              .color = context.theme.label});
  }
}

}  // namespace

void PlacePoints(const ChartView& view,
                 const DrawnSeries& series,
                 const PlotScale& scale,
                 std::vector<PicturePoint>& points) {
  constexpr PicturePoint kMissing{0.0, std::numeric_limits<double>::quiet_NaN()};
  const std::vector<double>& values = view.ColumnData(series.y_column);
  points.assign(values.size(), kMissing);
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
}

void StampDots(const DrawContext& context,
               const std::vector<PicturePoint>& points,
               const PlotScale& scale,
               PictureColor color,
               double size,
               ChartPicture& picture) {
  MarkerLayer layer(scale.box, context.detail);
  StampMarkers dots{
      .shape = MarkerShape::kDot, .size = size, .width = 0.0, .color = color, .centers = {}};
  for (const PicturePoint& point : points) {
    if (IsThere(point) && layer.Take(point)) dots.centers.push_back(point);
  }
  if (!dots.centers.empty()) picture.Add(std::move(dots));
}

void DrawPointMarks(const DrawContext& context,
                    const std::vector<DrawnSeries>& all,
                    const PlotScale& scale,
                    ChartPicture& picture) {
  std::vector<PicturePoint> points;
  std::vector<DrawText> labels;  // above all markers
  for (const DrawnSeries& series : all) {
    const ChartSeries& settings = SettingsOf(context.view, series.settings);
    if (!settings.SeriesMarker.Show && settings.DataPoints.items.empty()) continue;
    PlacePoints(context.view, series, scale, points);
    if (settings.SeriesMarker.Show) {
      StampWholeSeries(context, series.settings, points, scale, picture);
    }
    StampOwnMarkers(context, series.settings, points, picture);
    WriteLabels(context, series.settings, points, labels);
  }
  for (DrawText& label : labels) picture.Add(std::move(label));
}

}  // namespace vistaplot
