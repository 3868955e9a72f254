#include "charts/kinds/boxes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <numbers>

#include "base/number_text.h"

namespace vistaplot {
namespace {

constexpr int kColumns = 40;        // of every chart
constexpr double kFlattest = 2.0;   // width of a figure in its heights, and the reverse
constexpr double kStroke = 1.4;     // at scale 1
constexpr int kRoundCorners = 28;   // of an O
constexpr double kDateRoom = 0.05;  // of all levels

int BoxCount(const ChartView& view) {
  return std::min(static_cast<int>(view.facts.boxes.size()), view.rowcount());
}

const BoxFacts& BoxAt(const ChartView& view, int row) {
  return view.facts.boxes[static_cast<std::size_t>(row - 1)];
}

bool IsDrawn(const ChartView& view, int row) {
  return row >= 1 && row <= BoxCount(view) && view.HasPoint(row, 1) && view.HasPoint(row, 2);
}

// The level with the decimals that boxes have: two, or more where they are finer.
std::string LevelText(double level) {
  const double cents = level * 100.0;
  const bool fine = std::abs(cents - std::round(cents)) > 1e-3 * std::max(1.0, std::abs(cents));
  return fine ? NumberText(static_cast<float>(level)) : FixedText(level, 2);
}

// One column wide and one level high.
PictureBox Cell(const ChartView& view, int row, const PlotScale& scale) {
  const double column = view.DataAt(row, 1);
  const double level = view.DataAt(row, 2);
  const double half = BoxAt(view, row).size / 2.0;
  return {
      scale.X(column - 0.5), scale.Y(level + half), scale.X(column + 0.5), scale.Y(level - half)};
}

// Where an X or O stands: the cell less a pixel on each side, no flatter than 1 to 2 either way.
PictureBox FigureIn(const PictureBox& cell) {
  const double high = std::max(1.0, cell.Height() - 2.0);
  const double wide = std::max(1.0, cell.Width() - 2.0);
  const double width = std::min(wide, kFlattest * high) / 2.0;
  const double height = std::min(high, kFlattest * wide) / 2.0;
  const double x = (cell.left + cell.right) / 2.0;
  const double y = (cell.top + cell.bottom) / 2.0;
  return {x - width, y - height, x + width, y + height};
}

void DrawX(const PictureBox& box, PictureColor ink, double width, ChartPicture& picture) {
  const double in = width / 2.0;  // strokes end inside the box
  const PictureBox b{box.left + in, box.top + in, box.right - in, box.bottom - in};
  picture.Add(StrokeLine{{{b.left, b.top}, {b.right, b.bottom}}, ink, width});
  picture.Add(StrokeLine{{{b.left, b.bottom}, {b.right, b.top}}, ink, width});
}

void DrawO(const PictureBox& box, PictureColor ink, double width, ChartPicture& picture) {
  StrokeLine ring{.points = {}, .color = ink, .width = width};  // several times faster than a shape
  const double x = (box.left + box.right) / 2.0;
  const double y = (box.top + box.bottom) / 2.0;
  const double across = std::max(0.5, (box.Width() - width) / 2.0);
  const double up = std::max(0.5, (box.Height() - width) / 2.0);
  for (int corner = 0; corner <= kRoundCorners; ++corner) {
    const double angle = 2.0 * std::numbers::pi * corner / kRoundCorners;
    ring.points.push_back({x + across * std::cos(angle), y + up * std::sin(angle)});
  }
  picture.Add(std::move(ring));
}

PictureColor BoxInk(const ChartView& view, int row, const ChartTheme& theme) {
  constexpr ChartColor kRising{0, 0, 255};
  constexpr ChartColor kFalling{255, 0, 0};
  const bool rises = BoxAt(view, row).rises;
  for (const auto& [point, own] : SettingsOf(view, 1).DataPoints.items) {
    if (point == row && !(own.Marker.Pen.VtColor == ChartColor{})) {
      return InkOn(theme, own.Marker.Pen.VtColor);
    }
    if (point > row) break;
  }
  return InkOn(theme, rises ? kRising : kFalling);
}

// The date of each column's first X box below it, moved sideways into the plot and down to where it
// covers no figure and no other date; a thin line leads to one that stands lower. Further boxes of
// a column have no room below them, the view keeps their dates.
class DateLabels {
 public:
  DateLabels(const DrawContext& context, const PlotScale& scale, ChartPicture& picture)
      : context_(context), scale_(scale), picture_(picture) {
    for (int row = 1; row <= BoxCount(context.view); ++row) {
      if (IsDrawn(context.view, row)) taken_.push_back(Cell(context.view, row, scale));
    }
  }

  void Write() {
    double column = 0.0;
    for (const auto& [row, own] : SettingsOf(context_.view, 1).DataPoints.items) {
      if (!own.DataPointLabel || !IsDrawn(context_.view, row)) continue;
      const double here = context_.view.DataAt(row, 1);
      if (here != column) Put(Cell(context_.view, row, scale_), *own.DataPointLabel);
      column = here;
    }
  }

