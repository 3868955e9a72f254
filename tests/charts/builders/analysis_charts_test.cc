#include "charts/builders/analysis_charts.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "analytics/correlation.h"
#include "analytics/forecast.h"
#include "analytics/hurst.h"
#include "analytics/trend.h"
#include "charts/builders/time_periods.h"
#include "support/indicator_prices.h"
#include "support/price_world.h"

namespace vistaplot {
namespace {

using test::kEmpty;
using test::Legend;
using test::MarkerAt;
using test::Points;

/// Funds over 340 days, drawn from day 294, 14 February 1991, to day 314 a month later.
struct World : test::PriceWorld {
  explicit World(const std::vector<std::vector<float>>& histories) : PriceWorld(histories) {
    request.end_day = 314;
    request.screen = PriceScreen::kThreeCharts;
  }

  BuildOutcome Build() {
    return BuildAnalysisCharts(
        request, prices, calendar, selection, state, {view, analysis, spectrum});
  }
  std::string Step(int step) {
    return StepSpectrum(step, request.display, state, {view, analysis, spectrum});
  }

  // What the indicators read of a fund.
  ChartPrices Fund(int column) const {
    const auto days = static_cast<std::size_t>(selection.FirstDay - 1 + selection.ChartDays);
    return {.values = prices.PriceBlock(column).first(days), .history = selection.FirstDay - 1};
  }

