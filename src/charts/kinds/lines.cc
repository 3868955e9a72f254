#include "charts/kinds/lines.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "base/text.h"
#include "charts/kinds/curves.h"
#include "charts/kinds/line_hits.h"
#include "charts/kinds/point_marks.h"

namespace vistaplot {
namespace {

/// What lines over rows and over X values share.
class LineKind : public Kind {
 public:
  void Draw(const DrawContext& context,
            const PlotScale& scale,
            ChartPicture& picture) const override {
    const std::vector<DrawnSeries> all = Series(context.view);
    DrawCurves(context, all, scale, picture);
    DrawPointMarks(context, all, scale, picture);
  }

  void DrawSwatch(const DrawContext& context,
                  const DrawnSeries& series,
                  const PictureBox& box,
                  ChartPicture& picture) const override {
    const ChartSeries& settings = SettingsOf(context.view, series.settings);
    if (settings.showline) DrawCurveSwatch(context, series, box, picture);
    if (!settings.SeriesMarker.Show && settings.showline) return;
    const PicturePoint middle{(box.left + box.right) / 2.0,
                              std::round((box.top + box.bottom) / 2.0)};
    picture.Add(StampMarkers{.shape = SeriesMarkerShape(series.settings),
                             .size = std::round(box.Height() * 0.5),
                             .width = context.scale * 1.2,
                             .color = SeriesInk(context.view, series.settings, context.theme),
                             .centers = {middle}});
  }

  std::optional<ChartHit> HitAt(const ChartView& view,
                                const ChartPicture& picture,
                                PicturePoint at,
                                double reach) const override {
    return FindOnLines(view, Series(view), picture.scale, at, reach);
  }

  ReadOut ReadAt(const ChartView& view,
                 int row,
                 int /*column*/,
                 const ChartTheme& theme) const override {
    const std::vector<DrawnSeries> all = Series(view);
    ReadOut read_out{Heading(view, all, row), {}, {}};
    read_out.at = read_out.heading;
    read_out.entries.reserve(all.size());
    for (const DrawnSeries& series : all) {
      read_out.entries.push_back(ReadEntry(view, series, row, theme));
    }
    return read_out;
  }

 protected:
  virtual std::string Heading(const ChartView& view,
                              const std::vector<DrawnSeries>& all,
                              int row) const = 0;

 private:
  // A price behind the last real day.
  static bool IsForecast(const ChartView& view, const DrawnSeries& series, int row) {
    const ChartFacts& facts = view.facts;
    return facts.last_real_row > 0 && row > facts.last_real_row &&
           facts.SeriesAt(series.number).role == SeriesRole::kPlain;
  }

  static ReadOutEntry ReadEntry(const ChartView& view,
                                const DrawnSeries& series,
                                int row,
                                const ChartTheme& theme) {
    ReadOutEntry entry{.series = series.number,
                       .mark = SeriesInk(view, series.settings, theme),
                       .label = ReadOutName(view, series),
                       .text = kNoReading,
                       .values = {},
                       .at = {}};
    if (!view.HasPoint(row, series.y_column)) return entry;
    const double value = view.DataAt(row, series.y_column);
    const bool forecast = IsForecast(view, series, row);
    if (forecast) entry.label = "forecast";
    if (series.x_column == 0) {
      entry.at = PicturePoint{1.0 * row, value};
    } else if (view.HasPoint(row, series.x_column)) {
      entry.at = PicturePoint{view.DataAt(row, series.x_column), value};
    }
    const bool loaded = view.facts.SeriesAt(series.number).role == SeriesRole::kPlain && !forecast;
    entry.values.push_back(ReadValue(view, series, value, !loaded));
    entry.values.front().name = entry.label;
    entry.text = entry.values.front().text;
    return entry;
  }
};

class RowLines : public LineKind {
 public:
  std::vector<DrawnSeries> Series(const ChartView& view) const override {
    std::vector<DrawnSeries> series;
    series.reserve(static_cast<std::size_t>(view.ColumnCount()));
    for (int c = 1; c <= view.ColumnCount(); ++c) {
      series.push_back({.number = c, .settings = c, .x_column = 0, .y_column = c});
    }
    return series;
  }

  AxisRanges Values(const ChartView& view) const override {
    ValueRange values = EmptyRange();
    for (int c = 1; c <= view.ColumnCount(); ++c) IncludeFinite(values, view.ColumnData(c));
    if (IsRebased(view.facts.unit)) values = WithoutNoise(values);
    return {RowRange(view.rowcount()), FixedOrMargin(view, values)};
  }

  StopList Stops(const ChartView& view) const override {
    return view.ColumnCount() > 0 ? StopList::OfRows(view.rowcount()) : StopList();
  }

 protected:
  std::string Heading(const ChartView& view,
                      const std::vector<DrawnSeries>& /*all*/,
                      int row) const override {
    const std::string label(TrimBlanks(view.RowLabelAt(row)));
    const ChartFacts& facts = view.facts;
    if (label.empty() && facts.last_real_row > 0 && row > facts.last_real_row) {
      return "forecast day " + std::to_string(row - facts.last_real_row);
    }
    return facts.row_name.empty() ? label : facts.row_name + " " + label;
  }
};

class XyLines : public LineKind {
 public:
  PositionAxis Positions() const override { return PositionAxis::kNumbers; }

  std::vector<DrawnSeries> Series(const ChartView& view) const override {
    std::vector<DrawnSeries> series;
    for (int c = 1; c + 1 <= view.ColumnCount(); c += 2) {
      const int number = (c + 1) / 2;
      series.push_back({.number = number, .settings = number, .x_column = c, .y_column = c + 1});
    }
    return series;
  }

  AxisRanges Values(const ChartView& view) const override {
    AxisRanges ranges{EmptyRange(), EmptyRange()};
    for (const DrawnSeries& series : Series(view)) {
      IncludePairs(ranges, view.ColumnData(series.x_column), view.ColumnData(series.y_column));
    }
    return {WithMargin(ranges.positions, 0.02), FixedOrMargin(view, ranges.values)};
  }

  StopList Stops(const ChartView& view) const override {
    const std::vector<DrawnSeries> all = Series(view);
    std::vector<Stop> stops;
    for (int row = 1; row <= view.rowcount(); ++row) {
      const auto drawn = std::find_if(all.begin(), all.end(), [&](const DrawnSeries& s) {
        return view.HasPoint(row, s.x_column) && view.HasPoint(row, s.y_column);
      });
      if (drawn == all.end()) continue;
      stops.push_back({.position = view.DataAt(row, drawn->x_column), .row = row});
    }
    return StopList(std::move(stops));
  }

 protected:
  std::string Heading(const ChartView& view,
                      const std::vector<DrawnSeries>& all,
                      int row) const override {
    for (const DrawnSeries& drawn : all) {
      if (view.HasPoint(row, drawn.x_column)) {
        return PlainValueText(view.DataAt(row, drawn.x_column));
      }
    }
    return std::string(TrimBlanks(view.RowLabelAt(row)));
  }
};

}  // namespace

const Kind& LinesOverRows() {
  static const RowLines kind;
  return kind;
}

const Kind& PointsOverValues() {
  static const XyLines kind;
  return kind;
}

}  // namespace vistaplot
