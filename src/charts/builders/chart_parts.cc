#include "charts/builders/chart_parts.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "base/date.h"

namespace vistaplot {
namespace {

constexpr double kDesignWidth = 9600.0;  // twips
constexpr double kDesignHeight = 7200.0;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// The label "mm/dd/yy" of a date as the loaders write it, "mm/dd/yyyy" up to the 28th, cut out of
// the text; empty for any other text. Long charts have 12,000 of them.
std::string_view CutRowLabel(std::string_view date, std::array<char, 8>& label) {
  constexpr std::string_view kPattern = "00/00/0000";
  if (date.size() != kPattern.size()) return {};
  for (std::size_t i = 0; i < date.size(); ++i) {
    if (kPattern[i] == '0' ? !IsDigit(date[i]) : date[i] != kPattern[i]) return {};
  }
  const int month = (date[0] - '0') * 10 + (date[1] - '0');
  const int day = (date[3] - '0') * 10 + (date[4] - '0');
  if (month < 1 || month > 12 || day < 1 || day > 28 || date[6] == '0') return {};
  std::copy_n(date.begin(), 6, label.begin());
  std::copy_n(date.begin() + 8, 2, label.begin() + 6);
  return {label.data(), label.size()};
}

}  // namespace

void ChooseFunds(bool one_at_a_time, GraphSelection& selection) {
  const std::int16_t last = selection.SelectedCount;
  const std::int16_t current = std::min(std::max(selection.CurrentFund, std::int16_t{1}), last);
  selection.FirstFund = one_at_a_time ? current : std::int16_t{1};
  selection.LastFund = one_at_a_time ? current : last;
}

int DrawnFunds(const GraphSelection& selection) {
  return std::max(selection.LastFund - selection.FirstFund + 1, 0);
}

void SetTitle(ChartView& view, const std::string& text, double size, int location) {
  view.TitleText = text;
  view.title.VtFont.Size = size;
  view.title.Location.LocationType = location;
}

void SetLegend(ChartView& view, bool visible) {
  view.Legend.VtFont.Size = 8.0;
  view.Legend.Location.Visible = visible;
  view.Legend.Location.LocationType = kLocationRight;
}

void PlacePlot(ChartView& view, const ChartDisplay& display, ChartPoint min, ChartPoint max) {
  ChartPlot& plot = view.Plot;
  plot.AutoLayout = false;
  plot.LocationRect.Min = min;
  plot.LocationRect.Max = {display.width * max.X / kDesignWidth,
                           display.height * max.Y / kDesignHeight};
  plot.UniformAxis = false;
}

void StyleSeries(ChartView& view, bool scatter) {
  for (ChartSeries& series : view.Plot.SeriesCollection) {
    series.SeriesMarker.Show = scatter;
    series.SeriesType = kSeriesLine;
    series.showline = !scatter;
    series.Pen.Width = 1.0;
  }
}

void LabelDays(ChartView& view, const Sheet& prices, int first_day, int days) {
  std::array<char, 8> label{};
  for (int i = 1; i <= days; ++i) {
    const std::string date = prices.CellText(first_day + i, 1);
    const std::string_view cut = CutRowLabel(date, label);
    if (cut.empty()) {
      view.SetRowLabel(i, DateLabel(date));
    } else {
      view.SetRowLabel(i, cut);
    }
  }
  for (int i = days + 1; i <= view.rowcount(); ++i) view.SetRowLabel(i, " ");
}

std::string DateLabel(const std::string& text) {
  const std::optional<DateSerial> date = ParseDate(text);
  return date ? DateText(*date, DatePattern::kMonthDayShortYear) : text;
}

void SetDateAxes(ChartView& view, int divisions_per_label, int divisions_per_tick) {
  ChartAxis& dates = view.Plot.Axis[0];
  dates.Labels.Auto = false;
  dates.Labels.VtFont.Size = 8.0;
  dates.Labels.TextLayout.Orientation = kOrientationHorizontal;
  dates.AxisTitle.Visible = false;
  dates.CategoryScale.Auto = false;
  dates.CategoryScale.DivisionsPerLabel = divisions_per_label;
  dates.CategoryScale.DivisionsPerTick = divisions_per_tick;
  dates.CategoryScale.LabelTick = true;
  for (std::size_t axis = 1; axis < view.Plot.Axis.size(); ++axis) {
    view.Plot.Axis[axis].AxisTitle.Visible = false;
    view.Plot.Axis[axis].AxisScale.Hide = true;
  }
}

}  // namespace vistaplot
