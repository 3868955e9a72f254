#include "charts/kinds/kind.h"

#include <algorithm>

#include "charts/kinds/boxes.h"
#include "charts/kinds/candles.h"
#include "charts/kinds/contour.h"
#include "charts/kinds/lines.h"
#include "charts/kinds/surface.h"

namespace vistaplot {
namespace {

FigureKind NamedBy(int chart_type) {
  switch (chart_type) {
    case kChartXY:
      return FigureKind::kXY;
    case kChartStock:
      return FigureKind::kCandles;
    case kChartSurface:
      return FigureKind::kSurface;
    case kChartContour:
      return FigureKind::kContour;
    default:
      return FigureKind::kLines;
  }
}

const ContourKind kContour;
const SurfaceKind kSurface;

}  // namespace

const Kind& KindOf(const ChartView& view) {
  const FigureKind stated = view.facts.kind;
  switch (stated == FigureKind::kOfChartType ? NamedBy(view.ChartType) : stated) {
    case FigureKind::kXY:
      return PointsOverValues();
    case FigureKind::kCandles:
      return Candles();
    case FigureKind::kBoxes:
      return Boxes();
    case FigureKind::kContour:
      return kContour;
    case FigureKind::kSurface:
      return kSurface;
    default:
      return LinesOverRows();
  }
}

std::optional<ChartHit> FindPoint(const ChartView& view,
                                  const ChartPicture& picture,
                                  PicturePoint at,
                                  double reach) {
  const auto region = std::find_if(picture.regions.rbegin(),
                                   picture.regions.rend(),
                                   [&](const HitRegion& r) { return r.box.Contains(at); });
  if (region != picture.regions.rend()) return ChartHit{region->series, region->point};
  const PictureBox& plot = picture.plot;
  const PictureBox near_plot{
      plot.left - reach, plot.top - reach, plot.right + reach, plot.bottom + reach};
  if (plot.Width() <= 0.0 || !near_plot.Contains(at)) return std::nullopt;
  return KindOf(view).HitAt(view, picture, at, reach);
}

}  // namespace vistaplot
