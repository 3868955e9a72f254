#include "charts/builders/price_chart.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "analytics/forecast.h"
#include "analytics/trend.h"
#include "base/text.h"
#include "charts/builders/graph_selection.h"
#include "charts/builders/overlays.h"
#include "charts/builders/spectrum_chart.h"
#include "charts/builders/time_periods.h"

namespace vistaplot {
namespace {

/// Of the screen's width, at its right: the spectrum chart lies over the prices there.
constexpr double kSpectrumPart = 0.16;

constexpr std::size_t kBands = 3;  // curves of an overlay: first band, middle, second band

// "12,045".
std::string GroupedText(int number) {
  const std::string digits = std::to_string(number);
  std::string text;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) text += ',';
    text += digits[i];
  }
  return text;
}

// The market day of a history's last price when it ended at least kQuietDays before the newest day:
// the days behind repeat that price. 0 for one that goes on.
int LastPriceDay(const Sheet& prices, int table_column) {
  constexpr std::ptrdiff_t kQuietDays = 10;
  const std::span<const float> block = prices.PriceBlock(table_column);
  if (block.empty() || block.back() <= 0.0F) return 0;
  const auto changed = std::find_if(
      block.rbegin(), block.rend(), [&](float price) { return price != block.back(); });
  const auto same = changed - block.rbegin();
  if (same <= kQuietDays) return 0;
  return static_cast<int>(static_cast<std::ptrdiff_t>(block.size()) - same + 1);
}

/// One build: the request, what it reads, and the chart that it fills.
class Builder {
 public:
  Builder(const PriceChartRequest& request,
          const Indicators& indicators,
          const Sheet& prices,
          GraphSelection& selection,
          ChartView& view)
      : request_(request),
        mem_(indicators.mem),
        prices_(prices),
        selection_(selection),
        view_(view) {
    if (!mem_) overlays_ = OverlaysOf(indicators);
    for (const PriceOverlay& overlay : overlays_) series_per_fund_ += overlay.suffixes.size();
    if (mem_) ++series_per_fund_;
  }

  // False when the chart would have too many points.
  bool Build(const DayWindow& window) {
    selection_.FirstDay = static_cast<std::int16_t>(window.first_day);
    selection_.ChartDays = static_cast<std::int16_t>(window.end_day - window.first_day + 1);
    ChooseFunds(request_.one_at_a_time || mem_, selection_);
    if (!SizeChart()) return false;
    StyleSeries(view_, request_.scatter);
    LabelDays(view_, prices_, selection_.FirstDay, selection_.ChartDays);
    const TimePeriod& period = TimePeriodAt(selection_.TimePeriodIndex);
    SetDateAxes(view_, period.divisions_per_label, period.divisions_per_tick);
    int column = 1;
    for (int fund = selection_.FirstFund; fund <= selection_.LastFund; ++fund) {
      DrawFund(selection_.ColumnOf(fund), column);
      column += static_cast<int>(series_per_fund_);
    }
    return true;
  }

  DailySpectrum TakeSpectrum() { return std::move(spectrum_); }

  /// Why there are too many points for a chart.
  std::string Excess() const {
    return GroupedText(points_) + " points; " + GroupedText(kMostPoints) +
           " is the most: fewer funds or a shorter period";
  }

 private:
  bool SizeChart() {
    const auto columns = static_cast<int>(series_per_fund_) * DrawnFunds(selection_);
    const int rows = selection_.ChartDays + (mem_ ? kForecastDays : 0);
    points_ = rows * columns;
    if (points_ > kMostPoints) return false;
    const bool three = request_.screen == PriceScreen::kThreeCharts;
    view_.ChartType = kChartCombination;
    SetTitle(view_, "NAV", 10.0, three ? kLocationBottomRight : kLocationTopLeft);
    SetLegend(view_, !mem_);
    view_.rowcount(rows);
    view_.ColumnCount(columns);
    view_.facts.unit = ValueUnit::kChange;
    if (mem_) {
      view_.facts.last_real_row = selection_.ChartDays;
      view_.facts.covered_right = kSpectrumPart;
    }
    selection_.PriceBase.assign(static_cast<std::size_t>(columns), 0.0F);
    if (three) {
      PlacePlot(view_, request_.display, {0.1, 0.05}, {5.6, 2.0});
    } else {
      PlacePlot(view_, request_.display, {0.05, 0.35}, {5.9, 3.75});
    }
    return true;
  }

