#include "charts/layout/layout.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "charts/layout/layout_parts.h"

namespace vistaplot {

namespace {

constexpr double kLeastSide = 16.0;
// Curves may touch the plot's edges with half their width.
PictureBox ClipOf(const ChartFrame& frame, double scale) {
  const double reach = std::ceil(3.0 * scale);
  return {frame.scale.box.left - reach,
          frame.plot.top - reach,
          frame.plot.right + reach,
          frame.plot.bottom + reach};
}

// Why there is nothing to see, in the middle of `box`, one line.
void DrawWhyEmpty(const DrawContext& context, const PictureBox& box, ChartPicture& picture) {
  constexpr double kPoints = 9.0;
  const int pixels = context.FontPixels(kPoints);
  picture.Add(DrawText{
      .text = ElideText(context, context.view.WhyEmpty, pixels, box.Width()),
      .at = {std::round((box.left + box.right) / 2.0), std::round((box.top + box.bottom) / 2.0)},
      .align = TextAlign::kCenter,
      .pixel_size = pixels,
      .color = context.theme.label});
}

}  // namespace

ChartPicture LayoutChart(const ChartView& view,
                         PictureSize size,
                         const TextMeasure& measure,
                         const LayoutOptions& options) {
  const ChartTheme theme = options.dark ? DarkTheme() : LightTheme();
  ChartPicture picture;
  picture.width = size.width;
  picture.height = size.height;
  picture.background = theme.background;
  if (size.width < kLeastSide || size.height < kLeastSide) return picture;

  const DrawContext context{
      view, measure, size, theme, TextScale(size), std::max(options.detail, 1.0)};
  if (view.ColumnCount() == 0 && !view.WhyEmpty.empty()) {
    DrawWhyEmpty(context, {0.0, 0.0, size.width, size.height}, picture);
    return picture;
  }
  const ChartFrame frame = PlaceFrame(context);
  if (frame.scale.box.Width() < 1.0 || frame.scale.box.Height() < 1.0) return picture;
  picture.plot = frame.plot;
  picture.scale = frame.scale;
  DrawTitles(context, frame, picture);
  DrawLegend(context, frame.legend, frame.legend_at, picture);
  if (view.WhyEmpty.empty()) DrawValueAxis(context, frame, picture);
  DrawPositionAxis(context, frame, picture);
  picture.Add(SetClip{ClipOf(frame, context.scale)});
  KindOf(view).Draw(context, frame.scale, picture);
  picture.Add(SetClip{{0.0, 0.0, size.width, size.height}});
  if (!view.WhyEmpty.empty()) DrawWhyEmpty(context, frame.scale.box, picture);
  return picture;
}

namespace {

// Where the characters of UTF-8 text begin, and its end.
std::vector<std::size_t> LetterStarts(const std::string& text) {
  std::vector<std::size_t> starts;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if ((static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80U) starts.push_back(i);
  }
  starts.push_back(text.size());
  return starts;
}

// The first two thirds and the last third of `kept` characters, the rest left out.
std::string MiddleElided(const std::string& text,
                         const std::vector<std::size_t>& starts,
                         std::size_t kept) {
  const std::size_t tail = kept / 3;
  return text.substr(0, starts[kept - tail]) + "…" + text.substr(starts[starts.size() - 1 - tail]);
}

}  // namespace

std::string ElideText(const DrawContext& context,
                      const std::string& text,
                      int pixels,
                      double width) {
  if (context.measure.Width(text, pixels, false) <= width) return text;
  const std::vector<std::size_t> starts = LetterStarts(text);
  std::size_t fits = 1;
  std::size_t too_many = std::max<std::size_t>(starts.size() - 1, 2);
  while (too_many - fits > 1) {
    const std::size_t middle = (fits + too_many) / 2;
    const std::string tried = MiddleElided(text, starts, middle);
    (context.measure.Width(tried, pixels, false) <= width ? fits : too_many) = middle;
  }
  return MiddleElided(text, starts, fits);
}

}  // namespace vistaplot
