#include "charts/builders/price_chart.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "base/date.h"
#include "base/text.h"

namespace vistaplot {
namespace {

constexpr int kMostPoints = 12000;
constexpr double kDesignWidth = 9600.0;  // twips
constexpr double kDesignHeight = 7200.0;

constexpr std::size_t kBands = 3;  // curves of an overlay: first band, middle, second band

// What differs between the two screens; lengths in inches on a display of the design's size.
struct ScreenPlaces {
  int title_location;
  ChartPoint min;
  ChartPoint max;
};

ScreenPlaces PlacesOn(PriceScreen screen) {
  if (screen == PriceScreen::kThreeCharts) {
    return {.title_location = kLocationBottomRight, .min = {0.1, 0.05}, .max = {5.6, 2.0}};
  }
  return {.title_location = kLocationTopLeft, .min = {0.05, 0.35}, .max = {5.9, 3.75}};
}

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

// Any other text: its date, or the text itself where it is none.
std::string RowLabelOf(const std::string& text) {
  const std::optional<DateSerial> date = ParseDate(text);
  return date ? DateText(*date, DatePattern::kMonthDayShortYear) : text;
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
          const Sheet& prices,
          GraphSelection& selection,
          ChartView& view)
      : request_(request), prices_(prices), selection_(selection), view_(view) {
    for (const PriceOverlay& overlay : request.overlays) {
      series_per_fund_ += overlay.suffixes.size();
    }
  }

  // False when the chart would have too many points.
  bool Build(const DayWindow& window) {
    SetDays(window);
    ChooseFunds();
    BeginChart();
    if (!SizeChart()) return false;
    PlacePlot();
    view_.facts.unit = ValueUnit::kChange;
    StyleSeries();
    LabelRows();
    SetAxes();
    int column = 1;
    for (int fund = selection_.FirstFund; fund <= selection_.LastFund; ++fund) {
      DrawFund(selection_.ColumnOf(fund), column);
      column += static_cast<int>(series_per_fund_);
    }
    return true;
  }

 private:
  void SetDays(const DayWindow& window) {
    selection_.FirstDay = static_cast<std::int16_t>(window.first_day);
    selection_.ChartDays = static_cast<std::int16_t>(window.end_day - window.first_day + 1);
  }

  void ChooseFunds() {
    const std::int16_t last = selection_.SelectedCount;
    const std::int16_t current = std::min(std::max(selection_.CurrentFund, std::int16_t{1}), last);
    selection_.FirstFund = request_.one_at_a_time ? current : std::int16_t{1};
    selection_.LastFund = request_.one_at_a_time ? current : last;
  }

  void BeginChart() {
    view_.ToDefaults();
    view_.ChartType = kChartCombination;
    view_.TitleText = "NAV";
    view_.title.VtFont.Size = 10.0;
    view_.title.Location.LocationType = PlacesOn(request_.screen).title_location;
    view_.rowcount(selection_.ChartDays);
    view_.Legend.VtFont.Size = 8.0;
    view_.Legend.Location.Visible = true;
    view_.Legend.Location.LocationType = kLocationRight;
  }

  bool SizeChart() {
    const int funds = selection_.LastFund - selection_.FirstFund + 1;
    const std::size_t columns = series_per_fund_ * static_cast<std::size_t>(std::max(funds, 0));
    const auto rows = static_cast<std::size_t>(selection_.ChartDays);
    if (rows * columns > kMostPoints) return false;
    view_.ColumnCount(static_cast<int>(columns));
    selection_.PriceBase.assign(columns, 0.0F);
    return true;
  }

  void PlacePlot() {
    const ScreenPlaces places = PlacesOn(request_.screen);
    ChartPlot& plot = view_.Plot;
    plot.AutoLayout = false;
    plot.LocationRect.Min = places.min;
    plot.LocationRect.Max = {request_.screen_width * places.max.X / kDesignWidth,
                             request_.screen_height * places.max.Y / kDesignHeight};
    plot.UniformAxis = false;
  }

  void StyleSeries() {
    for (ChartSeries& series : view_.Plot.SeriesCollection) {
      series.SeriesMarker.Show = request_.scatter;
      series.SeriesType = kSeriesLine;
      series.showline = !request_.scatter;
      series.Pen.Width = 1.0;
    }
  }

  void LabelRows() {
    std::array<char, 8> label{};
    for (int i = 1; i <= selection_.ChartDays; ++i) {
      const std::string date = prices_.CellText(selection_.FirstDay + i, 1);
      const std::string_view cut = CutRowLabel(date, label);
      if (cut.empty()) {
        view_.SetRowLabel(i, RowLabelOf(date));
      } else {
        view_.SetRowLabel(i, cut);
      }
    }
  }

