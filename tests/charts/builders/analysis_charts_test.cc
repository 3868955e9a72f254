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

namespace vistaplot::test {
namespace {

/// Funds over 340 days, drawn from day 294, 14 February 1991, to day 314 a month later.
struct World : PriceWorld {
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
  std::vector<float> prices = CentWalk(340);
  for (std::size_t i = 0; i < prices.size(); ++i) {
    prices[i] = 30.0F + prices[i] / 50.0F + 5.0F * std::sin(static_cast<float>(i) * 0.314159F);
    prices[i] = std::round(prices[i] * 100.0F) / 100.0F;
  }
  return prices;
}

struct CycleCharts : testing::Test, World {
  CycleCharts() : World({Waves(), std::vector<float>(340, 9.0F)}) {
    request.indicators.mem = IndicatorNumbers::Mem{.longest_period = 50, .poles = 15};
  }
};

double Single(float value, float base) {
  return double{value / base - 1.0F};
}

TEST(AnalysisCharts, DrawTheHurstExponentOfEveryFund) {
  World world({CentWalk(340), std::vector<float>(340, 9.0F)});
  world.request.indicators.hurst = IndicatorNumbers::Hurst{.days = 100, .subperiods = 5};
  EXPECT_TRUE(world.Build().drawn);
  EXPECT_EQ(world.analysis.TitleText, "HURST EXPONENT");
  EXPECT_EQ(Legend(world.analysis), "F1|F2");
  EXPECT_EQ(Legend(world.view), Legend(world.analysis));
  EXPECT_EQ(world.analysis.rowcount(), 21);
  EXPECT_EQ(world.analysis.RowLabelAt(21), world.view.RowLabelAt(21));
  const HurstSeries first = ComputeHurst(world.Fund(2), {}, 0.0F);
  EXPECT_EQ(world.analysis.DataAt(5, 1), double{first.values[4]});
  // The second fund stands still: its ranges are the first fund's last one.
  const HurstSeries second = ComputeHurst(world.Fund(3), {}, first.last_y);
  EXPECT_EQ(world.analysis.DataAt(5, 2), double{second.values[4]});
  EXPECT_TRUE(world.analysis.Legend.Location.Visible);
  EXPECT_EQ(world.spectrum.ColumnCount(), 0);
  world.request.indicators.hurst->subperiods = 0;
  EXPECT_TRUE(world.Build().drawn);
  EXPECT_EQ(Points(world.analysis, 1), std::vector<double>(21, kEmpty)) << "days without one";
}

TEST(AnalysisCharts, DrawTheCorrelationOfTheFirstTwoFunds) {
  World world({CentWalk(340), Waves(), Waves()});
  world.request.indicators.correlation = 50.0;
  world.request.scatter = true;
  EXPECT_TRUE(world.Build().drawn);
  EXPECT_EQ(world.analysis.TitleText, "CORRELATION");
  EXPECT_EQ(world.analysis.facts.unit, ValueUnit::kCoefficient);
  EXPECT_EQ(world.analysis.ColumnCount(), 3);
  EXPECT_FALSE(world.analysis.Legend.Location.Visible);
  EXPECT_TRUE(world.analysis.Plot.Series(1).SeriesMarker.Show);
  const auto values = ComputeCorrelation(world.Fund(2), world.Fund(3), 50);
  EXPECT_EQ(world.analysis.DataAt(1, 1), 0.5);
  EXPECT_EQ(world.analysis.DataAt(9, 1), double{values[8]});
  EXPECT_FALSE(world.analysis.HasPoint(9, 2));
}

TEST_F(CycleCharts, ContinueThePriceByAForecast) {
  const BuildOutcome outcome = Build();
  EXPECT_TRUE(outcome.drawn);
  EXPECT_TRUE(outcome.notice.empty());
  EXPECT_EQ(Legend(view), "F1|Trend");  // one fund alone
  EXPECT_EQ(view.rowcount(), 31);
  EXPECT_EQ(selection.ChartDays, 21);
  EXPECT_EQ(view.RowLabelAt(22), " ");
  EXPECT_FALSE(view.Legend.Location.Visible);
  EXPECT_EQ(view.facts.last_real_row, 21);
  const float base = selection.PriceBase[0];
  const auto forecast = MemForecast(Fund(2), 21, 50, 15);
  EXPECT_EQ(view.DataAt(22, 1), Single(forecast[0], base));
  EXPECT_EQ(view.DataAt(31, 1), Single(forecast[9], base));
  const auto daily = ComputeSpectrum(Fund(2), 50, 15);
  const auto trend = ComputeTrend(Fund(2), daily.dominant);
  EXPECT_EQ(view.DataAt(1, 2), Single(trend[0], base));
  EXPECT_EQ(view.DataAt(21, 2), Single(trend[20], base));
  EXPECT_FALSE(view.HasPoint(22, 2));
  for (const int series : {1, 2}) {
    const ChartMarker mark = MarkerAt(view, series, 21);
    EXPECT_EQ(mark.Size, 8.0);
    EXPECT_EQ(mark.style, kMarkerStar);
    EXPECT_TRUE(mark.Visible);
  }
}

TEST_F(CycleCharts, DrawDominantPeriodAndPeaks) {
  Build();
  EXPECT_EQ(analysis.TitleText, "POWER");
  EXPECT_EQ(Legend(analysis), "F1|1Peak|2Peak|3Peak|4Peak|5Peak");
  EXPECT_EQ(analysis.rowcount(), 31);
  EXPECT_TRUE(analysis.Legend.Location.Visible);
  const auto daily = ComputeSpectrum(Fund(2), 50, 15);
  int peaks = 0;
  for (int day = 1; day <= 21; ++day) {
    const auto index = static_cast<std::size_t>(day - 1);
    EXPECT_EQ(analysis.DataAt(day, 1), double{daily.dominant[index]});
    for (int k = 1; k <= 5; ++k) {
      const int peak = daily.peaks[index][static_cast<std::size_t>(k - 1)];
      const bool drawn = peak > 8 && peak != static_cast<int>(daily.dominant[index]);
      EXPECT_EQ(analysis.HasPoint(day, k + 1), drawn);
      EXPECT_EQ(Points(analysis, k + 1)[index], drawn ? peak : kEmpty);
      const bool marked = MarkerAt(analysis, k + 1, day).Visible;
      EXPECT_EQ(marked, drawn || day == 21);
      peaks += drawn ? 1 : 0;
    }
  }
  EXPECT_GT(peaks, 0);
  EXPECT_FALSE(analysis.Plot.Series(2).showline);
  EXPECT_TRUE(analysis.Plot.Series(1).showline);
  for (int series = 1; series <= 6; ++series) {
    EXPECT_EQ(MarkerAt(analysis, series, 21).Size, 8.0);
  }
}

TEST_F(CycleCharts, ShowTheSpectrumOfTheLastDay) {
  Build();
  EXPECT_EQ(spectrum.TitleText, "Spectrum");
  EXPECT_EQ(spectrum.facts.unit, ValueUnit::kPower);
  EXPECT_EQ(spectrum.rowcount(), 50);
  EXPECT_EQ(spectrum.RowLabelAt(23), "23");
  EXPECT_EQ(spectrum.DataAt(7, 1), 0.0);
  EXPECT_EQ(spectrum.DataAt(23, 1), double{state.PowerSpectrum.Power(23, 21)});
  EXPECT_FALSE(spectrum.Legend.Location.Visible);
}

TEST_F(CycleCharts, StepTheDayWithItsMarks) {
  Build();
  EXPECT_EQ(Step(1), "");  // there is no later day
  EXPECT_EQ(state.SpectrumDay, 21);
  EXPECT_EQ(Step(-1), "");
  EXPECT_EQ(state.SpectrumDay, 20);
  EXPECT_EQ(spectrum.DataAt(23, 1), double{state.PowerSpectrum.Power(23, 20)});
  for (const int series : {1, 2}) {
    EXPECT_FALSE(MarkerAt(view, series, 21).Visible);
    EXPECT_EQ(MarkerAt(view, series, 20).Size, 8.0);
    EXPECT_TRUE(MarkerAt(view, series, 20).Visible);
  }
  EXPECT_FALSE(MarkerAt(analysis, 1, 21).Visible);
  EXPECT_EQ(MarkerAt(analysis, 1, 20).Size, 8.0);
  for (int step = 0; step < 30; ++step) Step(-1);
  for (int series = 2; series <= 6; ++series) {
    for (int day = 2; day <= 21; ++day) {  // each was stepped on and left
      const ChartMarker mark = MarkerAt(analysis, series, day);
      EXPECT_EQ(mark.Visible, analysis.HasPoint(day, series)) << series << " " << day;
      EXPECT_TRUE(!mark.Visible || mark.Size == 4.0) << series << " " << day;
    }
  }
  EXPECT_EQ(state.SpectrumDay, 1);
  EXPECT_EQ(spectrum.DataAt(23, 1), 0.0);  // day 1's is not kept
}

TEST_F(CycleCharts, AddForecastsOfADayAndTakeThemOff) {
  Build();
  const IndicatorNumbers::Mem mem = *request.indicators.mem;
  const auto add = [&](int day) { return AddForecast(day, mem, prices, selection, state, view); };
  EXPECT_EQ(add(5), "");
  EXPECT_EQ(add(21), "");
  EXPECT_EQ(add(22), "");  // no real day
  ASSERT_EQ(view.ColumnCount(), 4);
  EXPECT_EQ(view.ColumnLabelAt(3), " ");
  EXPECT_EQ(view.facts.SeriesAt(3).role, SeriesRole::kForecast);
  EXPECT_EQ(view.facts.SeriesAt(3).name, "forecast");
  EXPECT_EQ(view.Plot.Series(3).Pen.VtColor, (ChartColor{0, 0, 255}));
  const auto forecast = MemForecast(Fund(2), 5, 50, 15);
  const float base = selection.PriceBase[0];
  EXPECT_FALSE(view.HasPoint(4, 3));
  EXPECT_EQ(view.DataAt(5, 3), view.DataAt(5, 1));
  EXPECT_EQ(view.DataAt(6, 3), Single(forecast[0], base));
  EXPECT_EQ(view.DataAt(15, 3), Single(forecast[9], base));
  EXPECT_FALSE(view.HasPoint(16, 3));
  EXPECT_EQ(view.DataAt(31, 4), view.DataAt(31, 1));
  Step(-1);  // marks move on added series too
  EXPECT_TRUE(MarkerAt(view, 4, 20).Visible);
  ClearForecasts(view);
  EXPECT_EQ(view.ColumnCount(), 2);
  EXPECT_EQ(AddForecast(5, {4e4, 15}, prices, selection, state, view), "error: 6 Overflow");
  EXPECT_EQ(view.ColumnCount(), 2);
}

TEST_F(CycleCharts, DrawNothingForPeriodsThatMakeNoSense) {
  request.indicators.mem->longest_period = 7.0;
  EXPECT_TRUE(Build().drawn);
  EXPECT_EQ(analysis.DataAt(4, 1), 0.0);
  EXPECT_EQ(Points(view, 2), std::vector<double>(31, kEmpty));
  EXPECT_FALSE(view.HasPoint(22, 1));
  EXPECT_EQ(spectrum.rowcount(), 7);
  for (const double nonsense : {0.0, -1.0}) {
    request.indicators.mem->longest_period = nonsense;
    EXPECT_TRUE(Build().drawn);
    EXPECT_EQ(Legend(view), "F1|Trend");
    EXPECT_EQ(Points(analysis, 1), std::vector<double>(31, kEmpty));
    EXPECT_EQ(spectrum.rowcount(), 0);
    EXPECT_EQ(Step(-1), "");
  }
}

TEST_F(CycleCharts, TellOnceOfAModelWithoutPolesAndOfTooManyPeriods) {
  request.indicators.mem->poles = 0.0;
  const BuildOutcome outcome = Build();
  EXPECT_TRUE(outcome.drawn);
  EXPECT_EQ(outcome.notice, "never get here in memcof");
  EXPECT_EQ(analysis.DataAt(4, 1), 8.0);
  state.MemPeriod = 6001;
  EXPECT_EQ(BuildSpectrumChart(state, {}, spectrum),
            "Too much data to graph, please choose a shorter time period or fewer funds");
  EXPECT_EQ(spectrum.ColumnCount(), 0);
}

}  // namespace
}  // namespace vistaplot::test
