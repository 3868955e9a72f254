#include <algorithm>
#include <cmath>

#include "charts/kinds/cell_grid.h"
#include "charts/layout/layout_parts.h"

namespace vistaplot {
namespace {

constexpr double kLabelTick = 5.0;  // lengths at scale 1
constexpr double kTick = 3.0;
constexpr double kLeastTickStep = 5.0;
constexpr double kEdge = 2.0;  // labels keep off the picture's edge

double HairLine(const DrawContext& context) {
  return std::max(1.0, std::floor(context.scale));
}

struct AxisLabel {
  double x = 0.0;  // of the tick
  std::string text;
};

// Keeps labels apart, on the picture, and off the title.
class LabelRow {
 public:
  LabelRow(const DrawContext& context, const ChartFrame& frame)
      : context_(context),
        frame_(frame),
        pixels_(context.FontPixels(context.view.Plot.Axis[0].Labels.VtFont.Size)) {}

  double Width(const std::string& text) const {
    return context_.measure.Width(text, pixels_, false);
  }
  double Gap() const { return 0.9 * pixels_; }

  // Draws the label unless something is in its way.
  void Put(const AxisLabel& label, ChartPicture& picture) {
    const double half = Width(label.text) / 2.0;
    const double most = context_.size.width - kEdge - half;
    const double middle = std::clamp(label.x, std::min(kEdge + half, most), most);
    const PictureBox box{
        middle - half, frame_.label_base - pixels_, middle + half, frame_.label_base + 1.0};
    if (box.left < end_ || box.Overlaps(frame_.title)) return;
    end_ = box.right + 0.5 * Gap();
    picture.Add(DrawText{.text = label.text,
                         .at = {middle, frame_.label_base},
                         .align = TextAlign::kCenter,
                         .pixel_size = pixels_,
                         .color = context_.theme.label});
  }

