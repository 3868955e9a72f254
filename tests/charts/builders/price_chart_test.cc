#include "charts/builders/price_chart.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/text.h"
#include "support/weekday_calendar.h"

namespace vistaplot {
namespace {

/// A price sheet from lines of "AAA,BBB" and then one line of prices a market day, all columns
/// selected; the dates are the calendar's.
struct World {
  explicit World(const std::string& csv) {
    const std::vector<std::string_view> lines = Split(csv, '\n');
    calendar = WeekdayCalendar(static_cast<int>(lines.size()) - 1);
    prices.MaxRow = static_cast<int>(lines.size());
    for (int row = 1; row <= prices.MaxRow; ++row) {
      if (row > 1) {
        prices.SetCellText(
            row, 1, DateText(calendar.DateOf(row - 1), DatePattern::kMonthDayLongYear));
      }
      int col = 1;
      for (const auto cell : Split(lines[static_cast<std::size_t>(row - 1)], ',')) {
        prices.SetCellText(row, ++col, cell);
      }
      prices.MaxCol = col;
    }
    SelectAll();
    request.end_day = calendar.MaxNumDays;
  }

  // `funds` issues of `days` days at one price.
  World(int funds, int days) : calendar(WeekdayCalendar(days)) {
    prices.MaxCol = funds + 1;
    for (int col = 2; col <= prices.MaxCol; ++col) {
      prices.SetPriceColumn(col, "F", std::vector<float>(static_cast<std::size_t>(days), 1.0F));
    }
    SelectAll();
    request.end_day = days;
  }

  void SelectAll() {
    prices.Select({.SelStartRow = 1, .SelStartCol = 1, .SelEndRow = 1, .SelEndCol = prices.MaxCol});
    EXPECT_EQ(ReadGraphSelection(prices, SelectionUse::kFunds, selection), "");
  }

  PriceChartOutcome Build() { return BuildPriceChart(request, prices, calendar, selection, view); }