 private:
  void Put(const PictureBox& cell, const ChartPointLabel& label) {
    const int pixels = context_.FontPixels(label.VtFont.Size);
    const double half = context_.measure.Width(label.Text, pixels, false) / 2.0 + 1.0;
    const double column = (cell.left + cell.right) / 2.0;
    const double x = std::max(std::min(column, scale_.box.right - half), scale_.box.left + half);
    const PictureBox place{x - half, cell.bottom + 1.0, x + half, cell.bottom + pixels};
    const PictureBox box = FirstFree(place);
    if (box.bottom > scale_.box.bottom) return;
    if (box.top > place.top) {
      const double left = std::floor(column * context_.detail) / context_.detail;
      const PictureBox line{left, place.top, left + 1.0 / context_.detail, box.top};
      if (FirstFree(line).top > line.top) return;
      taken_.push_back(line);
      picture_.Add(FillBox{line, context_.theme.axis});
    }
    taken_.push_back(box);
    picture_.Add(DrawText{.text = label.Text,
                          .at = {x, std::round(box.bottom - 0.15 * pixels)},
                          .align = TextAlign::kCenter,
                          .pixel_size = pixels,
                          .color = context_.theme.label});
  }

  // `box`, or as far below it as nothing else stands.
  PictureBox FirstFree(PictureBox box) const {
    std::vector<PictureBox> near;
    std::copy_if(taken_.begin(), taken_.end(), std::back_inserter(near), [&](const auto& other) {
      return other.left < box.right && box.left < other.right && box.top < other.bottom;
    });
    std::sort(near.begin(), near.end(), [](const PictureBox& a, const PictureBox& b) {
      return a.top < b.top;
    });
    const double height = box.Height();
    for (const PictureBox& other : near) {
      if (!box.Overlaps(other)) continue;
      box.top = other.bottom + 1.0;
      box.bottom = box.top + height;
    }
    return box;
  }

  const DrawContext& context_;
  const PlotScale& scale_;
  ChartPicture& picture_;
  std::vector<PictureBox> taken_;
};

class BoxKind : public Kind {
 public:
  PositionAxis Positions() const override { return PositionAxis::kNumbers; }

  std::vector<DrawnSeries> Series(const ChartView& view) const override {
    if (view.ColumnCount() < 2) return {};
    return {{.number = 1, .settings = 1, .x_column = 1, .y_column = 2}};
  }

  AxisRanges Values(const ChartView& view) const override {
    ValueRange levels = EmptyRange();
    double box = 0.0;
    for (int row = 1; row <= BoxCount(view); ++row) {
      if (!IsDrawn(view, row)) continue;
      const double half = BoxAt(view, row).size / 2.0;
      Include(levels, view.DataAt(row, 2) - half);
      Include(levels, view.DataAt(row, 2) + half);
      box = std::max(box, 2.0 * half);
    }
    if (levels.low > levels.high) return {{0.5, kColumns + 0.5}, FixedOrMargin(view, levels)};
    // Below the lowest box, room for a date.
    const double below = std::max(box, kDateRoom * (levels.high - levels.low));
    return {{0.5, kColumns + 0.5}, {levels.low - below, levels.high + box / 2.0}};
  }

  void Draw(const DrawContext& context,
            const PlotScale& scale,
            ChartPicture& picture) const override {
    const ChartView& view = context.view;
    const double width = std::max(1.0, kStroke * context.scale);
    for (int row = 1; row <= BoxCount(view); ++row) {
      if (!IsDrawn(view, row)) continue;
      const PictureBox cell = Cell(view, row, scale);
      const PictureBox figure = FigureIn(cell);
      const double stroke = std::min(width, std::max(1.0, figure.Height() / 4.0));
      const PictureColor ink = BoxInk(view, row, context.theme);
      (BoxAt(view, row).rises ? DrawX : DrawO)(figure, ink, stroke, picture);
      picture.regions.push_back({cell, 1, row});
    }
    DateLabels(context, scale, picture).Write();
  }

  void DrawSwatch(const DrawContext& context,
                  const DrawnSeries& /*series*/,
                  const PictureBox& box,
                  ChartPicture& picture) const override {
    const double half = std::round(box.Height() * 0.24);
    const double middle = std::round((box.top + box.bottom) / 2.0);
    const double width = std::max(1.0, kStroke * context.scale);
    const auto square = [&](double x) {
      return PictureBox{x - half, middle - half, x + half, middle + half};
    };
    DrawX(square(box.left + half), InkOn(context.theme, {0, 0, 255}), width, picture);
    DrawO(square(box.right - half), InkOn(context.theme, {255, 0, 0}), width, picture);
  }

  StopList Stops(const ChartView& view) const override {
    std::vector<Stop> stops;
    for (int row = 1; row <= BoxCount(view); ++row) {
      if (!IsDrawn(view, row)) continue;
      stops.push_back({.position = view.DataAt(row, 1), .row = row, .value = view.DataAt(row, 2)});
    }
    return StopList(std::move(stops), /*stacked=*/true);
  }

  /// "ABC box 23.40, column 7, since 03/14/23".
  ReadOut ReadAt(const ChartView& view,
                 int row,
                 int /*column*/,
                 const ChartTheme& theme) const override {
    if (!IsDrawn(view, row)) return {};
    const double level = view.DataAt(row, 2);
    const int column = static_cast<int>(std::lround(view.DataAt(row, 1)));
    const DrawnSeries series = Series(view).front();
    const std::string name = ReadOutName(view, series) + " box";
    const std::string text = LevelText(level) + ", column " + std::to_string(column) + ", since " +
                             BoxAt(view, row).date;
    ReadOutEntry entry{.series = series.number,
                       .mark = BoxInk(view, row, theme),
                       .label = name,
                       .text = text,
                       .values = {{name, text, SevenDigitValue(static_cast<float>(level)), {}}},
                       .at = PicturePoint{1.0 * column, level}};
    return {.heading = {}, .at = BoxAt(view, row).date, .entries = {std::move(entry)}};
  }
};

}  // namespace

const Kind& Boxes() {
  static const BoxKind kind;
  return kind;
}

}  // namespace vistaplot
