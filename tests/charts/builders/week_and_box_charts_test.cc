// The charts whose rows are no days: weekly candles, and point and figure.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "charts/builders/candle_chart.h"
#include "charts/builders/point_figure_chart.h"
#include "charts/builders/time_periods.h"
#include "support/price_world.h"

namespace vistaplot::test {
namespace {

/// Market day 1 is a Monday: days 5, 10, 15, ... are Fridays.
struct World : PriceWorld {
  explicit World(const std::vector<std::vector<float>>& histories) : PriceWorld(histories) {
    candles.end_day = boxes.end_day = calendar.MaxNumDays;
  }

  BuildOutcome Candles() { return BuildCandleChart(candles, prices, calendar, selection, view); }
  BuildOutcome Boxes() { return DrawPointAndFigure(boxes, prices, calendar, selection, view); }

  CandleChartRequest candles;
  PointFigureRequest boxes;
};

struct BoxWorld : World {
  explicit BoxWorld(const std::vector<std::vector<float>>& histories) : World(histories) {
    selection.TimePeriodIndex = kAllDays;
  }

  /// The label of a point; nothing without one.
  std::optional<std::string> LabelOf(int row) const {
    for (const auto& [number, item] : view.Plot.Series(1).DataPoints.items) {
      if (number == row && item.DataPointLabel) return item.DataPointLabel->Text;
    }
    return std::nullopt;
  }
};

TEST(CandleChart, DrawsAWeekARow) {
  World world({{10, 12, 9, 11, 11, 20, 0, -1, 15, 18, 99, 99}});
  const BuildOutcome outcome = world.Candles();
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
  world.Candles();
  EXPECT_EQ(world.view.rowcount(), 4);
  EXPECT_EQ(Points(world.view, 5), (std::vector<double>{1.0, 1.0, kEmpty, kEmpty}));
  EXPECT_EQ(world.view.RowLabelAt(2), "01/19/90");
  EXPECT_EQ(world.view.RowLabelAt(3), " ");
  EXPECT_EQ(world.view.RowLabelAt(4), "R4");
}

TEST(CandleChart, LeavesAFundWithoutBarsUnlabelled) {
  World world({std::vector<float>(5, -1.0F)});
  EXPECT_TRUE(world.Candles().drawn);
  EXPECT_EQ(Legend(world.view), "C1|C2|C3|C4");
  EXPECT_EQ(world.view.RowLabelAt(1), " ");
  EXPECT_TRUE(world.view.Plot.Axis[1].ValueScale.Auto);
  EXPECT_EQ(world.view.WhyEmpty, "No week with a price ends in this window");
}

// Day 45 less 20 days is 25; the last market day on or before a month earlier is day 22.
TEST(CandleChart, BeginsOnTheLastDayOfThePeriodBefore) {
  World world({std::vector<float>(60, 3.0F)});
  world.candles.end_day = 45;  // Friday, 2 March
  world.Candles();
  EXPECT_EQ(world.selection.FirstDay, 25);  // 2 February, a Friday
  EXPECT_EQ(world.view.rowcount(), 6);      // days 25, 30, 35, 40, 45
  world.candles.end_day = 41;               // Monday, 26 February
  world.Candles();
  EXPECT_EQ(world.selection.FirstDay, 20);  // Friday, 26 January
  world.candles.end_day = 10;
  world.Candles();
  EXPECT_EQ(world.selection.FirstDay, 1);
  world.selection.TimePeriodIndex = kAllDays;
  const BuildOutcome all = world.Candles();
  EXPECT_EQ(all.scroll_to, 60);
  EXPECT_EQ(all.end_day, 60);
  EXPECT_EQ(world.view.rowcount(), 13);
}

TEST(CandleChart, LooksAsItsTypeAndPeriodSay) {
  World world({std::vector<float>(60, 3.0F), std::vector<float>(60, 3.0F)});
  world.selection.TimePeriodIndex = 7;
  world.selection.CurrentFund = 2;
  world.candles.one_at_a_time = true;
  world.Candles();
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
  world.candles.bars = true;
  world.Candles();
  EXPECT_EQ(plot.Series(1).SeriesType, kSeriesCandleBar);
}

TEST(CandleChart, RefusesMoreThanTwelveThousandValues) {
  // 500 weeks of six funds are 12,000 values.
  World world(std::vector<std::vector<float>>(6, std::vector<float>(2501, 2.0F)));
  world.selection.TimePeriodIndex = kAllDays;
  EXPECT_TRUE(world.Candles().drawn);
  World more(std::vector<std::vector<float>>(6, std::vector<float>(2505, 2.0F)));
  more.selection.TimePeriodIndex = kAllDays;
  const BuildOutcome refused = more.Candles();
  EXPECT_EQ(refused.message,
            "Too much data to graph, please select fewer funds or a shorter time period");
  EXPECT_EQ(refused.scroll_to, 2505);
  EXPECT_EQ(more.view.ColumnCount(), 0);
}

// Day 2 makes three X, day 3 one more, day 4 three O, day 5 three X: columns 1, 2, 3.
const std::vector<float> kThreeColumns = {40.0F, 41.2F, 43.0F, 40.2F, 42.0F};

TEST(PointFigureChart, DrawsABoxARow) {
  BoxWorld world({kThreeColumns});
  const BuildOutcome outcome = world.Boxes();
  EXPECT_TRUE(outcome.drawn);
  EXPECT_EQ(world.view.rowcount(), 7 + 3 + 40 - 3);
  EXPECT_EQ(world.view.ColumnCount(), 2);
  EXPECT_EQ(world.view.ColumnLabelAt(1), "F1");
  EXPECT_EQ(world.view.DataAt(1, 1), 1.0);
  EXPECT_FLOAT_EQ(static_cast<float>(world.view.DataAt(1, 2)), 40.4F);
  EXPECT_FLOAT_EQ(static_cast<float>(world.view.DataAt(4, 2)), 41.6F);
  EXPECT_EQ(world.view.DataAt(7, 1), 3.0);
  EXPECT_EQ(world.view.DataAt(8, 1), 2.0);
  const ChartMarker x = MarkerAt(world.view, 1, 7);
  EXPECT_EQ(x.style, kMarkerCross);
  EXPECT_EQ(x.Size, 6.0);
  EXPECT_TRUE(x.Visible);
  EXPECT_EQ(x.Pen.VtColor, (ChartColor{0, 0, 255}));
  const ChartMarker o = MarkerAt(world.view, 1, 8);
  EXPECT_EQ(o.style, kMarkerCircle);
  EXPECT_EQ(o.Pen.VtColor, (ChartColor{255, 0, 0}));
  const auto& facts = world.view.facts.boxes;
  ASSERT_EQ(facts.size(), 10U);
  EXPECT_EQ(facts[6].date, "01/05/90");
  EXPECT_TRUE(facts[6].rises && !facts[7].rises);
  EXPECT_FLOAT_EQ(static_cast<float>(facts[7].size), 0.4F);
  // The rest stands unseen in the columns up to 40, at the last level.
  EXPECT_EQ(world.view.DataAt(11, 1), 4.0);
  EXPECT_EQ(world.view.DataAt(47, 1), 40.0);
  EXPECT_EQ(world.view.DataAt(47, 2), world.view.DataAt(7, 2));
  EXPECT_FALSE(MarkerAt(world.view, 1, 47).Visible);
}

TEST(PointFigureChart, DatesTheFirstXOfADay) {
  BoxWorld world({kThreeColumns});
  EXPECT_EQ(world.Boxes().box_dates, "Last X: 01/05/90 Last O: 01/04/90");
  std::string labels;  // of the seven X; O boxes get none
  for (int row = 1; row <= 10; ++row) labels += world.LabelOf(row).value_or("") + "|";
  EXPECT_EQ(labels, "1/2/90|||1/3/90|1/5/90||||||");
  EXPECT_EQ(world.view.Plot.Series(1).DataPoints.items[0].second.DataPointLabel->LocationType,
            kLabelBelow);
  BoxWorld falls({{40.0F, 38.0F}});
  EXPECT_EQ(falls.Boxes().box_dates, "Last X:  Last O: 01/02/90");
}

TEST(PointFigureChart, LooksAsAgreed) {
  BoxWorld world({kThreeColumns});
  world.boxes.display.height = 14400.0;
  world.Boxes();
  EXPECT_EQ(world.view.ChartType, kChartXY);
  EXPECT_EQ(world.view.TitleText, "Point & Figure");
  EXPECT_EQ(world.view.title.TextLayout.Orientation, kOrientationVertical);
  const ChartPlot& plot = world.view.Plot;
  EXPECT_DOUBLE_EQ(plot.LocationRect.Max.X, 5.9);
  EXPECT_DOUBLE_EQ(plot.LocationRect.Max.Y, 7.4);
  EXPECT_TRUE(plot.Series(1).SeriesMarker.Show);
  EXPECT_FALSE(plot.Series(1).showline);
  EXPECT_TRUE(plot.Axis[0].AxisScale.Hide);
  EXPECT_EQ(plot.Axis[0].AxisGrid.MajorPen.style, kPenNone);
  EXPECT_FALSE(plot.Axis[1].AxisScale.Hide);
  EXPECT_EQ(plot.Axis[1].Labels.VtFont.Size, 6.0);
}

// The current fund alone, from the first day of the period on.
TEST(PointFigureChart, DrawsTheCurrentFundOverThePeriod) {
  std::vector<float> late(45, 50.0F);
  late[30] = 60.0F;
  BoxWorld world({std::vector<float>(45, 20.0F), late});
  world.selection.TimePeriodIndex = 0;
  world.selection.CurrentFund = 2;
  world.Boxes();
  EXPECT_EQ(world.selection.FirstDay, 25);
  EXPECT_EQ(world.view.ColumnLabelAt(1), "F2");
  EXPECT_EQ(world.LabelOf(1), "2/12/90");  // day 31
  world.selection.TimePeriodIndex = kAllDays;
  world.boxes.end_day = 7;
  const BuildOutcome all = world.Boxes();
  EXPECT_EQ(all.end_day, 45);
  EXPECT_EQ(all.scroll_to, 45);
  EXPECT_EQ(world.selection.FirstDay, 1);
}

TEST(PointFigureChart, SaysWhyItIsEmpty) {
  BoxWorld still({{50.0F, 51.1F, 49.0F}});
  still.Boxes();
  EXPECT_EQ(still.view.WhyEmpty, "F1 has not moved by 3 boxes in this window");
  BoxWorld moved({{50.0F, 51.2F}});
  moved.Boxes();
  EXPECT_EQ(moved.view.WhyEmpty, "");
  BoxWorld world({{-1.0F, -1.0F, -1.0F}});
  const BuildOutcome outcome = world.Boxes();
  EXPECT_TRUE(outcome.drawn);
  EXPECT_TRUE(outcome.message.empty());
  EXPECT_EQ(world.view.WhyEmpty, "F1 has no price in this window");
  for (const double y : Points(world.view, 2)) EXPECT_EQ(y, kEmpty);
}

TEST(PointFigureChart, RefusesTooManyColumnsAndBoxesOfNoHeight) {
  std::vector<float> turns;
  for (int day = 0; day < 60; ++day) turns.push_back(day % 2 == 0 ? 30.0F : 60.0F);
  BoxWorld world({turns});
  world.boxes.settings.PfReversal = 0;
  EXPECT_EQ(world.Boxes().message, "Too many columns, please select a shorter time period");
  EXPECT_EQ(world.view.ColumnCount(), 0);
  world.boxes.settings.PfBox[4] = 0.0F;
  const BuildOutcome refused = world.Boxes();
  EXPECT_FALSE(refused.drawn);
  EXPECT_EQ(refused.message,
            "The box value of range 5 is 0: point and figure needs values above 0");
  EXPECT_EQ(refused.scroll_to, 60);
}

}  // namespace
}  // namespace vistaplot::test
