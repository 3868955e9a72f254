#include "charts/builders/candle_chart.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "analytics/candles.h"
#include "base/text.h"
#include "charts/builders/graph_selection.h"
#include "charts/builders/time_periods.h"

namespace vistaplot {
namespace {

constexpr int kValues = 4;  // of a bar: open, high, low, close

/// Rows from one date label, or tick, to the next, by time period; rows are weeks.
struct WeekSpacing {
  int divisions_per_label;
  int divisions_per_tick;
};
constexpr std::array<WeekSpacing, kTimePeriods> kSpacings = {
    {{1, 1}, {1, 1}, {2, 1}, {3, 2}, {4, 2}, {5, 4}, {12, 5}, {16, 6}, {30, 9}, {40, 10}}};

/// The market days of the window that close their week.
class Weeks {
 public:
  Weeks(const MarketCalendar& calendar, const DayWindow& window) {
    std::vector<DateSerial> dates;
    for (int day = 1; day <= calendar.MaxNumDays; ++day) dates.push_back(calendar.DateOf(day));
    flags_ = ComputeWeekEndFlags(dates);
    window_ = std::span(flags_).subspan(static_cast<std::size_t>(window.first_day - 1),
                                        static_cast<std::size_t>(Days(window)));
  }

  static int Days(const DayWindow& window) { return window.end_day - window.first_day + 1; }

  /// One flag a day of the window.
  std::span<const std::int16_t> Ends() const { return window_; }
  int Count() const {
    return static_cast<int>(std::count(window_.begin(), window_.end(), std::int16_t{1}));
  }

 private:
  std::vector<std::int16_t> flags_;
  std::span<const std::int16_t> window_;
};

/// What all bars together span.
struct Span {
  float lowest = 9999.0F;
  float highest = -9999.0F;
  bool has_bar = false;

  void Take(const Candle& bar) {
    has_bar = true;
    for (const float value : {bar.open, bar.high, bar.low, bar.close}) {
      lowest = std::min(lowest, value);
      highest = std::max(highest, value);
    }
  }
};

void StyleBars(ChartView& view, bool bars) {
  for (ChartSeries& series : view.Plot.SeriesCollection) {
    series.SeriesType = bars ? kSeriesCandleBar : kSeriesCandleLine;
    series.Pen.Width = 0.0;
    series.HiLo.GainColor.Set(0, 255, 10);
    series.HiLo.LossColor.Set(255, 10, 0);
  }
}

/// Writes the bars of the fund in table column `table_column` to columns `column` and the three
/// behind it.
/// @return  the number of bars
int DrawFund(const WeeklyCandles& candles,
             const Sheet& prices,
             int table_column,
             int first_day,
             int column,
             ChartView& view,
             Span& span) {
  int row = 0;
  for (const Candle& bar : candles.bars) {
    ++row;
    view.SetRowLabel(row, DateLabel(prices.CellText(first_day + bar.day + 1, 1)));
    const std::array<float, kValues> values = {bar.open, bar.high, bar.low, bar.close};
    for (int k = 0; k < kValues; ++k) {
      const auto value = static_cast<double>(values[static_cast<std::size_t>(k)]);
      view.SetData(row, column + k, value, false);
    }
    span.Take(bar);
  }
  if (row > 0) {
    view.SetColumnLabel(column, prices.CellText(1, table_column));
    view.SetColumnLabel(column + 1, "HIGH");
    view.SetColumnLabel(column + 2, "LOW");
    view.SetColumnLabel(column + 3, "CLOSE");
  }
  return row;
}

// All drawn funds, and the bounds of what they wrote.
void DrawFunds(const Sheet& prices,
               const Weeks& weeks,
               const DayWindow& window,
               GraphSelection& selection,
               ChartView& view) {
  Span span;
  int last_rows = 0;
  for (int fund = selection.FirstFund; fund <= selection.LastFund; ++fund) {
    const int table_column = selection.ColumnOf(fund);
    const int column = kValues * (fund - selection.FirstFund) + 1;
    const FundPrices fund_prices(prices, table_column, window.first_day, Weeks::Days(window));
    const WeeklyCandles candles = ComputeWeeklyCandles(fund_prices.Chart().Chart(), weeks.Ends());
    selection.PriceBase[static_cast<std::size_t>(column - 1)] = candles.base;
    SeriesFacts& facts = view.facts.Series(fund - selection.FirstFund + 1);
    facts.name = TrimBlanks(prices.CellText(1, table_column));
    facts.base = static_cast<double>(candles.base);
    last_rows = DrawFund(candles, prices, table_column, window.first_day, column, view, span);
  }
  view.SetRowLabel(last_rows + 1, " ");
  if (!span.has_bar) {
    view.WhyEmpty = "No week with a price ends in this window";
    return;
  }
  auto& scale = view.Plot.Axis[1].ValueScale;
  scale.Auto = false;
  scale.Minimum = static_cast<double>(span.lowest) - 0.01;
  scale.Maximum = static_cast<double>(span.highest) + 0.01;
}

}  // namespace

BuildOutcome BuildCandleChart(const CandleChartRequest& request,
                              const Sheet& prices,
                              const MarketCalendar& calendar,
                              GraphSelection& selection,
                              ChartView& view) {
  const RedrawPause pause(view);
  view.ToDefaults();
  const DayWindow window = BarWindow(selection.TimePeriodIndex, request.end_day, calendar);
  BuildOutcome outcome;
  outcome.end_day = window.end_day;
  if (selection.TimePeriodIndex == kAllDays) outcome.scroll_to = calendar.MaxNumDays;
  selection.FirstDay = static_cast<std::int16_t>(window.first_day);
  const Weeks weeks(calendar, window);
  ChooseFunds(request.one_at_a_time, selection);
  const int columns = kValues * DrawnFunds(selection);
  if (weeks.Count() * columns > kMostPoints) {
    outcome.message = "Too much data to graph, please select fewer funds or a shorter time period";
    return outcome;
  }
  view.ChartType = kChartStock;
  SetTitle(view, "NAV", 10.0, kLocationTopLeft);
  view.rowcount(weeks.Count() + 1);
  view.ColumnCount(columns);
  SetLegend(view, true);
  PlacePlot(view, request.display, {0.0, 0.35}, {5.8, 3.75});
  view.facts.unit = ValueUnit::kRatio;
  StyleBars(view, request.bars);
  const WeekSpacing& spacing =
      kSpacings[static_cast<std::size_t>(std::clamp<int>(selection.TimePeriodIndex, 0, kAllDays))];
  SetDateAxes(view, spacing.divisions_per_label, spacing.divisions_per_tick);
  selection.PriceBase.assign(static_cast<std::size_t>(columns), 0.0F);
  DrawFunds(prices, weeks, window, selection, view);
  outcome.drawn = true;
  return outcome;
}

}  // namespace vistaplot
