#include <algorithm>
#include <cmath>
#include <optional>

#include "charts/kinds/cell_grid.h"
#include "charts/layout/layout_parts.h"

namespace vistaplot {
namespace {

constexpr double kPixelsPerInch = 96.0;
constexpr double kMargin = 9.0;       // lengths at scale 1
constexpr double kTickRoom = 7.0;     // from the base line to the labels
constexpr double kLabelGap = 6.0;     // between a guide's label and its line
constexpr double kLegendPart = 0.30;  // of the picture's width
constexpr double kTitleLine = 1.7;    // of an axis title's font size
constexpr double kRowsPerMark = 3.6;  // heights of a label from guide to guide
constexpr int kMostMarks = 9;
constexpr double kSharedHeight = 0.356;  // of charts that share their days, in widths

bool AtBottom(const ChartText& text) {
  return text.Location.LocationType == kLocationBottomRight;
}

bool Upwards(const ChartText& text) {
  return text.TextLayout.Orientation == kOrientationVertical;
}

// The kind draws its axes itself.
bool NoAxes(const ChartView& view) {
  return KindOf(view).Positions() == PositionAxis::kNone;
}

// The width at the picture's right where another chart lies.
double CoveredWidth(const DrawContext& context) {
  return std::clamp(context.view.facts.covered_right, 0.0, 0.5) * context.size.width;
}

double TitleLength(const DrawContext& context) {
  const int pixels = context.FontPixels(context.view.title.VtFont.Size);
  return context.measure.Width(context.view.TitleText, pixels, true);
}

int LabelPixels(const DrawContext& context, std::size_t axis) {
  return context.FontPixels(context.view.Plot.Axis[axis].Labels.VtFont.Size);
}

bool HasAxisTitle(const ChartView& view, std::size_t axis) {
  return !NoAxes(view) && !view.Plot.Axis[axis].AxisTitle.Text.empty() &&
         !view.Plot.Axis[axis].AxisScale.Hide;
}

double AxisTitleRoom(const DrawContext& context, std::size_t axis) {
  if (!HasAxisTitle(context.view, axis)) return 0.0;
  return kTitleLine * context.FontPixels(context.view.Plot.Axis[axis].AxisTitle.VtFont.Size);
}

double FootnoteRoom(const DrawContext& context) {
  const ChartText& note = context.view.Footnote;
  if (!note.Location.Visible || note.Text.empty()) return 0.0;
  return kLineHeight * context.FontPixels(note.VtFont.Size);
}

double TopRoom(const DrawContext& context) {
  const ChartView& view = context.view;
  const double margin = kMargin * context.scale;
  const double covered = std::clamp(view.facts.covered_top, 0.0, 0.5) * context.size.height;
  const bool title = !view.TitleText.empty() && !AtBottom(view.title);
  const double line = title ? 1.5 * context.FontPixels(view.title.VtFont.Size) : 0.0;
  return std::max(margin + line, covered);
}

// The line of labels also holds a title at the bottom.
double LabelLine(const DrawContext& context) {
  const ChartView& view = context.view;
  double line = 0.0;
  const std::size_t axis = AxesOf(view).across;
  if (!NoAxes(view) && !view.Plot.Axis[axis].AxisScale.Hide) line = LabelPixels(context, axis);
  if (!view.TitleText.empty() && AtBottom(view.title) && !Upwards(view.title)) {
    line = std::max(line, 1.0 * context.FontPixels(view.title.VtFont.Size));
  }
  return line;
}

double BottomRoom(const DrawContext& context) {
  const double line = LabelLine(context);
  const double below = line > 0.0 ? kTickRoom * context.scale + line : 0.0;
  const double room = kMargin * context.scale * 0.7 + FootnoteRoom(context) +
                      AxisTitleRoom(context, AxesOf(context.view).across) + below;
  const auto& rect = context.view.Plot.LocationRect;
  const double kept = context.view.Plot.AutoLayout ? 0.0 : rect.Min.Y * kPixelsPerInch;
  return std::max(room, std::min(kept, context.size.height * 0.2));
}

double LeftRoom(const DrawContext& context) {
  const auto& rect = context.view.Plot.LocationRect;
  const double kept = context.view.Plot.AutoLayout ? 0.0 : rect.Min.X * kPixelsPerInch;
  return std::max(kMargin * context.scale, std::min(kept, context.size.width * 0.2));
}

double WidestMark(const DrawContext& context, const std::vector<ValueMark>& marks) {
  double widest = 0.0;
  for (const ValueMark& mark : marks) {
    const int pixels = LabelPixels(context, AxesOf(context.view).upright);
    widest = std::max(widest, context.measure.Width(mark.text, pixels, false));
  }
  return widest;
}

// Where data begin and plot and data end; what charts with a common day axis have in common.
struct SideEdges {
  double left = 0.0;
  double plot_right = 0.0;
  double right = 0.0;
};

// Legend, and a title that reads upwards at the lower right, share the column beside the plot. So
// does another chart that lies there.
void PlaceRightColumn(const DrawContext& context,
                      const std::optional<SideEdges>& edges,
                      ChartFrame& frame) {
  const ChartView& view = context.view;
  const double margin = kMargin * context.scale;
  const bool title_stands = !view.TitleText.empty() && AtBottom(view.title) && Upwards(view.title);
  const double title_length = title_stands ? TitleLength(context) + margin : 0.0;
  const double room = edges ? context.size.width - edges->plot_right - 2.3 * margin
                            : context.size.width * kLegendPart;
  frame.legend = PlanLegend(context, room, frame.plot.Height() - title_length);
  double width = frame.legend.width;
  if (title_stands) width = std::max(width, 1.0 * context.FontPixels(view.title.VtFont.Size));
  frame.plot.right = context.size.width - margin;
  if (width > 0.0) frame.plot.right -= width + 1.3 * margin;
  frame.plot.right = std::min(frame.plot.right, context.size.width - CoveredWidth(context));
  frame.plot.right = edges ? edges->plot_right : std::floor(frame.plot.right);
  frame.legend_at = {std::floor(frame.plot.right + 1.3 * margin), frame.plot.top};
}

// The rows of cells, counted from below, each so many that their numbers keep apart.
std::vector<ValueMark> CellMarks(const ChartView& view, int most) {
  const Kind& kind = KindOf(view);
  std::vector<ValueMark> marks;
  const int rows = view.rowcount();
  for (const int height : LabelledRows(view, 1.0 * rows / most)) {
    marks.push_back({1.0 * height, kind.RowText(view, rows + 1 - height), false});
  }
  return marks;
}

// What stands beside the plot, and whether lines go through it.
void PlaceMarks(const DrawContext& context, const AxisRanges& ranges, ChartFrame& frame) {
  const ChartView& view = context.view;
  const std::size_t axis = AxesOf(view).upright;
  const bool cells = KindOf(view).Positions() == PositionAxis::kCells;
  frame.guides = !cells && view.Plot.Axis[axis].AxisGrid.MajorPen.style != kPenNone;
  frame.labels_inside = !cells && view.Plot.Axis[axis].AxisScale.Hide;
  if (NoAxes(view)) {
    frame.guides = false;
    return;
  }
  if (!frame.guides && frame.labels_inside) return;
  const double room = kRowsPerMark * LabelPixels(context, axis);
  const int most = std::clamp(static_cast<int>(frame.plot.Height() / room), 1, kMostMarks);
  frame.marks = cells ? CellMarks(view, 2 * most)
                      : RoundMarks(ranges.values.low, ranges.values.high, most, view.facts.unit);
}

// The marks' texts stand left of the data: inside the plot, or outside where the scale shows.
void PlaceValueScale(const DrawContext& context,
                     const std::optional<SideEdges>& edges,
                     ChartFrame& frame) {
  const AxisRanges ranges = KindOf(context.view).Values(context.view);
  PlaceMarks(context, ranges, frame);
  const double gap = kLabelGap * context.scale;
  const double labels = frame.marks.empty() ? 0.0 : WidestMark(context, frame.marks) + gap;
  if (!frame.labels_inside)
    frame.plot.left += AxisTitleRoom(context, AxesOf(context.view).upright) + labels;
  frame.plot.left = std::round(frame.plot.left);
  const double inset = frame.labels_inside ? labels : 0.0;
  frame.scale = {.box = {std::round(frame.plot.left + inset),
                         frame.plot.top,
                         frame.plot.right - std::round(3.0 * context.scale),
                         frame.plot.bottom},
                 .first_position = ranges.positions.low,
                 .last_position = ranges.positions.high,
                 .lowest = ranges.values.low,
                 .highest = ranges.values.high};
  if (!edges) return;
  frame.scale.box.left = edges->left;
  frame.scale.box.right = edges->right;
}

PictureBox PlaceTitle(const DrawContext& context, const ChartFrame& frame) {
  const ChartView& view = context.view;
  if (view.TitleText.empty()) return {};
  const int pixels = context.FontPixels(view.title.VtFont.Size);
  const double margin = kMargin * context.scale;
  const double right = context.size.width - std::max(margin, CoveredWidth(context));
  const double length = std::min(TitleLength(context), right - margin);
  if (!AtBottom(view.title)) {
    const bool middle = view.title.Location.LocationType == kLocationTop;
    const double left = middle ? (context.size.width - length) / 2.0 : frame.plot.left;
    return {left, margin, left + length, margin + pixels};
  }
  if (Upwards(view.title)) {
    return {right - pixels, frame.plot.bottom - length, right, frame.plot.bottom};
  }
  return {right - length, frame.label_base - pixels, right, frame.label_base};
}

void DrawAxisTitles(const DrawContext& context, const ChartFrame& frame, ChartPicture& picture) {
  const FrameAxes axes = AxesOf(context.view);
  for (const std::size_t axis : {axes.across, axes.upright}) {
    if (!HasAxisTitle(context.view, axis)) continue;
    const auto& title = context.view.Plot.Axis[axis].AxisTitle;
    const int pixels = context.FontPixels(title.VtFont.Size);
    const PictureBox& box = frame.scale.box;
    const double below =
        context.size.height - kMargin * context.scale * 0.7 - FootnoteRoom(context) - 0.3 * pixels;
    const PicturePoint at =
        axis == axes.across
            ? PicturePoint{(box.left + box.right) / 2.0, below}
            : PicturePoint{LeftRoom(context) + kCapHeight * pixels, (box.top + box.bottom) / 2.0};
    picture.Add(DrawText{.text = title.Text,
                         .at = at,
                         .align = TextAlign::kCenter,
                         .pixel_size = pixels,
                         .upwards = axis == axes.upright,
                         .color = context.theme.label});
  }
}

void DrawFootnote(const DrawContext& context, ChartPicture& picture) {
  if (FootnoteRoom(context) <= 0.0) return;
  const ChartText& note = context.view.Footnote;
  const int pixels = context.FontPixels(note.VtFont.Size);
  const double margin = kMargin * context.scale;
  const bool unset = note.VtFont.VtColor == ChartColor{};
  const double room = context.size.width - 2.0 * margin;
  picture.Add(
      DrawText{.text = ElideText(context, note.Text, pixels, room),
               .at = {context.size.width - margin,
                      std::round(context.size.height - margin * 0.7 - 0.25 * pixels)},
               .align = TextAlign::kRight,
               .pixel_size = pixels,
               .color = unset ? context.theme.label : InkOn(context.theme, note.VtFont.VtColor)});
}

ChartFrame PlaceParts(const DrawContext& context, const std::optional<SideEdges>& edges) {
  ChartFrame frame;
  frame.plot.left = LeftRoom(context);
  frame.plot.top = std::round(TopRoom(context));
  frame.plot.bottom = std::round(context.size.height - BottomRoom(context));
  frame.label_base =
      std::round(frame.plot.bottom + kTickRoom * context.scale + 0.9 * LabelLine(context));
  PlaceRightColumn(context, edges, frame);
  PlaceValueScale(context, edges, frame);
  frame.title = PlaceTitle(context, frame);
  return frame;
}

bool IsOverDays(const ChartView& view) {
  return view.ColumnCount() > 0 && KindOf(view).Positions() == PositionAxis::kRowLabels;
}

// The sides that the chart and the one with which it shares its days both have room for. Both
// charts find the same ones: they are as wide, and the height is taken as one.
std::optional<SideEdges> CommonEdges(const DrawContext& context) {
  const ChartView* other = context.view.days_with;
  if (other == nullptr || !IsOverDays(context.view) || !IsOverDays(*other) ||
      other->rowcount() != context.view.rowcount()) {
    return std::nullopt;
  }
  const PictureSize size{context.size.width, context.size.width * kSharedHeight};
  const auto frame_of = [&](const ChartView& view) {
    return PlaceParts({view, context.measure, size, context.theme, TextScale(size), context.detail},
                      {});
  };
  const ChartFrame own = frame_of(context.view);
  const ChartFrame others = frame_of(*other);
  return SideEdges{.left = std::max(own.scale.box.left, others.scale.box.left),
                   .plot_right = std::min(own.plot.right, others.plot.right),
                   .right = std::min(own.scale.box.right, others.scale.box.right)};
}

}  // namespace

FrameAxes AxesOf(const ChartView& view) {
  if (KindOf(view).Positions() == PositionAxis::kCells) return {3, 0};
  return {};
}

double TextScale(PictureSize size) {
  constexpr PictureSize kDesignSize{640.0, 480.0};
  const double part = std::min(size.width / kDesignSize.width, size.height / kDesignSize.height);
  return std::clamp(std::sqrt(part), 0.8, 4.0);
}

ChartFrame PlaceFrame(const DrawContext& context) {
  return PlaceParts(context, CommonEdges(context));
}

void DrawTitles(const DrawContext& context, const ChartFrame& frame, ChartPicture& picture) {
  const ChartView& view = context.view;
  if (!view.TitleText.empty()) {
    const int pixels = context.FontPixels(view.title.VtFont.Size);
    const bool stands = AtBottom(view.title) && Upwards(view.title);
    const double ascent = kCapHeight * pixels;
    const PicturePoint at = stands ? PicturePoint{frame.title.right, frame.title.bottom}
                                   : PicturePoint{frame.title.left, frame.title.top + ascent};
    picture.Add(DrawText{.text = view.TitleText,
                         .at = {at.x, AtBottom(view.title) && !stands ? frame.label_base : at.y},
                         .pixel_size = pixels,
                         .bold = true,
                         .upwards = stands,
                         .color = context.theme.title});
  }
  DrawAxisTitles(context, frame, picture);
  DrawFootnote(context, picture);
}

}  // namespace vistaplot
