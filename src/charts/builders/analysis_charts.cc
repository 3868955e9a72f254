#include "charts/builders/analysis_charts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "analytics/correlation.h"
#include "analytics/hurst.h"
#include "base/text.h"
#include "charts/builders/graph_selection.h"
#include "charts/builders/time_periods.h"

namespace vistaplot {
namespace {

/// One build of the chart below the price chart, whose rows it shares.
class Builder {
 public:
  Builder(const PriceChartRequest& request,
          const Indicators& indicators,
          const Sheet& prices,
          const GraphSelection& selection,
          ChartView& view)
      : request_(request),
        indicators_(indicators),
        prices_(prices),
        selection_(selection),
        view_(view) {}

  void Build(int rows, const DailySpectrum& spectrum) {
    const int funds = DrawnFunds(selection_);
    view_.ChartType = kChartCombination;
    SetTitle(view_, Title(), 8.0, kLocationBottomRight);
    view_.rowcount(rows);
    view_.ColumnCount(funds + (indicators_.mem ? static_cast<int>(kPeaks) : 0));
    SetLegend(view_, indicators_.mem || indicators_.hurst);
    PlacePlot(view_, request_.display, {0.1, 0.0}, {5.6, 1.8});
    StyleSeries(view_, request_.scatter);
    LabelColumns(funds);
    LabelDays(view_, prices_, selection_.FirstDay, selection_.ChartDays);
    const TimePeriod& period = TimePeriodAt(selection_.TimePeriodIndex);
    SetDateAxes(view_, period.divisions_per_label, period.divisions_per_tick);
    if (indicators_.mem) {
      DrawPowers(spectrum);
    } else if (indicators_.hurst) {
      DrawHurst();
    } else {
      DrawCorrelation();
    }
  }

 private:
  const char* Title() const {
    if (indicators_.mem) return "POWER";
    return indicators_.hurst ? "HURST EXPONENT" : "CORRELATION";
  }

  void LabelColumns(int funds) {
    for (int k = 1; k <= funds; ++k) {
      const int table_column = selection_.ColumnOf(selection_.FirstFund + k - 1);
      view_.SetColumnLabel(k, prices_.CellText(1, table_column));
    }
    for (int column = funds + 1; column <= view_.ColumnCount(); ++column) {
      view_.SetColumnLabel(column, std::to_string(column - funds) + "Peak");
    }
  }

  // Values as computed; days without one stay empty.
  void SetSeries(int column, const std::vector<float>& values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (std::isnan(values[i])) continue;
      view_.SetData(static_cast<int>(i) + 1, column, static_cast<double>(values[i]), false);
    }
  }

  std::string SymbolOf(int position) const {
    return std::string(TrimBlanks(prices_.CellText(1, selection_.ColumnOf(position))));
  }

  FundPrices Fund(int position) const {
    return {prices_, selection_.ColumnOf(position), selection_.FirstDay, selection_.ChartDays};
  }

  void DrawHurst() {
    view_.facts.unit = ValueUnit::kCoefficient;
    float y = 0.0F;
    for (int fund = selection_.FirstFund; fund <= selection_.LastFund; ++fund) {
      const FundPrices prices = Fund(fund);
      const HurstSeries hurst = ComputeHurst(prices.Chart(), *indicators_.hurst, y);
      const int series = fund - selection_.FirstFund + 1;
      SetSeries(series, hurst.values);
      view_.facts.Series(series).name = SymbolOf(fund) + " Hurst exponent";
      y = hurst.last_y;
    }
  }

  // Of the first two selected funds, whichever are drawn.
  void DrawCorrelation() {
    const FundPrices first = Fund(1);
    const FundPrices second = Fund(2);
    view_.facts.unit = ValueUnit::kCoefficient;
    view_.facts.Series(1).name = "correlation";
    SetSeries(1, ComputeCorrelation(first.Chart(), second.Chart(), *indicators_.correlation));
  }

  // The dominant periods as a line and the peaks beside them as markers.
  void DrawPowers(const DailySpectrum& spectrum) {
    SetSeries(1, spectrum.dominant);
    view_.facts.unit = ValueUnit::kPeriod;
    view_.facts.last_real_row = selection_.ChartDays;
    view_.facts.Series(1).name = "dominant period";
    for (int k = 1; k <= static_cast<int>(kPeaks); ++k) {
      ChartSeries& series = view_.Plot.Series(k + 1);
      series.SeriesMarker.Show = false;
      series.showline = false;
      view_.facts.Series(k + 1).name = "peak " + std::to_string(k);
      view_.facts.Series(k + 1).role = SeriesRole::kPeak;
      for (int day = 1; day <= spectrum.Days(); ++day) DrawPeak(spectrum, day, k);
    }
    for (ChartSeries& series : view_.Plot.SeriesCollection) MarkDay(series, selection_.ChartDays);
  }

  void DrawPeak(const DailySpectrum& spectrum, int day, int k) {
    const auto index = static_cast<std::size_t>(day - 1);
    const int peak = spectrum.peaks[index][static_cast<std::size_t>(k - 1)];
    if (peak <= kShortestPeriod || peak == static_cast<int>(spectrum.dominant[index])) return;
    view_.SetData(day, k + 1, peak, false);
    MarkPeak(view_.Plot.Series(k + 1), day);
  }

  const PriceChartRequest& request_;
  const Indicators& indicators_;
  const Sheet& prices_;
  const GraphSelection& selection_;
  ChartView& view_;
};

// Draws the spectrum of the last day and keeps what the buttons need.
std::string BeginSpectrum(const Indicators& indicators,
                          const GraphSelection& selection,
                          DailySpectrum spectrum,
                          const ChartDisplay& display,
                          SpectrumState& state,
                          ChartView& view) {
  state.MemPeriod = static_cast<std::int16_t>(indicators.mem->longest_period);
  state.SpectrumDays = selection.ChartDays;
  state.SpectrumDay = selection.ChartDays;
  state.PowerSpectrum = std::move(spectrum);
  const std::string refusal = BuildSpectrumChart(state, display, view);
  return indicators.mem->poles < 1 ? "never get here in memcof" : refusal;
}

}  // namespace

BuildOutcome BuildAnalysisCharts(const PriceChartRequest& request,
                                 const Sheet& prices,
                                 const MarketCalendar& calendar,
                                 GraphSelection& selection,
                                 SpectrumState& state,
                                 const ThreeCharts& charts) {
  const RedrawPause price_pause(charts.prices);
  const RedrawPause analysis_pause(charts.analysis);
  const RedrawPause spectrum_pause(charts.spectrum);
  for (ChartView* view : {&charts.prices, &charts.analysis, &charts.spectrum}) view->ToDefaults();
  if (request.indicators.correlation && selection.SelectedCount < 2) {
    return RefusedBuild("Two funds must be selected to graph correlation", request.end_day);
  }
  PriceChartOutcome outcome = BuildPriceChart(request, prices, calendar, selection, charts.prices);
  if (!outcome.drawn) return outcome;
  const Indicators indicators = CountsOf(request.indicators).Value();  // as the price chart did
  Builder(request, indicators, prices, selection, charts.analysis)
      .Build(charts.prices.rowcount(), outcome.spectrum);
  if (indicators.mem) {
    outcome.notice = BeginSpectrum(indicators,
                                   selection,
                                   std::move(outcome.spectrum),
                                   request.display,
                                   state,
                                   charts.spectrum);
  }
  return outcome;
}

}  // namespace vistaplot