  // The fund's price in chart column `column` and its overlays in those behind.
  void DrawFund(int table_column, int column) {
    const std::string heading = prices_.CellText(1, table_column);
    const std::string symbol(TrimBlanks(heading));
    view_.SetColumnLabel(column, heading);
    const int first_priced_day = DrawPrices(table_column, column);
    StateFund(table_column, column);
    if (overlays_.empty() && !mem_) return;
    const FundPrices fund(prices_, table_column, selection_.FirstDay, selection_.ChartDays);
    int next = column + 1;
    for (const PriceOverlay& overlay : overlays_) {
      for (std::size_t curve = 0; curve < overlay.suffixes.size(); ++curve) {
        const int series = next + static_cast<int>(curve);
        view_.SetColumnLabel(series, symbol + overlay.suffixes[curve]);
        StateOverlay(series, symbol + " " + overlay.names[curve], overlay.roles[curve], column);
      }
      DrawOverlay(overlay, fund.Chart(), {.price = column, .first = next}, first_priced_day);
      next += static_cast<int>(overlay.suffixes.size());
    }
    if (mem_) DrawCycles(fund.Chart(), {.price = column, .first = next}, first_priced_day);
  }

  // The facts of a fund's prices once they are drawn.
  void StateFund(int table_column, int column) {
    SeriesFacts& facts = view_.facts.Series(column);
    facts.base = static_cast<double>(BaseOf(column));
    const int last_day = LastPriceDay(prices_, table_column);
    if (last_day > 0) facts.last_price_row = last_day - selection_.FirstDay + 1;
  }

  void StateOverlay(int series, const std::string& name, SeriesRole role, int price_column) {
    view_.facts.Series(series) = {.name = name,
                                  .role = role,
                                  .parent = price_column,
                                  .base = static_cast<double>(BaseOf(price_column)),
                                  .last_price_row = {}};
  }

  // Draws one fund's prices and sets their base.
  // @return the first chart day with a base; ChartDays + 1 when the fund has none.
  int DrawPrices(int table_column, int column) {
    const std::vector<double> values =
        prices_.ColumnNumbers(table_column, selection_.FirstDay + 1, selection_.ChartDays);
    const auto is_price = [](double x) { return x > 0.0; };
    const auto first = std::find_if(values.begin(), values.end(), is_price);
    const int first_day = static_cast<int>(first - values.begin()) + 1;
    if (first == values.end()) return first_day;
    const auto base = static_cast<float>(*first);
    BaseOf(column) = base;
    view_.SetData(first_day, column, 0.0, false);
    for (int i = first_day + 1; i <= selection_.ChartDays; ++i) {
      const double x = values[static_cast<std::size_t>(i - 1)];
      if (is_price(x)) view_.SetData(i, column, x / static_cast<double>(base) - 1.0, false);
    }
    return first_day;
  }

  struct OverlayColumns {
    int price = 0;  ///< of the fund's prices
    int first = 0;  ///< of the overlay's first curve
  };

  void DrawOverlay(const PriceOverlay& overlay,
                   const ChartPrices& fund,
                   OverlayColumns columns,
                   int first_priced_day) {
    const std::vector<std::vector<float>> curves = overlay.curves(fund);
    assert(curves.size() == overlay.suffixes.size());
    const int start = StartOf(curves);
    for (std::size_t curve = 0; curve < curves.size(); ++curve) {
      const int column = columns.first + static_cast<int>(curve);
      if (start <= selection_.ChartDays) BaseOf(column) = curves[curve][Index(start)];
      const int first = std::max(start + 1, first_priced_day);
      SetRebased(curves[curve], first, {.price = columns.price, .first = column});
    }
    if (curves.size() == kBands) {
      view_.Plot.Series(columns.first + 2).Pen.VtColor =
          view_.Plot.Series(columns.first).Pen.VtColor;
    }
  }