  PriceChartRequest request;
  SpectrumState state;
  ChartView analysis;
  ChartView spectrum;
};

/// A cycle of 20 days with a few cents of a walk, at about 30.
std::vector<float> Waves() {
  std::vector<float> prices = test::CentWalk(340);
  for (std::size_t i = 0; i < prices.size(); ++i) {
    prices[i] = 30.0F + prices[i] / 50.0F + 5.0F * std::sin(static_cast<float>(i) * 0.314159F);
    prices[i] = std::round(prices[i] * 100.0F) / 100.0F;
  }
  return prices;
}

World CycleWorld() {
  World world({Waves(), std::vector<float>(340, 9.0F)});
  world.request.indicators.mem = IndicatorNumbers::Mem{.longest_period = 50, .poles = 15};
  return world;
}

double Single(float value, float base) {
  return double{value / base - 1.0F};
}

TEST(AnalysisCharts, DrawTheHurstExponentOfEveryFund) {
  World world({test::CentWalk(340), std::vector<float>(340, 9.0F)});
  world.request.indicators.hurst = IndicatorNumbers::Hurst{.days = 100, .subperiods = 5};
  EXPECT_TRUE(world.Build().drawn);
  EXPECT_EQ(world.analysis.TitleText, "HURST EXPONENT");
  EXPECT_EQ(Legend(world.analysis), (std::vector<std::string>{"F1", "F2"}));
  EXPECT_EQ(Legend(world.view), (std::vector<std::string>{"F1", "F2"}));
  EXPECT_EQ(world.analysis.rowcount(), 21);
  EXPECT_EQ(world.analysis.RowLabelAt(21), world.view.RowLabelAt(21));
  const HurstSeries first = ComputeHurst(world.Fund(2), {}, 0.0F);
  EXPECT_EQ(world.analysis.DataAt(5, 1), double{first.values[4]});
  // The second fund stands still: its ranges are the first fund's last one.
  const HurstSeries second = ComputeHurst(world.Fund(3), {}, first.last_y);
  EXPECT_EQ(world.analysis.DataAt(5, 2), double{second.values[4]});
  EXPECT_TRUE(world.analysis.Legend.Location.Visible);
  EXPECT_EQ(world.analysis.title.Location.LocationType, kLocationBottomRight);
  EXPECT_DOUBLE_EQ(world.analysis.Plot.LocationRect.Max.Y, 1.8);
  EXPECT_EQ(world.spectrum.ColumnCount(), 0);
}

TEST(AnalysisCharts, LeaveDaysWithoutAnExponentEmpty) {
  World world({test::CentWalk(340)});
  world.request.indicators.hurst = IndicatorNumbers::Hurst{.days = 100, .subperiods = 0};
  EXPECT_TRUE(world.Build().drawn);
  EXPECT_EQ(Legend(world.analysis), std::vector<std::string>{"F1"});
  EXPECT_EQ(Points(world.analysis, 1), std::vector<double>(21, kEmpty));
}

TEST(AnalysisCharts, DrawTheCorrelationOfTheFirstTwoFunds) {
  World world({test::CentWalk(340), Waves(), Waves()});
  world.request.indicators.correlation = 50.0;
  world.request.scatter = true;
  EXPECT_TRUE(world.Build().drawn);
  EXPECT_EQ(world.analysis.TitleText, "CORRELATION");
  EXPECT_EQ(world.analysis.ColumnCount(), 3);
  EXPECT_FALSE(world.analysis.Legend.Location.Visible);
  EXPECT_TRUE(world.analysis.Plot.Series(1).SeriesMarker.Show);
  const auto values = ComputeCorrelation(world.Fund(2), world.Fund(3), 50);
  EXPECT_EQ(world.analysis.DataAt(1, 1), 0.5);
  EXPECT_EQ(world.analysis.DataAt(9, 1), double{values[8]});
  EXPECT_FALSE(world.analysis.HasPoint(9, 2));
}

TEST(AnalysisCharts, RefuseACorrelationOfOneFundAndEmptyAllCharts) {
  World world = CycleWorld();
  EXPECT_TRUE(world.Build().drawn);
  world.selection.SelectedCount = 1;
  world.request.indicators = {.correlation = 50.0};
  EXPECT_EQ(world.Build().message, "Two funds must be selected to graph correlation");
  EXPECT_EQ(world.view.ColumnCount(), 0);
  EXPECT_EQ(world.analysis.ColumnCount(), 0);
  EXPECT_EQ(world.spectrum.ColumnCount(), 0);
}

TEST(CycleCharts, ContinueThePriceByAForecast) {
  World world = CycleWorld();
  const BuildOutcome outcome = world.Build();
  EXPECT_TRUE(outcome.drawn);
  EXPECT_TRUE(outcome.notice.empty());
  EXPECT_EQ(Legend(world.view), (std::vector<std::string>{"F1", "Trend"}));  // one fund alone
  EXPECT_EQ(world.view.rowcount(), 31);
  EXPECT_EQ(world.selection.ChartDays, 21);
  EXPECT_EQ(world.view.RowLabelAt(22), " ");
  EXPECT_FALSE(world.view.Legend.Location.Visible);
  EXPECT_EQ(world.view.facts.last_real_row, 21);
  const float base = world.selection.PriceBase[0];
  const auto forecast = MemForecast(world.Fund(2), 21, 50, 15);
  EXPECT_EQ(world.view.DataAt(22, 1), Single(forecast[0], base));
  EXPECT_EQ(world.view.DataAt(31, 1), Single(forecast[9], base));
  const auto spectrum = ComputeSpectrum(world.Fund(2), 50, 15);
  const auto trend = ComputeTrend(world.Fund(2), spectrum.dominant);
  EXPECT_EQ(world.view.DataAt(1, 2), Single(trend[0], base));
  EXPECT_EQ(world.view.DataAt(21, 2), Single(trend[20], base));
  EXPECT_FALSE(world.view.HasPoint(22, 2));
  for (const int series : {1, 2}) {
    const ChartMarker mark = MarkerAt(world.view, series, 21);
    EXPECT_EQ(mark.Size, 8.0);
    EXPECT_EQ(mark.style, kMarkerStar);
    EXPECT_TRUE(mark.Visible);
  }
}

TEST(CycleCharts, DrawDominantPeriodAndPeaks) {
  World world = CycleWorld();
  world.Build();
  EXPECT_EQ(world.analysis.TitleText, "POWER");
  EXPECT_EQ(Legend(world.analysis),
            (std::vector<std::string>{"F1", "1Peak", "2Peak", "3Peak", "4Peak", "5Peak"}));
  EXPECT_EQ(world.analysis.rowcount(), 31);
  EXPECT_TRUE(world.analysis.Legend.Location.Visible);
  const auto spectrum = ComputeSpectrum(world.Fund(2), 50, 15);
  int peaks = 0;
  for (int day = 1; day <= 21; ++day) {
    const auto index = static_cast<std::size_t>(day - 1);
    EXPECT_EQ(world.analysis.DataAt(day, 1), double{spectrum.dominant[index]});
    for (int k = 1; k <= 5; ++k) {
      const int peak = spectrum.peaks[index][static_cast<std::size_t>(k - 1)];
      const bool drawn = peak > 8 && peak != static_cast<int>(spectrum.dominant[index]);
      EXPECT_EQ(world.analysis.HasPoint(day, k + 1), drawn);
      EXPECT_EQ(Points(world.analysis, k + 1)[index], drawn ? peak : kEmpty);
      const bool marked = MarkerAt(world.analysis, k + 1, day).Visible;
      EXPECT_EQ(marked, drawn || day == 21);
      peaks += drawn ? 1 : 0;
    }
  }
  EXPECT_GT(peaks, 0);
  EXPECT_FALSE(world.analysis.Plot.Series(2).showline);
  EXPECT_TRUE(world.analysis.Plot.Series(1).showline);
  for (int series = 1; series <= 6; ++series) {
    EXPECT_EQ(MarkerAt(world.analysis, series, 21).Size, 8.0);
  }
}

TEST(CycleCharts, ShowTheSpectrumOfTheLastDay) {
  World world = CycleWorld();
  world.Build();
  EXPECT_EQ(world.spectrum.TitleText, "Spectrum");
  EXPECT_EQ(world.spectrum.rowcount(), 50);
  EXPECT_EQ(world.spectrum.RowLabelAt(23), "23");
  EXPECT_EQ(world.spectrum.DataAt(7, 1), 0.0);
  EXPECT_EQ(world.spectrum.DataAt(23, 1), double{world.state.PowerSpectrum.Power(23, 21)});
  EXPECT_EQ(world.spectrum.Plot.Axis[1].Tick.Style, kTickNone);
  EXPECT_EQ(world.spectrum.Plot.Axis[0].AxisGrid.MajorPen.style, kPenNone);
  EXPECT_TRUE(world.spectrum.Plot.Axis[2].AxisScale.Hide);
  EXPECT_DOUBLE_EQ(world.spectrum.Plot.LocationRect.Max.Y, 1.5);
  EXPECT_FALSE(world.spectrum.Legend.Location.Visible);
}

/// Every fund has a peak on the last day or not: the world's markers on that day, series 2 to 6.
TEST(CycleCharts, StepTheDayWithItsMarks) {
  World world = CycleWorld();
  world.Build();
  EXPECT_EQ(world.Step(1), "");  // there is no later day
  EXPECT_EQ(world.state.SpectrumDay, 21);
  EXPECT_EQ(world.Step(-1), "");
  EXPECT_EQ(world.state.SpectrumDay, 20);
  EXPECT_EQ(world.spectrum.DataAt(23, 1), double{world.state.PowerSpectrum.Power(23, 20)});
  for (const int series : {1, 2}) {
    EXPECT_FALSE(MarkerAt(world.view, series, 21).Visible);
    EXPECT_EQ(MarkerAt(world.view, series, 20).Size, 8.0);
    EXPECT_TRUE(MarkerAt(world.view, series, 20).Visible);
  }
  EXPECT_FALSE(MarkerAt(world.analysis, 1, 21).Visible);
  EXPECT_EQ(MarkerAt(world.analysis, 1, 20).Size, 8.0);
  for (int series = 2; series <= 6; ++series) {
    const bool has_peak = world.analysis.HasPoint(21, series);
    const ChartMarker mark = MarkerAt(world.analysis, series, 21);
    EXPECT_EQ(mark.Visible, has_peak) << series;
    EXPECT_EQ(mark.Size, has_peak ? 4.0 : 8.0) << series;
  }
  for (int step = 0; step < 30; ++step) world.Step(-1);
  EXPECT_EQ(world.state.SpectrumDay, 1);
  EXPECT_EQ(world.spectrum.DataAt(23, 1), 0.0);  // day 1's is not kept
}

TEST(CycleCharts, AddForecastsOfADayAndTakeThemOff) {
  World world = CycleWorld();
  world.Build();
  const IndicatorNumbers::Mem mem = *world.request.indicators.mem;
  const auto add = [&](int day) {
    return AddForecast(day, mem, world.prices, world.selection, world.state, world.view);
  };
  EXPECT_EQ(add(5), "");
  EXPECT_EQ(add(21), "");
  EXPECT_EQ(add(22), "");  // no real day
  ASSERT_EQ(world.view.ColumnCount(), 4);
  EXPECT_EQ(world.view.ColumnLabelAt(3), " ");
  EXPECT_EQ(world.view.facts.SeriesAt(3).role, SeriesRole::kForecast);
  EXPECT_EQ(world.view.facts.SeriesAt(3).name, "forecast");
  EXPECT_EQ(world.view.Plot.Series(3).Pen.VtColor, (ChartColor{0, 0, 255}));
  const auto forecast = MemForecast(world.Fund(2), 5, 50, 15);
  const float base = world.selection.PriceBase[0];
  EXPECT_FALSE(world.view.HasPoint(4, 3));
  EXPECT_EQ(world.view.DataAt(5, 3), world.view.DataAt(5, 1));
  EXPECT_EQ(world.view.DataAt(6, 3), Single(forecast[0], base));
  EXPECT_EQ(world.view.DataAt(15, 3), Single(forecast[9], base));
  EXPECT_FALSE(world.view.HasPoint(16, 3));
  EXPECT_EQ(world.view.DataAt(31, 4), world.view.DataAt(31, 1));
  world.Step(-1);  // marks move on added series too
  EXPECT_TRUE(MarkerAt(world.view, 4, 20).Visible);
  ClearForecasts(world.view);
  EXPECT_EQ(world.view.ColumnCount(), 2);
  EXPECT_EQ(AddForecast(5, {4e4, 15}, world.prices, world.selection, world.state, world.view),
            "error: 6 Overflow");
  EXPECT_EQ(world.view.ColumnCount(), 2);
}

TEST(CycleCharts, DrawNothingForPeriodsThatMakeNoSense) {
  World world = CycleWorld();
  world.request.indicators.mem->longest_period = 7.0;
  EXPECT_TRUE(world.Build().drawn);
  EXPECT_EQ(world.analysis.DataAt(4, 1), 0.0);
  EXPECT_EQ(Points(world.view, 2), std::vector<double>(31, kEmpty));
  EXPECT_FALSE(world.view.HasPoint(22, 1));
  EXPECT_EQ(world.spectrum.rowcount(), 7);
  for (const double nonsense : {0.0, -1.0}) {
    world.request.indicators.mem->longest_period = nonsense;
    EXPECT_TRUE(world.Build().drawn);
    EXPECT_EQ(Legend(world.view), (std::vector<std::string>{"F1", "Trend"}));
    EXPECT_EQ(Points(world.analysis, 1), std::vector<double>(31, kEmpty));
    EXPECT_EQ(world.spectrum.rowcount(), 0);
    EXPECT_EQ(world.Step(-1), "");
  }
}

TEST(CycleCharts, TellOnceOfAModelWithoutPoles) {
  World world = CycleWorld();
  world.request.indicators.mem->poles = 0.0;
  const BuildOutcome outcome = world.Build();
  EXPECT_TRUE(outcome.drawn);
  EXPECT_EQ(outcome.notice, "never get here in memcof");
  EXPECT_EQ(world.analysis.DataAt(4, 1), 8.0);
}

TEST(CycleCharts, RefuseASpectrumOfTooManyPeriods) {
  SpectrumState state;
  state.MemPeriod = 6001;
  ChartView view;
  EXPECT_EQ(BuildSpectrumChart(state, {}, view),
            "Too much data to graph, please choose a shorter time period or fewer funds");
  EXPECT_EQ(view.ColumnCount(), 0);
}

}  // namespace
}  // namespace vistaplot
