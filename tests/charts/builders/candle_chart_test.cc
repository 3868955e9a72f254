#include "charts/builders/candle_chart.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "charts/builders/time_periods.h"
#include "support/price_world.h"

namespace vistaplot {
namespace {

using test::kEmpty;
using test::Legend;
using test::Points;

/// Market day 1 is a Monday: days 5, 10, 15, ... are Fridays.
struct World : test::PriceWorld {
  explicit World(const std::vector<std::vector<float>>& histories) : PriceWorld(histories) {
    request.end_day = calendar.MaxNumDays;
  }

  BuildOutcome Build() { return BuildCandleChart(request, prices, calendar, selection, view); }

  CandleChartRequest request;
};

TEST(CandleChart, DrawsAWeekARow) {
  World world({{10, 12, 9, 11, 11, 20, 0, -1, 15, 18, 99, 99}});
  const BuildOutcome outcome = world.Build();
  EXPECT_TRUE(outcome.drawn);
  EXPECT_EQ(outcome.end_day, 12);
  EXPECT_EQ(Legend(world.view), "F1|HIGH|LOW|CLOSE");
  const auto single = [](float value) { return double{value / 10.0F}; };
  EXPECT_EQ(Points(world.view, 1), (std::vector<double>{1.0, 2.0, kEmpty}));
  EXPECT_EQ(Points(world.view, 2), (std::vector<double>{single(12), 2.0, kEmpty}));
  EXPECT_EQ(Points(world.view, 3), (std::vector<double>{single(9), 1.5, kEmpty}));
  EXPECT_EQ(Points(world.view, 4), (std::vector<double>{single(11), single(18), kEmpty}));
  EXPECT_EQ(world.view.RowLabelAt(1), "01/05/90");
  EXPECT_EQ(world.view.RowLabelAt(2), "01/12/90");
  EXPECT_EQ(world.view.RowLabelAt(3), " ");
  // The bounds are those of what was written, 99 is not.
  const auto& scale = world.view.Plot.Axis[1].ValueScale;
  EXPECT_FALSE(scale.Auto);
  EXPECT_DOUBLE_EQ(scale.Minimum, single(9) - 0.01);
  EXPECT_DOUBLE_EQ(scale.Maximum, 2.01);
  EXPECT_EQ(world.view.facts.SeriesAt(1).name, "F1");
  EXPECT_EQ(world.view.facts.SeriesAt(1).base, 10.0);
  EXPECT_EQ(world.view.facts.unit, ValueUnit::kRatio);
  EXPECT_EQ(world.selection.FirstDay, 1);
  EXPECT_EQ(world.selection.PriceBase, (std::vector<float>{10, 0, 0, 0}));
}

// F1 has no price in week 2, so that its bar of week 3 is row 2, and the blank behind its bars, as
// the last fund's, stands over F2's label of row 3.
TEST(CandleChart, LabelsRowsByEachFundInTurn) {
  std::vector<float> gap(15, 5.0F);
  for (std::size_t i = 5; i < 10; ++i) gap[i] = -1.0F;
  World world({std::vector<float>(15, 8.0F), gap});
  world.Build();
  EXPECT_EQ(world.view.rowcount(), 4);
  EXPECT_EQ(Points(world.view, 5), (std::vector<double>{1.0, 1.0, kEmpty, kEmpty}));
  EXPECT_EQ(world.view.RowLabelAt(2), "01/19/90");
  EXPECT_EQ(world.view.RowLabelAt(3), " ");
  EXPECT_EQ(world.view.RowLabelAt(4), "R4");
}

TEST(CandleChart, LeavesAFundWithoutBarsUnlabelled) {
  World world({std::vector<float>(5, -1.0F)});
  EXPECT_TRUE(world.Build().drawn);
  EXPECT_EQ(Legend(world.view), "C1|C2|C3|C4");
  EXPECT_EQ(world.view.RowLabelAt(1), " ");
  EXPECT_TRUE(world.view.Plot.Axis[1].ValueScale.Auto);
  EXPECT_EQ(world.view.WhyEmpty, "No week with a price ends in this window");
}

// Day 45 less 20 days is 25; the last market day on or before a month earlier is day 22.
TEST(CandleChart, BeginsOnTheLastDayOfThePeriodBefore) {
  World world({std::vector<float>(60, 3.0F)});
  world.request.end_day = 45;  // Friday, 2 March
  world.Build();
  EXPECT_EQ(world.selection.FirstDay, 25);  // 2 February, a Friday
  EXPECT_EQ(world.view.rowcount(), 6);      // days 25, 30, 35, 40, 45
  world.request.end_day = 41;               // Monday, 26 February
  world.Build();
  EXPECT_EQ(world.selection.FirstDay, 20);  // Friday, 26 January
  world.request.end_day = 10;
  world.Build();
  EXPECT_EQ(world.selection.FirstDay, 1);
  world.selection.TimePeriodIndex = kAllDays;
  const BuildOutcome all = world.Build();
  EXPECT_EQ(all.scroll_to, 60);
  EXPECT_EQ(all.end_day, 60);
  EXPECT_EQ(world.view.rowcount(), 13);
}

TEST(CandleChart, LooksAsItsTypeAndPeriodSay) {
  World world({std::vector<float>(60, 3.0F), std::vector<float>(60, 3.0F)});
  world.selection.TimePeriodIndex = 7;
  world.selection.CurrentFund = 2;
  world.request.one_at_a_time = true;
  world.Build();
  EXPECT_EQ(Legend(world.view), "F2|HIGH|LOW|CLOSE");
  EXPECT_EQ(world.view.ChartType, kChartStock);
  EXPECT_EQ(world.view.TitleText, "NAV");
  EXPECT_EQ(world.view.title.Location.LocationType, kLocationTopLeft);
  const ChartPlot& plot = world.view.Plot;
  EXPECT_EQ(plot.Series(4).SeriesType, kSeriesCandleLine);
  EXPECT_EQ(plot.Series(4).Pen.Width, 0.0);
  EXPECT_EQ(plot.Series(1).HiLo.GainColor, (ChartColor{0, 255, 10}));
  EXPECT_EQ(plot.Series(1).HiLo.LossColor, (ChartColor{255, 10, 0}));
  EXPECT_EQ(plot.Axis[0].CategoryScale.DivisionsPerLabel, 16);
  EXPECT_EQ(plot.Axis[0].CategoryScale.DivisionsPerTick, 6);
  EXPECT_DOUBLE_EQ(plot.LocationRect.Max.X, 5.8);
  EXPECT_DOUBLE_EQ(plot.LocationRect.Min.Y, 0.35);
  EXPECT_TRUE(plot.Axis[1].AxisScale.Hide);
  world.request.bars = true;
  world.Build();
  EXPECT_EQ(plot.Series(1).SeriesType, kSeriesCandleBar);
}

TEST(CandleChart, RefusesMoreThanTwelveThousandValues) {
  // 500 weeks of six funds are 12,000 values.
  World world(std::vector<std::vector<float>>(6, std::vector<float>(2501, 2.0F)));
  world.selection.TimePeriodIndex = kAllDays;
  EXPECT_TRUE(world.Build().drawn);
  World more(std::vector<std::vector<float>>(6, std::vector<float>(2505, 2.0F)));
  more.selection.TimePeriodIndex = kAllDays;
  const BuildOutcome refused = more.Build();
  EXPECT_EQ(refused.message,
            "Too much data to graph, please select fewer funds or a shorter time period");
  EXPECT_EQ(refused.scroll_to, 2505);
  EXPECT_EQ(more.view.ColumnCount(), 0);
}

}  // namespace
}  // namespace vistaplot