 private:
  const DrawContext& context_;
  const ChartFrame& frame_;
  int pixels_;
  double end_ = 0.0;
};

bool Blank(const std::string& text) {
  return text.find_first_not_of(' ') == std::string::npos;
}

// Rows from label to label: the view's spacing, or the multiple of it that keeps labels apart.
int LabelSpacing(const ChartView& view, const LabelRow& labels, double row_width) {
  const auto& scale = view.Plot.Axis[0].CategoryScale;
  const int wanted = scale.Auto ? 1 : std::max(1, scale.DivisionsPerLabel);
  const int last = std::max(1, view.rowcount() - (view.rowcount() - 1) % wanted);
  const double width =
      std::max(labels.Width(view.RowLabelAt(1)), labels.Width(view.RowLabelAt(last)));
  const double needed = (width + labels.Gap()) / (wanted * row_width);
  const int factor = static_cast<int>(std::ceil(std::clamp(needed, 1.0, 1e6)));
  return wanted * (scale.Auto || wanted == 1 ? WholeStep(factor) : factor);
}

// Rows from tick to tick, so far apart that ticks can be told.
int TickSpacing(const DrawContext& context, double row_width) {
  const auto& scale = context.view.Plot.Axis[0].CategoryScale;
  const int wanted = std::max(1, scale.DivisionsPerTick);
  const double needed = kLeastTickStep * context.scale / (wanted * row_width);
  return wanted * static_cast<int>(std::ceil(std::clamp(needed, 1.0, 1e6)));
}

void DrawTick(const DrawContext& context,
              const ChartFrame& frame,
              double x,
              double length,
              ChartPicture& picture) {
  const double left = std::floor(x);
  const double hair = HairLine(context);
  picture.Add(FillBox{{left,
                       frame.plot.bottom + hair,
                       left + hair,
                       frame.plot.bottom + hair + std::round(length * context.scale)},
                      context.theme.axis});
}

void DrawRowAxis(const DrawContext& context, const ChartFrame& frame, ChartPicture& picture) {
  const ChartView& view = context.view;
  const int rows = view.rowcount();
  const double row_width = frame.scale.X(2.0) - frame.scale.X(1.0);
  LabelRow labels(context, frame);
  const int label_step = LabelSpacing(view, labels, row_width);
  const int tick_step = TickSpacing(context, row_width);
  const bool ticks = view.Plot.Axis[0].Tick.Style != kTickNone;
  const bool counted = !view.facts.row_name.empty();  // rows are numbers: label the round ones
  for (int row = counted ? label_step : 1; row <= rows; row += label_step) {
    const std::string& text = view.RowLabelAt(row);
    if (Blank(text)) continue;
    labels.Put({frame.scale.X(row), text}, picture);
    if (!ticks) continue;
    DrawTick(context, frame, frame.scale.X(row), kLabelTick, picture);
    const int next = row + label_step;
    for (int between = row + tick_step; between <= rows && next - between >= 0.75 * tick_step;
         between += tick_step) {
      DrawTick(context, frame, frame.scale.X(between), kTick, picture);
    }
  }
}

// The numbers of the columns of cells, each so many that they keep apart.
void DrawColumnAxis(const DrawContext& context, const ChartFrame& frame, ChartPicture& picture) {
  const ChartView& view = context.view;
  const Kind& kind = KindOf(view);
  const int columns = view.ColumnCount();
  LabelRow labels(context, frame);
  double widest = 0.0;
  for (const int column : {1, columns / 2 + 1, columns}) {
    widest = std::max(widest, labels.Width(kind.ColumnText(view, column)));
  }
  const double apart = frame.scale.X(2.0) - frame.scale.X(1.0);
  for (const int column : LabelledColumns(view, (widest + labels.Gap()) / apart)) {
    labels.Put({frame.scale.X(column), kind.ColumnText(view, column)}, picture);
    DrawTick(context, frame, frame.scale.X(column), kLabelTick, picture);
  }
}

void DrawNumberAxis(const DrawContext& context, const ChartFrame& frame, ChartPicture& picture) {
  LabelRow labels(context, frame);
  const PlotScale& scale = frame.scale;
  const double widest = std::max({labels.Width("0000"),
                                  labels.Width(MarkText(scale.first_position, 1.0, {})),
                                  labels.Width(MarkText(scale.last_position, 1.0, {}))});
  const double room = 2.0 * widest + labels.Gap();
  const int most = std::max(1, static_cast<int>(scale.box.Width() / room));
  const bool ticks = context.view.Plot.Axis[0].Tick.Style != kTickNone;
  for (const ValueMark& mark :
       RoundMarks(scale.first_position, scale.last_position, most, ValueUnit::kPlain)) {
    labels.Put({scale.X(mark.value), mark.text}, picture);
    if (ticks) DrawTick(context, frame, scale.X(mark.value), kLabelTick, picture);
  }
}

}  // namespace

void DrawValueAxis(const DrawContext& context, const ChartFrame& frame, ChartPicture& picture) {
  const int pixels =
      context.FontPixels(context.view.Plot.Axis[AxesOf(context.view).upright].Labels.VtFont.Size);
  const double hair = HairLine(context);
  const PictureBox& box = frame.scale.box;
  for (const ValueMark& mark : frame.marks) {
    const double y = std::round(frame.scale.Y(mark.value));
    if (frame.guides) {
      picture.Add(FillBox{{box.left, y, frame.plot.right, y + hair},
                          mark.zero ? context.theme.guide_zero : context.theme.guide});
    }
    const double base = y + kCapHeight * pixels / 2.0;
    if (base > frame.plot.bottom + 0.4 * pixels) continue;
    picture.Add(DrawText{.text = mark.text,
                         .at = {box.left - 5.0 * context.scale, std::round(base)},
                         .align = TextAlign::kRight,
                         .pixel_size = pixels,
                         .color = context.theme.label});
  }
}

void DrawPositionAxis(const DrawContext& context, const ChartFrame& frame, ChartPicture& picture) {
  const PositionAxis axis = KindOf(context.view).Positions();
  if (axis == PositionAxis::kNone) return;
  const double bottom = frame.plot.bottom;
  picture.Add(FillBox{{frame.scale.box.left, bottom, frame.plot.right, bottom + HairLine(context)},
                      context.theme.axis});
  if (axis == PositionAxis::kCells) return DrawColumnAxis(context, frame, picture);
  if (context.view.Plot.Axis[0].AxisScale.Hide || context.view.rowcount() < 1) return;
  if (axis == PositionAxis::kNumbers) {
    DrawNumberAxis(context, frame, picture);
  } else {
    DrawRowAxis(context, frame, picture);
  }
}

}  // namespace vistaplot