  MarketCalendar calendar;
  Sheet prices;
  GraphSelection selection;
  ChartView view;
  PriceChartRequest request;
};

constexpr double kEmpty = -99.0;  // stands for an empty point

std::vector<double> Points(const ChartView& view, int column) {
  std::vector<double> points;
  for (int row = 1; row <= view.rowcount(); ++row) {
    points.push_back(view.HasPoint(row, column) ? view.DataAt(row, column) : kEmpty);
  }
  return points;
}

std::vector<std::string> Legend(const ChartView& view) {
  std::vector<std::string> labels;
  for (int c = 1; c <= view.ColumnCount(); ++c) labels.push_back(view.ColumnLabelAt(c));
  return labels;
}

TEST(PriceChart, RebasesEveryFundToItsFirstPriceDrawn) {
  World world("AAA,BBB\n10,-1\n20,-1\n25,-1\n-1,0\n30,8\n15,10");
  const PriceChartOutcome outcome = world.Build();
  EXPECT_TRUE(outcome.drawn);
  EXPECT_EQ(outcome.end_day, 6);
  EXPECT_FALSE(outcome.scroll_to);
  EXPECT_EQ(Points(world.view, 1), (std::vector<double>{0.0, 0.25, kEmpty, 0.5, -0.25}));
  EXPECT_EQ(Points(world.view, 2), (std::vector<double>{kEmpty, kEmpty, kEmpty, 0.0, 0.25}));
  EXPECT_EQ(Legend(world.view), (std::vector<std::string>{"AAA", "BBB"}));
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
  EXPECT_EQ(Legend(world.view), (std::vector<std::string>{"CCC"}));
  EXPECT_EQ(Points(world.view, 1), (std::vector<double>{0.0, 0.25}));
  EXPECT_EQ(world.selection.FirstFund, 3);
  EXPECT_EQ(world.selection.LastFund, 3);
}

TEST(PriceChart, LooksAsItsTypeScreenAndPeriodSay) {
  World world(1, 700);
  world.request.screen_width = 19200.0;
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

// BBB's first price is on chart day 3: "e" marks the days before with -0.5.
TEST(PriceChart, DrawsOverlaysOnTheScaleOfTheirFund) {
  World world("AAA,BBB \n1,-1\n10,-1\n11,-1\n12,20\n13,21");
  world.request.overlays = {
      {.suffixes = {"e"},
       .roles = {SeriesRole::kAverage},
       .names = {"average 3"},
       .curves = [](const FundDays& days) -> std::vector<std::vector<float>> {
         EXPECT_EQ(days.first_day, 2);
         EXPECT_EQ(days.chart_days, 4);
         if (days.column == 2) return {{10.0F, 10.5F, 0.0F, 12.0F}};
         return {{-0.5F, -0.5F, 20.0F, 20.5F}};
       }},
      {.suffixes = {"b1", "ba", "b2"},
       .roles = {SeriesRole::kUpperBand, SeriesRole::kMiddleBand, SeriesRole::kLowerBand},
       .names = {"upper band 2", "middle band 2", "lower band 2"},
       .curves = [](const FundDays&) {
         return std::vector<std::vector<float>>{
             {0.0F, 12.0F, 15.0F, 20.0F}, {9.0F, 0.0F, 10.0F, 11.0F}, {8.0F, 7.0F, 6.0F, 5.0F}};
       }}};
  EXPECT_TRUE(world.Build().drawn);
  EXPECT_EQ(
      Legend(world.view),
      (std::vector<std::string>{
          "AAA", "AAAe", "AAAb1", "AAAba", "AAAb2", "BBB ", "BBBe", "BBBb1", "BBBba", "BBBb2"}));
  const SeriesFacts& band = world.view.facts.SeriesAt(10);
  EXPECT_EQ(band.name, "BBB lower band 2");
  EXPECT_EQ(band.role, SeriesRole::kLowerBand);
  EXPECT_EQ(band.parent, 6);
  EXPECT_EQ(band.base, 20.0);
  const auto single = [](float value, float base) { return double{value / base - 1.0F}; };
  EXPECT_EQ(
      Points(world.view, 2),
      (std::vector<double>{kEmpty, single(10.5F, 10.0F), single(0.0F, 10.0F), single(12, 10)}));
  EXPECT_EQ(Points(world.view, 3), (std::vector<double>{kEmpty, kEmpty, kEmpty, 1.0}));
  EXPECT_EQ(Points(world.view, 5), (std::vector<double>{kEmpty, kEmpty, kEmpty, -0.5}));
  EXPECT_EQ(Points(world.view, 7),
            (std::vector<double>{kEmpty, kEmpty, 0.0, single(20.5F, 20.0F)}));
  EXPECT_EQ(world.selection.PriceBase,
            (std::vector<float>{10, 10, 15, 10, 6, 20, -0.5F, 15, 10, 6}));
  EXPECT_EQ(world.view.Plot.Series(5).Pen.VtColor, world.view.Plot.Series(3).Pen.VtColor);
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
  EXPECT_EQ(world.view.rowcount(), 4001);
  EXPECT_EQ(world.view.ColumnCount(), 0);

  World fits(3, 4001);
  fits.selection.TimePeriodIndex = kAllDays;
  EXPECT_TRUE(fits.Build().drawn);
  EXPECT_EQ(fits.view.ColumnCount(), 3);
}

TEST(PriceChart, LeavesTheChartWhenTheHistoryIsTooShort) {
  World world("AAA\n1\n2\n3");
  int told = 0;
  world.view.SetObserver([&] { ++told; });
  world.Build();
  EXPECT_EQ(told, 1);
  world.request.LookbackDays = 4;
  world.selection.TimePeriodIndex = kAllDays;
  const PriceChartOutcome refused = world.Build();
  EXPECT_EQ(refused.message, "Not enough history for the chosen periods");
  EXPECT_EQ(refused.scroll_to, 3);
  EXPECT_EQ(told, 1);
  EXPECT_EQ(world.view.ColumnCount(), 1);
  EXPECT_EQ(world.selection.ChartDays, 2);
}

}  // namespace
}  // namespace vistaplot
