#include "charts/kinds/draw_context.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace vistaplot {
namespace {

const ChartSeries& DefaultSettings() {
  static const ChartSeries settings;
  return settings;
}

}  // namespace

int DrawContext::FontPixels(double points) const {
  return std::max(7, static_cast<int>(std::lround(points * kPixelsPerPoint * scale)));
}

const ChartSeries& SettingsOf(const ChartView& view, int number) {
  const auto& all = view.Plot.SeriesCollection;
  const auto index = static_cast<std::size_t>(number - 1);
  return index < all.size() ? all[index] : DefaultSettings();
}

PictureColor SeriesInk(const ChartView& view, int number, const ChartTheme& theme) {
  const int parent = view.facts.SeriesAt(number).parent;
  const int owner = parent > 0 ? parent : number;
  const ChartColor& pen = SettingsOf(view, owner).Pen.VtColor;
  return InkOn(theme, pen == ChartColor{} ? DefaultSeriesColor(owner) : pen);
}

PictureColor MarkerInk(const DrawContext& context, const ChartMarker& marker, int series) {
  if (marker.Pen.VtColor == ChartColor{}) return SeriesInk(context.view, series, context.theme);
  return InkOn(context.theme, marker.Pen.VtColor);
}

MarkerShape SeriesMarkerShape(int number) {
  constexpr std::array kShapes = {MarkerShape::kDot,
                                  MarkerShape::kSquare,
                                  MarkerShape::kTriangle,
                                  MarkerShape::kDiamond,
                                  MarkerShape::kCross,
                                  MarkerShape::kPlus,
                                  MarkerShape::kCircle};
  return kShapes[static_cast<std::size_t>(number - 1) % kShapes.size()];
}

MarkerShape MarkerShapeOf(const ChartMarker& marker, int series) {
  switch (marker.style) {
    case kMarkerCross:
      return MarkerShape::kCross;
    case kMarkerStar:
      return MarkerShape::kStar;
    case kMarkerCircle:
      return MarkerShape::kCircle;
    default:
      return SeriesMarkerShape(series);
  }
}

}  // namespace vistaplot
