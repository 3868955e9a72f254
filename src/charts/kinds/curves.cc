#include "charts/kinds/curves.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <span>
#include <utility>

#include "charts/kinds/line_hits.h"
#include "charts/kinds/point_marks.h"

namespace vistaplot {
namespace {

using Points = std::vector<PicturePoint>;

// Widths of a pen of width 1, at scale 1: wide, less so with more than kClosePoints a unit of
// width, and fine where wide lines would smear: with more than kDensePoints a unit, or kManyPoints
// in all.
constexpr double kLineWidth = 1.5;
constexpr double kCloseWidth = 1.0;
constexpr double kFineWidth = 0.7;
constexpr double kClosePoints = 0.6;
constexpr double kDensePoints = 1.5;
constexpr double kManyPoints = 8000.0;

constexpr std::uint8_t kBandAlpha = 20;      // 8 %
constexpr std::uint8_t kForecastAlpha = 26;  // 10 %
constexpr double kCloseDays = 4.0;  // pixels: the dots of a stop shrink where days are closer

struct CurveStyle {
  double weight = 1.0;  // of a price line's width
  LineDash dash{};      // at scale 1
  double pale = 0.0;    // part of the ground in its colour
};

CurveStyle StyleOf(SeriesRole role) {
  switch (role) {
    case SeriesRole::kAverage:
      return {.weight = 0.75, .dash = {4.0, 3.0}, .pale = 0.15};
    case SeriesRole::kAdaptiveAverage:
      return {.weight = 0.75, .dash = {11.0, 4.0}, .pale = 0.15};
    case SeriesRole::kUpperBand:
    case SeriesRole::kLowerBand:
      return {.weight = 0.0, .dash = {}, .pale = 0.35};
    case SeriesRole::kTrend:
      return {.weight = 0.0};
    case SeriesRole::kMiddleBand:
      return {.weight = 0.75, .dash = {1.5, 2.5}, .pale = 0.35};
    case SeriesRole::kForecast:
      return {.weight = 1.0, .dash = {6.0, 3.0}};
    default:
      return {};
  }
}

LineDash Grown(LineDash dash, double scale) {
  return {dash.on * scale, dash.off * scale};
}

struct Curve {
  DrawnSeries series;
  SeriesRole role = SeriesRole::kPlain;
  std::vector<Points> pieces;
  Points alone;
};

// Thins the points of a stretch of days; the pieces are parted by gaps.
Curve ThinCurve(const DrawnSeries& series,
                SeriesRole role,
                std::span<const PicturePoint> points,
                const DrawContext& context,
                const PlotScale& scale) {
  constexpr double kMostPerColumn = 4.0;
  const double most = kMostPerColumn * (scale.box.Width() * context.detail + 2.0);
  LineThinner thinner(context.detail, std::min(points.size(), static_cast<std::size_t>(most)));
  for (const PicturePoint& point : points) {
    if (IsThere(point)) {
      thinner.Add(point);
    } else {
      thinner.Break();
    }
  }
  thinner.Break();
  return {series, role, thinner.TakePieces(), thinner.TakeAlone()};
}

// The curves of one series: behind the last real day a price goes on as a forecast.
void AddCurves(const DrawContext& context,
               const DrawnSeries& series,
               const Points& points,
               const PlotScale& scale,
               std::vector<Curve>& curves) {
  const ChartFacts& facts = context.view.facts;
  const SeriesRole role = facts.SeriesAt(series.number).role;
  const std::span<const PicturePoint> all(points);
  const auto real = static_cast<std::size_t>(std::max(facts.last_real_row, 0));
  if (role != SeriesRole::kPlain || real == 0 || real >= points.size()) {
    curves.push_back(ThinCurve(series, role, all, context, scale));
    return;
  }
  curves.push_back(ThinCurve(series, role, all.first(real), context, scale));
  curves.push_back(ThinCurve(series, SeriesRole::kForecast, all.subspan(real - 1), context, scale));
}

double LineWidth(const std::vector<Curve>& curves, double plot_width) {
  double all = 0.0;
  double most = 0.0;
  for (const Curve& curve : curves) {
    double points = 0.0;
    for (const auto& piece : curve.pieces) points += static_cast<double>(piece.size());
    all += points;
    most = std::max(most, points);
  }
  if (all > kManyPoints || most > kDensePoints * plot_width) return kFineWidth;
  return most > kClosePoints * plot_width ? kCloseWidth : kLineWidth;
}

PictureColor CurveInk(const DrawContext& context,
                      const DrawnSeries& series,
                      const CurveStyle& style) {
  return PaleInk(
      context.theme, SeriesInk(context.view, series.settings, context.theme), style.pale);
}

void DrawCurve(const DrawContext& context, Curve curve, double width, ChartPicture& picture) {
  const CurveStyle style = StyleOf(curve.role);
  const double pen = std::max(SettingsOf(context.view, curve.series.settings).Pen.Width, 0.5);
  const double full = std::max(1.0, pen * width * context.scale);
  const double drawn = std::max(std::max(1.0, std::floor(context.scale)), full * style.weight);
  const PictureColor ink = CurveInk(context, curve.series, style);
  const LineDash dash = Grown(style.dash, context.scale);
  for (auto& piece : curve.pieces) picture.Add(StrokeLine{std::move(piece), ink, drawn, dash});
  if (curve.alone.empty()) return;
  picture.Add(StampMarkers{.shape = MarkerShape::kDot,
                           .size = std::round(drawn + 2.0 * context.scale),
                           .width = 0.0,
                           .color = ink,
                           .centers = std::move(curve.alone)});
}

// One dot a day.
void DrawStop(const DrawContext& context,
              const DrawnSeries& series,
              const Points& points,
              const PlotScale& scale,
              ChartPicture& picture) {
  const double day = scale.X(2.0) - scale.X(1.0);
  const double close = kCloseDays * context.scale;
  const double size = day < close ? std::max(1.5, 3.0 * day / kCloseDays) : 3.0 * context.scale;
  const PictureColor ink = SeriesInk(context.view, series.settings, context.theme);
  StampDots(context, points, scale, ink, size, picture);
}

// The points of one unbroken stretch, thinned.
Points Thinned(std::span<const PicturePoint> points, double detail) {
  LineThinner thinner(detail, points.size());
  for (const PicturePoint& point : points) thinner.Add(point);
  thinner.Break();
  auto pieces = thinner.TakePieces();
  return pieces.empty() ? Points{} : std::move(pieces.front());
}

// Fills between two bands wherever both have points, stretch by stretch.
void FillBetween(const DrawContext& context,
                 const Points& upper,
                 const Points& lower,
                 PictureColor fill,
                 ChartPicture& picture) {
  const std::size_t count = std::min(upper.size(), lower.size());
  const auto both = [&](std::size_t i) { return IsThere(upper[i]) && IsThere(lower[i]); };
  std::size_t first = 0;
  while (first < count) {
    if (!both(first)) {
      ++first;
      continue;
    }
    std::size_t end = first;
    while (end < count && both(end)) ++end;
    Points outline = Thinned(std::span(upper).subspan(first, end - first), context.detail);
    const Points back = Thinned(std::span(lower).subspan(first, end - first), context.detail);
    outline.insert(outline.end(), back.rbegin(), back.rend());
    if (outline.size() > 3) {
      picture.Add(FillShape{.points = std::move(outline), .fill = fill, .outline = {}});
    }
    first = end;
  }
}

void FillBands(const DrawContext& context,
               const std::vector<DrawnSeries>& all,
               const PlotScale& scale,
               ChartPicture& picture) {
  const ChartFacts& facts = context.view.facts;
  Points upper;
  Points lower;
  for (const DrawnSeries& band : all) {
    const SeriesFacts& own = facts.SeriesAt(band.number);
    if (own.role != SeriesRole::kUpperBand) continue;
    const auto other = std::find_if(all.begin(), all.end(), [&](const DrawnSeries& series) {
      const SeriesFacts& theirs = facts.SeriesAt(series.number);
      return theirs.role == SeriesRole::kLowerBand && theirs.parent == own.parent;
    });
    if (other == all.end() || !SettingsOf(context.view, band.settings).showline) continue;
    PlacePoints(context.view, band, scale, upper);
    PlacePoints(context.view, *other, scale, lower);
    PictureColor fill = SeriesInk(context.view, band.settings, context.theme);
    fill.alpha = kBandAlpha;
    FillBetween(context, upper, lower, fill, picture);
  }
}

// Pale ground from the last real day on.
void ShadeForecast(const DrawContext& context, const PlotScale& scale, ChartPicture& picture) {
  const int last = context.view.facts.last_real_row;
  if (last <= 0 || last >= context.view.rowcount()) return;
  PictureColor ground = context.theme.label;
  ground.alpha = kForecastAlpha;
  const double left = std::round(scale.X(last));
  const double right = scale.box.right + std::round(3.0 * context.scale);  // of the guide lines
  picture.Add(FillBox{{left, scale.box.top, right, scale.box.bottom}, ground});
}

}  // namespace

void DrawCurves(const DrawContext& context,
                const std::vector<DrawnSeries>& all,
                const PlotScale& scale,
                ChartPicture& picture) {
  ShadeForecast(context, scale, picture);
  FillBands(context, all, scale, picture);
  std::vector<Curve> curves;
  Points points;
  for (const DrawnSeries& series : all) {
    if (!SettingsOf(context.view, series.settings).showline) continue;
    PlacePoints(context.view, series, scale, points);
    if (context.view.facts.SeriesAt(series.number).role == SeriesRole::kStop) {
      DrawStop(context, series, points, scale, picture);
    } else {
      AddCurves(context, series, points, scale, curves);
    }
  }
  const double width = LineWidth(curves, scale.box.Width());
  const auto is_overlay = [](const Curve& curve) { return curve.role != SeriesRole::kPlain; };
  std::stable_partition(curves.begin(), curves.end(), is_overlay);
  for (Curve& curve : curves) DrawCurve(context, std::move(curve), width, picture);
}

void DrawCurveSwatch(const DrawContext& context,
                     const DrawnSeries& series,
                     const PictureBox& box,
                     ChartPicture& picture) {
  const SeriesRole role = context.view.facts.SeriesAt(series.number).role;
  const PictureColor ink = SeriesInk(context.view, series.settings, context.theme);
  const double middle = std::round((box.top + box.bottom) / 2.0);
  const double half = std::max(1.0, std::round(box.Height() * 0.09));
  if (role == SeriesRole::kPlain) {
    picture.Add(FillBox{{box.left, middle - half, box.right, middle + half}, ink});
    return;
  }
  if (role == SeriesRole::kStop) {
    StampMarkers dots{.shape = MarkerShape::kDot,
                      .size = 3.0 * context.scale,
                      .width = 0.0,
                      .color = ink,
                      .centers = {}};
    for (const double part : {0.1, 0.5, 0.9}) {
      dots.centers.push_back({box.left + part * box.Width(), middle});
    }
    picture.Add(std::move(dots));
    return;
  }
  const CurveStyle style = StyleOf(role);
  // Two dashes at least.
  const double period = (style.dash.on + style.dash.off) * context.scale;
  const double shrink = period > 0.0 ? std::min(1.0, 0.6 * box.Width() / period) : 1.0;
  picture.Add(StrokeLine{{{box.left, middle}, {box.right, middle}},
                         CurveInk(context, series, style),
                         std::max(1.0, 2.0 * half * style.weight),
                         Grown(style.dash, context.scale * shrink)});
}

}  // namespace vistaplot
