#include "ui/chart/read_out.h"

#include <algorithm>
#include <cmath>

#include "base/number_text.h"
#include "base/text.h"
#include "charts/kinds/value_marks.h"
#include "charts/layout/layout_parts.h"
#include "charts/view/palette.h"

namespace vistaplot {
namespace {

constexpr const char* kNothing = "–";
constexpr const char* kMinus = "−";

// A plain value with enough decimals for its size, without an exponent where it can be.
std::string PlainValue(double value) {
  if (std::abs(value) >= 1e9) return ExactText(static_cast<float>(value));
  std::string text = NumberText(static_cast<float>(value));
  if (text.starts_with('-')) text.replace(0, 1, kMinus);
  return text;
}

std::string ValueOf(const ChartView& view, const DrawnSeries& series, int row, ValueUnit unit) {
  const double value = view.DataAt(row, series.y_column);
  switch (unit) {
    case ValueUnit::kChange:
      return PercentText(value);
    case ValueUnit::kRatio:
      return PercentText(value - 1.0);
    case ValueUnit::kPlain:
      break;
  }
  return PlainValue(value);
}

std::string LabelOf(const ChartView& view, const DrawnSeries& series) {
  const int column = series.x_column > 0 ? series.x_column : series.y_column;
  return std::string(TrimBlanks(view.ColumnLabelAt(column)));
}

PictureColor MarkOf(const ChartView& view, int series, bool dark) {
  const ChartColor& pen = SettingsOf(view, series).Pen.VtColor;
  return InkOn(dark ? DarkTheme() : LightTheme(),
               pen == ChartColor{} ? DefaultSeriesColor(series) : pen);
}

std::string HeadingOf(const ChartView& view, const std::vector<DrawnSeries>& series, int row) {
  for (const DrawnSeries& drawn : series) {
    if (drawn.x_column == 0) break;
    if (view.HasPoint(row, drawn.x_column)) return PlainValue(view.DataAt(row, drawn.x_column));
  }
  return std::string(TrimBlanks(view.RowLabelAt(row)));
}

std::string Joined(const ReadOut& read_out, const char* between) {
  std::string text = read_out.heading;
  for (const ReadOutEntry& entry : read_out.entries) {
    text.append(between).append(entry.label).append(" ").append(entry.value);
  }
  return text;
}

// A rebased series starts at 0 by definition, and a day at the same price may differ from that by
// the rounding of its base.
bool SameValue(double a, double b) {
  constexpr double kRounding = 1e-6;
  return std::abs(a - b) <= kRounding * std::max(1.0, std::abs(a));
}

// The first row of those up to the last over which the column keeps its value, without a gap.
int QuietFrom(const ChartView& view, int column) {
  int first = view.rowcount();
  const double kept = view.DataAt(first, column);
  while (first > 1 && SameValue(view.DataAt(first - 1, column), kept)) --first;
  return first;
}

}  // namespace

int QuietFrom(const ChartView& view) {
  const std::vector<DrawnSeries> all = SeriesOf(view);
  int from = all.empty() ? 0 : 1;
  for (const DrawnSeries& series : all) {
    if (series.x_column > 0) return 0;
    from = std::max(from, QuietFrom(view, series.y_column));
    if (view.rowcount() - from < kQuietRows) return 0;
  }
  return from;
}

ReadOut ReadRow(const ChartView& view, int row, const PointText& price_text, bool dark) {
  const std::vector<DrawnSeries> all = SeriesOf(view);
  const ValueUnit unit = ValueUnitOf(view);
  ReadOut read_out{HeadingOf(view, all, row), {}};
  read_out.entries.reserve(all.size());
  for (const DrawnSeries& series : all) {
    ReadOutEntry entry{
        series.number, MarkOf(view, series.number, dark), LabelOf(view, series), kNothing};
    if (view.HasPoint(row, series.y_column)) {
      entry.value = ValueOf(view, series, row, unit);
      const bool rebased = unit != ValueUnit::kPlain;
      const std::string price = rebased && price_text ? price_text(series.number, row) : "";
      if (!price.empty()) entry.value = price + " " + entry.value;
    }
    read_out.entries.push_back(std::move(entry));
  }
  return read_out;
}

std::string PercentText(double change) {
  const std::string size = FixedText(std::abs(change) * 100.0, 2);
  if (size == "0.00") return "0.00%";
  return (change < 0.0 ? kMinus : "+") + size + "%";
}

std::string LineText(const ReadOut& read_out) {
  return Joined(read_out, ", ");
}

std::string ListText(const ReadOut& read_out) {
  return Joined(read_out, "\n");
}

}  // namespace vistaplot
