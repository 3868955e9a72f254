#include <algorithm>
#include <cmath>
#include <limits>

#include "charts/layout/layout_parts.h"

namespace vistaplot {
namespace {

constexpr double kRowHeight = 1.5;  // in font sizes, as are the following
constexpr double kSwatchWidth = 1.6;
constexpr double kSwatchGap = 0.5;
constexpr double kColumnGap = 0.9;
constexpr double kLeastText = 4.6;  // a column narrower than this tells names no longer
constexpr double kLeastPoints = 6.0;

// The last value of a series; the lowest of all where it has none.
double LastValue(const ChartView& view, const DrawnSeries& series) {
  const std::vector<double>& values = view.ColumnData(series.y_column);
  const auto last = std::find_if(
      values.rbegin(), values.rend(), [](double value) { return std::isfinite(value); });
  return last == values.rend() ? std::numeric_limits<double>::lowest() : *last;
}

// In the order in which curves over rows end at the right, where the legend stands.
void OrderByLastValue(const ChartView& view, std::vector<LegendEntry>& entries) {
  if (KindOf(view).Positions() != PositionAxis::kRowLabels) return;
  std::stable_sort(
      entries.begin(), entries.end(), [&view](const LegendEntry& a, const LegendEntry& b) {
        return LastValue(view, a.series) > LastValue(view, b.series);
      });
}

std::vector<LegendEntry> EntriesOf(const ChartView& view, const ChartTheme& theme) {
  std::vector<LegendEntry> entries;
  for (const LegendMark& mark : KindOf(view).Legend(view, theme)) {
    entries.push_back({{}, mark.text, mark});
  }
  for (const DrawnSeries& series : KindOf(view).Series(view)) {
    const std::string label = view.ColumnLabelAt(series.LabelColumn());
    if (label.find_first_not_of(' ') != std::string::npos) {
      entries.push_back({series, label, {}});
    }
  }
  OrderByLastValue(view, entries);
  return entries;
}

double Widest(const DrawContext& context, const std::vector<LegendEntry>& entries, int pixels) {
  double widest = 0.0;
  for (const LegendEntry& entry : entries) {
    widest = std::max(widest, context.measure.Width(entry.text, pixels, false));
  }
  return widest;
}

struct Grid {
  int rows = 0;
  int columns = 0;
  double text_width = 0.0;  // of a column; texts beyond are cut
};

double SwatchRoom(int pixels) {
  return (kSwatchWidth + kSwatchGap) * pixels;
}

// The columns of `count` entries in that font: as many as needed, as long as each keeps kLeastText.
Grid FitGrid(int count, int pixels, double widest, double most_width, double most_height) {
  Grid grid;
  grid.rows = static_cast<int>(most_height / (kRowHeight * pixels));
  const double least = std::min(widest, kLeastText * pixels) + SwatchRoom(pixels);
  const int most_columns =
      static_cast<int>((most_width + kColumnGap * pixels) / (least + kColumnGap * pixels));
  if (grid.rows < 1 || most_columns < 1) return {};
  grid.columns = std::min((count + grid.rows - 1) / grid.rows, most_columns);
  const double gaps = (grid.columns - 1) * kColumnGap * pixels;
  const double room = (most_width - gaps) / grid.columns - SwatchRoom(pixels);
  grid.text_width = std::min(widest, room);
  return grid;
}

bool HoldsAll(const Grid& grid, int count, double widest) {
  return grid.rows * grid.columns >= count && (grid.columns == 1 || grid.text_width >= widest);
}

}  // namespace

LegendPlan PlanLegend(const DrawContext& context, double most_width, double most_height) {
  if (!context.view.Legend.Location.Visible) return {};
  std::vector<LegendEntry> entries = EntriesOf(context.view, context.theme);
  if (entries.empty()) return {};
  const int count = static_cast<int>(entries.size());
  const int least = std::min(context.FontPixels(kLeastPoints),
                             context.FontPixels(context.view.Legend.VtFont.Size));
  int pixels = context.FontPixels(context.view.Legend.VtFont.Size);
  const double widest_of_a_pixel = Widest(context, entries, pixels) / pixels;
  const auto grid_at = [&](int size) {
    return FitGrid(count, size, widest_of_a_pixel * size + 0.5, most_width, most_height);
  };
  Grid grid = grid_at(pixels);
  while (pixels > least && !HoldsAll(grid, count, widest_of_a_pixel * pixels)) {
    grid = grid_at(--pixels);
  }
  const int room = grid.rows * grid.columns;
  if (room == 0) return {};

  LegendPlan plan;
  plan.left_out = count > room ? count - room + 1 : 0;
  entries.resize(static_cast<std::size_t>(count - plan.left_out));
  for (LegendEntry& entry : entries) {
    entry.text = ElideText(context, entry.text, pixels, grid.text_width + 0.5);
  }
  plan.entries = std::move(entries);
  plan.rows = (std::min(count, room) + grid.columns - 1) / grid.columns;
  plan.pixels = pixels;
  plan.row_height = kRowHeight * pixels;
  plan.column_width = SwatchRoom(pixels) + grid.text_width + kColumnGap * pixels;
  plan.width = plan.column_width * grid.columns - kColumnGap * pixels;
  return plan;
}

void DrawLegend(const DrawContext& context,
                const LegendPlan& plan,
                PicturePoint at,
                ChartPicture& picture) {
  if (plan.width <= 0.0) return;
  picture.legend = {at.x, at.y, at.x + plan.width, at.y + plan.rows * plan.row_height};
  const auto cell = [&](int index) -> PicturePoint {
    const int column = index / plan.rows;
    const int row = index % plan.rows;
    return {std::round(at.x + column * plan.column_width),
            std::round(at.y + row * plan.row_height)};
  };
  const auto write = [&](PicturePoint corner, double indent, const std::string& text) {
    const double base = corner.y + (plan.row_height + kCapHeight * plan.pixels) / 2.0;
    picture.Add(DrawText{.text = text,
                         .at = {corner.x + indent, std::round(base)},
                         .pixel_size = plan.pixels,
                         .color = context.theme.title});
  };
  const Kind& kind = KindOf(context.view);
  int index = 0;
  for (const LegendEntry& entry : plan.entries) {
    const PicturePoint corner = cell(index++);
    const double right = corner.x + std::round(kSwatchWidth * plan.pixels);
    const PictureBox box{corner.x, corner.y, right, corner.y + plan.row_height};
    if (entry.mark) {
      DrawLegendMark(*entry.mark, box, picture);
    } else {
      kind.DrawSwatch(context, entry.series, box, picture);
    }
    write(corner, SwatchRoom(plan.pixels), entry.text);
  }
  if (plan.left_out > 0) {
    write(cell(index), 0.0, std::string("+").append(std::to_string(plan.left_out)).append(" more"));
  }
}

}  // namespace vistaplot