  void SetAxes() {
    const TimePeriod& period = TimePeriodAt(selection_.TimePeriodIndex);
    ChartAxis& dates = view_.Plot.Axis[0];
    dates.Labels.Auto = false;
    dates.Labels.VtFont.Size = 8.0;
    dates.Labels.TextLayout.Orientation = kOrientationHorizontal;
    dates.AxisTitle.Visible = false;
    dates.CategoryScale.Auto = false;
    dates.CategoryScale.DivisionsPerLabel = period.divisions_per_label;
    dates.CategoryScale.DivisionsPerTick = period.divisions_per_tick;
    dates.CategoryScale.LabelTick = true;
    for (std::size_t axis = 1; axis < view_.Plot.Axis.size(); ++axis) {
      view_.Plot.Axis[axis].AxisTitle.Visible = false;
      view_.Plot.Axis[axis].AxisScale.Hide = true;
    }
  }

  // The fund's price in chart column `column` and its overlays in those behind.
  void DrawFund(int table_column, int column) {
    const std::string heading = prices_.CellText(1, table_column);
    const std::string symbol(TrimBlanks(heading));
    view_.SetColumnLabel(column, heading);
    const int first_priced_day = DrawPrices(table_column, column);
    StateFund(table_column, column);
    int next = column + 1;
    for (const PriceOverlay& overlay : request_.overlays) {
      for (std::size_t curve = 0; curve < overlay.suffixes.size(); ++curve) {
        const int series = next + static_cast<int>(curve);
        view_.SetColumnLabel(series, symbol + overlay.suffixes[curve]);
        view_.facts.Series(series) = {.name = symbol + " " + overlay.names[curve],
                                      .role = overlay.roles[curve],
                                      .parent = column,
                                      .base = view_.facts.SeriesAt(column).base,
                                      .last_price_row = {}};
      }
      DrawOverlay(overlay, table_column, {.price = column, .first = next}, first_priced_day);
      next += static_cast<int>(overlay.suffixes.size());
    }
  }

  // The facts of a fund's prices once they are drawn.
  void StateFund(int table_column, int column) {
    SeriesFacts& facts = view_.facts.Series(column);
    facts.base = static_cast<double>(BaseOf(column));
    const int last_day = LastPriceDay(prices_, table_column);
    if (last_day > 0) facts.last_price_row = last_day - selection_.FirstDay + 1;
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
                   int table_column,
                   OverlayColumns columns,
                   int first_priced_day) {
    const std::vector<std::vector<float>> curves =
        overlay.curves({.prices = prices_,
                        .column = table_column,
                        .first_day = selection_.FirstDay,
                        .chart_days = selection_.ChartDays});
    assert(curves.size() == overlay.suffixes.size());
    const int start = StartOf(curves);
    for (std::size_t curve = 0; curve < curves.size(); ++curve) {
      const int column = columns.first + static_cast<int>(curve);
      if (start <= selection_.ChartDays) BaseOf(column) = curves[curve][Index(start)];
      for (int i = std::max(start + 1, first_priced_day); i <= selection_.ChartDays; ++i) {
        view_.SetData(i, column, curves[curve][Index(i)] / BaseOf(columns.price) - 1.0F, false);
      }
    }
    if (curves.size() == kBands) {
      view_.Plot.Series(columns.first + 2).Pen.VtColor =
          view_.Plot.Series(columns.first).Pen.VtColor;
    }
  }

  // The first chart day on which the first curve, and the second where there is one, is not 0;
  // ChartDays + 1 when there is none.
  int StartOf(const std::vector<std::vector<float>>& curves) const {
    int day = 1;
    const auto is_set = [&](std::size_t curve) { return curves[curve][Index(day)] != 0.0F; };
    while (day <= selection_.ChartDays && !(is_set(0) && (curves.size() < 2 || is_set(1)))) ++day;
    return day;
  }

  static std::size_t Index(int number) { return static_cast<std::size_t>(number - 1); }

  float& BaseOf(int column) { return selection_.PriceBase[Index(column)]; }

  const PriceChartRequest& request_;
  const Sheet& prices_;
  GraphSelection& selection_;
  ChartView& view_;
  std::size_t series_per_fund_ = 1;
};

}  // namespace

PriceChartOutcome BuildPriceChart(const PriceChartRequest& request,
                                  const Sheet& prices,
                                  const MarketCalendar& calendar,
                                  GraphSelection& selection,
                                  ChartView& view) {
  PriceChartOutcome outcome{
      .drawn = false, .message = {}, .end_day = request.end_day, .scroll_to = {}};
  const int period = selection.TimePeriodIndex;
  if (period == kAllDays) outcome.scroll_to = calendar.MaxNumDays;
  const std::optional<DayWindow> window =
      PriceWindow(period, request.end_day, request.LookbackDays, calendar);
  if (!window) {
    outcome.message = "Not enough history for the chosen periods";
    return outcome;
  }
  outcome.end_day = window->end_day;
  const RedrawPause pause(view);
  outcome.drawn = Builder(request, prices, selection, view).Build(*window);
  if (!outcome.drawn) {
    outcome.message = "Too much data to graph, please choose a shorter time period or fewer funds";
  }
  return outcome;
}

}  // namespace vistaplot
