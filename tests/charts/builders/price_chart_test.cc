#include "charts/builders/price_chart.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/text.h"
#include "charts/builders/time_periods.h"
#include "support/price_world.h"

namespace vistaplot {
namespace {

using test::kEmpty;
using test::Legend;
using test::Points;

struct World : test::PriceWorld {
  explicit World(const std::string& csv) : PriceWorld(csv) {
    request.end_day = calendar.MaxNumDays;
  }

  // `funds` issues of `days` days at one price.
  World(int funds, int days)
      : PriceWorld(std::vector<std::vector<float>>(
            static_cast<std::size_t>(funds),
            std::vector<float>(static_cast<std::size_t>(days), 1.0F))) {
    request.end_day = days;
  }

  PriceChartOutcome Build() { return BuildPriceChart(request, prices, calendar, selection, view); }

  PriceChartRequest request;
};

TEST(PriceChart, RebasesEveryFundToItsFirstPriceDrawn) {
  World world("AAA,BBB\n10,-1\n20,-1\n25,-1\n-1,0\n30,8\n15,10");
  const PriceChartOutcome outcome = world.Build();
  EXPECT_TRUE(outcome.drawn);
  EXPECT_EQ(outcome.end_day, 6);
  EXPECT_FALSE(outcome.scroll_to);
  EXPECT_EQ(Points(world.view, 1), (std::vector<double>{0.0, 0.25, kEmpty, 0.5, -0.25}));
  EXPECT_EQ(Points(world.view, 2), (std::vector<double>{kEmpty, kEmpty, kEmpty, 0.0, 0.25}));
  EXPECT_EQ(Legend(world.view), "AAA|BBB");
  EXPECT_EQ(world.view.RowLabelAt(1), "01/02/90");
  EXPECT_EQ(world.view.RowLabelAt(5), "01/08/90");
  EXPECT_EQ(world.selection.FirstDay, 2);
  EXPECT_EQ(world.selection.ChartDays, 5);
  EXPECT_EQ(world.selection.PriceBase, (std::vector<float>{20.0F, 8.0F}));
}

// The base is single precision, the value and the quotient are double.
TEST(PriceChart, DividesInDoubleByASinglePrecisionBase) {
  World world("AAA\n1\n12.34\n12.35\n12.34");
  world.Build();
  EXPECT_EQ(world.view.DataAt(1, 1), 0.0);
  EXPECT_EQ(world.view.DataAt(2, 1), 12.35 / 12.340000152587890625 - 1.0);
  EXPECT_EQ(world.view.DataAt(3, 1), 12.34 / 12.340000152587890625 - 1.0);
}

TEST(PriceChart, LabelsRowsWithTheDatesOfTheSheet) {
  World world("AAA\n1\n1\n1\n1\n1");
  world.prices.SetCellText(3, 1, "12/31/1999");
  world.prices.SetCellText(4, 1, "1/5/2001");
  world.prices.SetCellText(5, 1, "02/29/1999");
  world.Build();
  EXPECT_EQ(world.view.RowLabelAt(1), "12/31/99");
  EXPECT_EQ(world.view.RowLabelAt(2), "01/05/01");
  EXPECT_EQ(world.view.RowLabelAt(3), "02/29/1999");  // no date: as it stands
}

TEST(PriceChart, DrawsOneFundAtATime) {
  World world("AAA,BBB,CCC\n1,2,4\n1,2,4\n2,3,5");
  world.request.one_at_a_time = true;
  world.selection.CurrentFund = 3;
  world.Build();
  EXPECT_EQ(Legend(world.view), "CCC");
  EXPECT_EQ(Points(world.view, 1), (std::vector<double>{0.0, 0.25}));
  EXPECT_EQ(world.selection.FirstFund, 3);
  EXPECT_EQ(world.selection.LastFund, 3);
}

TEST(PriceChart, LooksAsItsTypeScreenAndPeriodSay) {
  World world(1, 700);
  world.request.display.width = 19200.0;
  world.selection.TimePeriodIndex = 6;
  world.Build();
  const ChartPlot& plot = world.view.Plot;
  EXPECT_EQ(world.view.TitleText, "NAV");
  EXPECT_EQ(world.view.title.Location.LocationType, kLocationTopLeft);
  EXPECT_DOUBLE_EQ(plot.LocationRect.Max.X, 11.8);
  EXPECT_DOUBLE_EQ(plot.LocationRect.Max.Y, 3.75);
  EXPECT_TRUE(plot.Series(1).showline);
  EXPECT_EQ(plot.Axis[0].CategoryScale.DivisionsPerLabel, 48);
  EXPECT_EQ(plot.Axis[0].CategoryScale.DivisionsPerTick, 7);
  EXPECT_TRUE(plot.Axis[1].AxisScale.Hide);
  EXPECT_FALSE(plot.Axis[0].AxisScale.Hide);

  world.request.scatter = true;
  world.request.screen = PriceScreen::kThreeCharts;
  world.Build();
  EXPECT_EQ(world.view.title.Location.LocationType, kLocationBottomRight);
  EXPECT_DOUBLE_EQ(plot.LocationRect.Max.Y, 2.0);
  EXPECT_TRUE(plot.Series(1).SeriesMarker.Show);
  EXPECT_FALSE(plot.Series(1).showline);
}

// An average of one day is the price itself. The bands of two days need four of history; BBB, whose
// first price is on chart day 3, never has a price three days before.
TEST(PriceChart, DrawsOverlaysOnTheScaleOfTheirFund) {
  World world("AAA,BBB \n8,-1\n8,-1\n8,-1\n10,-1\n12,-1\n11,20\n13,21\n15,22");
  world.request.indicators.average = 1.0;
  world.request.indicators.bands = 2.0;
  EXPECT_TRUE(world.Build().drawn);
  EXPECT_EQ(world.selection.FirstDay, 4);
  EXPECT_EQ(Legend(world.view), "AAA|AAAe|AAAb1|AAAba|AAAb2|BBB |BBBe|BBBb1|BBBba|BBBb2");
  const SeriesFacts& band = world.view.facts.SeriesAt(10);
  EXPECT_EQ(band.name, "BBB lower band 2");
  EXPECT_EQ(band.role, SeriesRole::kLowerBand);
  EXPECT_EQ(band.parent, 6);
  EXPECT_EQ(band.base, 20.0);
  const auto single = [](float value, float base) { return double{value / base - 1.0F}; };
  EXPECT_EQ(Points(world.view, 2),
            (std::vector<double>{
                kEmpty, single(12, 10), single(11, 10), single(13, 10), single(15, 10)}));
  // Of the two days before: 8 and 10, then 10 and 12; one day each side of the mean.
  EXPECT_EQ(world.view.DataAt(2, 3), single(11, 10));
  EXPECT_EQ(world.view.DataAt(2, 4), single(9, 10));
  EXPECT_EQ(world.view.DataAt(2, 5), single(7, 10));
  EXPECT_EQ(world.view.DataAt(3, 3), single(13, 10));
  EXPECT_FALSE(world.view.HasPoint(1, 3));
  EXPECT_EQ(Points(world.view, 7),
            (std::vector<double>{kEmpty, kEmpty, 0.0, single(21, 20), single(22, 20)}));
  EXPECT_EQ(Points(world.view, 8), std::vector<double>(5, kEmpty));
  EXPECT_EQ(world.selection.PriceBase, (std::vector<float>{10, 10, 8, 8, 8, 20, -0.5F, 0, 0, 0}));
  EXPECT_EQ(world.view.Plot.Series(5).Pen.VtColor, world.view.Plot.Series(3).Pen.VtColor);
}

// Twelve days at the same price at the end of the table look like a history that has ended.
TEST(PriceChart, StatesWhereAHistoryHasEnded) {
  World world(2, 40);
  std::vector<float> prices(40, 6.0F);
  std::fill_n(prices.begin(), 27, 5.0F);
  world.prices.SetPriceColumn(3, "OLD", prices);  // its last own price is that of day 28
  prices.back() = 6.5F;
  world.prices.SetPriceColumn(2, "NEW", prices);
  EXPECT_TRUE(world.Build().drawn);
  const ChartFacts& facts = world.view.facts;
  EXPECT_EQ(facts.SeriesAt(1).last_price_row, std::nullopt);
  EXPECT_EQ(facts.SeriesAt(2).last_price_row, world.view.rowcount() - 12);
  EXPECT_EQ(facts.SeriesAt(1).base, 5.0);
  EXPECT_EQ(facts.unit, ValueUnit::kChange);
}

TEST(PriceChart, OrdersOverlaysAndLeavesNonsenseEmpty) {
  World world("A\n10\n10\n11\n12");
  world.request.indicators = {
      .average = -1.0, .adaptive = 0.0, .parabolic = ParabolicSteps{}, .bands = 0.0};
  EXPECT_TRUE(world.Build().drawn);
  EXPECT_EQ(Legend(world.view), "A|Ae|Aa|Ap|Ab1|Aba|Ab2");
  for (const int column : {2, 3, 5, 6, 7}) {
    EXPECT_EQ(Points(world.view, column), std::vector<double>(3, kEmpty)) << column;
  }
  EXPECT_EQ(Points(world.view, 4), (std::vector<double>{kEmpty, 0.0, 0.0}));
}

TEST(PriceChart, TellsOfAParameterBeyondSixteenBits) {
  World world(1, 30);
  for (const double number : {40000.0, 32766.0, -40000.0}) {
    world.request.indicators.average = number;
    const PriceChartOutcome refused = world.Build();
    EXPECT_EQ(refused.message, "error: 6 Overflow") << number;
    EXPECT_EQ(world.view.ColumnCount(), 0);
  }
  world.request.indicators = {.hurst = IndicatorNumbers::Hurst{.days = 3, .subperiods = 4e4}};
  EXPECT_EQ(world.Build().message, "error: 6 Overflow");
}

TEST(PriceChart, LeavesTheHistoryThatTheLongestPeriodNeeds) {
  World world(1, 100);
  world.request.indicators = {.average = 50.0, .bands = 20.0};
  EXPECT_TRUE(world.Build().drawn);
  EXPECT_EQ(world.selection.FirstDay, 78);  // a month before day 100
  world.request.indicators.average = 89.5;  // 91.5 is nearest to 92
  world.Build();
  EXPECT_EQ(world.selection.FirstDay, 92);
}

TEST(PriceChart, RefusesMoreThanTwelveThousandPoints) {
  World world(3, 4002);
  world.selection.TimePeriodIndex = kAllDays;
  world.request.end_day = 300;
  const PriceChartOutcome refused = world.Build();
  EXPECT_FALSE(refused.drawn);
  EXPECT_EQ(refused.message,
            "Too much data to graph, please choose a shorter time period or fewer funds");
  EXPECT_EQ(refused.scroll_to, 4002);
  EXPECT_EQ(world.view.ColumnCount(), 0);

  World fits(3, 4001);
  fits.selection.TimePeriodIndex = kAllDays;
  EXPECT_TRUE(fits.Build().drawn);
  EXPECT_EQ(fits.view.ColumnCount(), 3);
}

TEST(PriceChart, LeavesTheChartEmptyWhenTheHistoryIsTooShort) {
  World world("AAA\n1\n2\n3");
  int told = 0;
  world.view.SetObserver([&] { ++told; });
  world.Build();
  EXPECT_EQ(told, 1);
  world.request.indicators.average = 2.0;
  world.selection.TimePeriodIndex = kAllDays;
  const PriceChartOutcome refused = world.Build();
  EXPECT_EQ(refused.message, "Not enough history for the chosen periods");
  EXPECT_EQ(refused.scroll_to, 3);
  EXPECT_EQ(told, 2);
  EXPECT_EQ(world.view.ColumnCount(), 0);
  EXPECT_EQ(world.selection.ChartDays, 2);
}

}  // namespace
}  // namespace vistaplot
