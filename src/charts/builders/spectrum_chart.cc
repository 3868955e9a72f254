#include "charts/builders/spectrum_chart.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "analytics/forecast.h"
#include "charts/builders/graph_selection.h"

namespace vistaplot {
namespace {

constexpr int kTrendColumn = 2;  // the last column that is no added forecast

void HideMark(ChartSeries& series, int day) {
  series.DataPoints.Item(day).Marker.Visible = false;
}

// Axes of periods and powers without grid and ticks.
void SetAxes(ChartView& view) {
  for (std::size_t axis = 0; axis < view.Plot.Axis.size(); ++axis) {
    ChartAxis& settings = view.Plot.Axis[axis];
    settings.AxisTitle.Visible = false;
    if (axis >= 2) {
      settings.AxisScale.Hide = true;
      continue;
    }
    settings.Labels.Auto = false;
    settings.AxisGrid.MajorPen.style = kPenNone;
    settings.Tick.Style = kTickNone;
  }
}

// What is marked on a day: on the price chart every series, on the powers the dominant period.
void MoveMarks(int from, int to, const ThreeCharts& charts) {
  for (ChartSeries& series : charts.prices.Plot.SeriesCollection) {
    HideMark(series, from);
    MarkDay(series, to);
  }
  std::vector<ChartSeries>& powers = charts.analysis.Plot.SeriesCollection;
  for (std::size_t s = 0; s < powers.size(); ++s) {
    HideMark(powers[s], from);
    const int column = static_cast<int>(s) + 1;
    if (s == 0) {
      MarkDay(powers[s], to);
    } else if (charts.analysis.HasPoint(from, column)) {
      MarkPeak(powers[s], from);
    }
  }
}

// The added series: the price of `day` and the forecast behind it.
void DrawForecast(int day, const std::vector<float>& forecast, float base, ChartView& view) {
  const int column = view.ColumnCount();
  if (view.HasPoint(day, 1)) view.SetData(day, column, view.DataAt(day, 1), false);
  for (std::size_t k = 0; k < forecast.size(); ++k) {
    const int row = day + 1 + static_cast<int>(k);
    view.SetData(row, column, static_cast<double>(forecast[k] / base - 1.0F), false);
  }
}

}  // namespace

std::string BuildSpectrumChart(const SpectrumState& state,
                               const ChartDisplay& display,
                               ChartView& view) {
  const RedrawPause pause(view);
  view.ToDefaults();
  const int periods = std::max<int>(state.MemPeriod, 0);
  if (periods * 2 > kMostPoints) {
    return "Too much data to graph, please choose a shorter time period or fewer funds";
  }
  view.ChartType = kChartCombination;
  SetTitle(view, "Spectrum", 8.0, kLocationTopLeft);
  view.rowcount(periods);
  view.ColumnCount(1);
  SetLegend(view, false);
  StyleSeries(view, false);
  SetAxes(view);
  PlacePlot(view, display, {0.0, 0.25}, {1.0, 1.5});
  view.facts.unit = ValueUnit::kPower;
  view.facts.row_name = "period";
  view.facts.Series(1).name = "power";
  for (int p = 1; p <= periods; ++p) {
    view.SetRowLabel(p, std::to_string(p));
    const float power = state.PowerSpectrum.Power(p, state.SpectrumDay);
    view.SetData(p, 1, static_cast<double>(power), false);
  }
  return {};
}

std::string StepSpectrum(int step,
                         const ChartDisplay& display,
                         SpectrumState& state,
                         const ThreeCharts& charts) {
  const int from = state.SpectrumDay;
  const int to =
      std::clamp(from + step, std::min(1, from), std::max<int>(state.SpectrumDays, from));
  if (to != from) {
    const RedrawPause price_pause(charts.prices);
    const RedrawPause analysis_pause(charts.analysis);
    state.SpectrumDay = static_cast<std::int16_t>(to);
    MoveMarks(from, to, charts);
    charts.prices.Refresh();
    charts.analysis.Refresh();
  }
  return BuildSpectrumChart(state, display, charts.spectrum);
}

std::string AddForecast(int day,
                        const IndicatorNumbers::Mem& mem,
                        const Sheet& prices,
                        const GraphSelection& selection,
                        const SpectrumState& state,
                        ChartView& price_chart) {
  if (day < 1 || day > state.SpectrumDays || price_chart.ColumnCount() < kTrendColumn) return {};
  IndicatorNumbers numbers;
  numbers.mem = mem;
  const Result<Indicators> counts = CountsOf(numbers);
  if (!counts) return "error: " + NumberedText(counts.Error());
  const FundPrices fund(
      prices, selection.ColumnOf(selection.FirstFund), selection.FirstDay, selection.ChartDays);
  const MemSettings& settings = *counts.Value().mem;
  const RedrawPause pause(price_chart);
  price_chart.ColumnCount(price_chart.ColumnCount() + 1);
  price_chart.SetColumnLabel(price_chart.ColumnCount(), " ");
  const ChartSeries& first = price_chart.Plot.Series(1);
  ChartSeries& added = price_chart.Plot.Series(price_chart.ColumnCount());
  added.SeriesMarker.Show = first.SeriesMarker.Show;
  added.SeriesType = first.SeriesType;
  added.showline = first.showline;
  added.Pen.Width = 1.0;
  added.Pen.VtColor.Set(0, 0, 255);
  const float base = selection.PriceBase.front();
  price_chart.facts.Series(price_chart.ColumnCount()) = {.name = "forecast",
                                                         .role = SeriesRole::kForecast,
                                                         .parent = 0,
                                                         .base = static_cast<double>(base),
                                                         .last_price_row = {}};
  if (base > 0.0F) {
    DrawForecast(day,
                 MemForecast(fund.Chart(), day, settings.longest_period, settings.poles),
                 base,
                 price_chart);
  }
  return {};
}

void ClearForecasts(ChartView& price_chart) {
  if (price_chart.ColumnCount() <= kTrendColumn) return;
  const RedrawPause pause(price_chart);
  price_chart.ColumnCount(kTrendColumn);
  price_chart.facts.series.resize(kTrendColumn);
}

void MarkDay(ChartSeries& series, int day) {
  ChartMarker& marker = series.DataPoints.Item(day).Marker;
  marker.Size = kDayMarkSize;
  marker.Visible = true;
  marker.style = kMarkerStar;
}

void MarkPeak(ChartSeries& series, int day) {
  ChartMarker& marker = series.DataPoints.Item(day).Marker;
  marker = {};
  marker.Size = kPeakMarkSize;
  marker.Visible = true;
}

}  // namespace vistaplot