  // Values of a curve from chart day `first` on, on the scale of its fund's price.
  void SetRebased(const std::vector<float>& curve, int first, OverlayColumns columns) {
    for (int i = first; i <= selection_.ChartDays; ++i) {
      view_.SetData(i, columns.first, Rebased(curve[Index(i)], columns.price), false);
    }
  }

  double Rebased(float value, int price_column) {
    return static_cast<double>(value / BaseOf(price_column) - 1.0F);
  }

  // The first chart day on which the first curve, and the second where there is one, is not 0;
  // ChartDays + 1 when there is none.
  int StartOf(const std::vector<std::vector<float>>& curves) const {
    int day = 1;
    const auto is_set = [&](std::size_t curve) { return curves[curve][Index(day)] != 0.0F; };
    while (day <= selection_.ChartDays && !(is_set(0) && (curves.size() < 2 || is_set(1)))) ++day;
    return day;
  }

  // The trend, the forecast behind the prices, and the mark where it begins.
  void DrawCycles(const ChartPrices& fund, OverlayColumns columns, int first_priced_day) {
    view_.SetColumnLabel(columns.first, "Trend");
    StateOverlay(columns.first, "Trend", SeriesRole::kTrend, columns.price);
    const int days = selection_.ChartDays;
    for (ChartSeries& series : view_.Plot.SeriesCollection) MarkDay(series, days);
    if (mem_->longest_period < 1) return;
    spectrum_ = ComputeSpectrum(fund, mem_->longest_period, mem_->poles);
    const std::vector<float> trend = ComputeTrend(fund, spectrum_.dominant);
    const auto rising =
        std::find_if(trend.begin(), trend.end(), [](float value) { return value > 0.0F; });
    if (rising != trend.end()) BaseOf(columns.first) = *rising;
    const int start = static_cast<int>(rising - trend.begin()) + 1;
    SetRebased(trend, std::max(start, first_priced_day), columns);
    if (first_priced_day > days) return;
    const auto forecast = MemForecast(fund, days, mem_->longest_period, mem_->poles);
    for (std::size_t k = 0; k < forecast.size(); ++k) {
      const int row = days + 1 + static_cast<int>(k);
      view_.SetData(row, columns.price, Rebased(forecast[k], columns.price), false);
    }
  }

  static std::size_t Index(int number) { return static_cast<std::size_t>(number - 1); }

  float& BaseOf(int column) { return selection_.PriceBase[Index(column)]; }

  const PriceChartRequest& request_;
  std::optional<MemSettings> mem_;
  std::vector<PriceOverlay> overlays_;
  const Sheet& prices_;
  GraphSelection& selection_;
  ChartView& view_;
  DailySpectrum spectrum_;
  std::size_t series_per_fund_ = 1;
  int points_ = 0;
};

}  // namespace

PriceChartOutcome BuildPriceChart(const PriceChartRequest& request,
                                  const Sheet& prices,
                                  const MarketCalendar& calendar,
                                  GraphSelection& selection,
                                  ChartView& view) {
  const RedrawPause pause(view);
  view.ToDefaults();
  PriceChartOutcome outcome;
  outcome.end_day = request.end_day;
  const int period = selection.TimePeriodIndex;
  if (period == kAllDays) outcome.scroll_to = calendar.MaxNumDays;
  const Result<Indicators> indicators = CountsOf(request.indicators);
  if (!indicators) {
    outcome.message = "error: " + NumberedText(indicators.Error());
    return outcome;
  }
  const std::optional<DayWindow> window =
      PriceWindow(period, request.end_day, indicators.Value().LookbackDays, calendar);
  if (!window) {
    outcome.message = "Not enough history for the chosen periods";
    outcome.on_screen = outcome.message;
    return outcome;
  }
  outcome.end_day = window->end_day;
  Builder builder(request, indicators.Value(), prices, selection, view);
  outcome.drawn = builder.Build(*window);
  outcome.spectrum = builder.TakeSpectrum();
  if (!outcome.drawn) {
    outcome.on_screen = builder.Excess();
    outcome.message = "Too much data to graph, please choose a shorter time period or fewer funds";
  }
  return outcome;
}

}  // namespace vistaplot
