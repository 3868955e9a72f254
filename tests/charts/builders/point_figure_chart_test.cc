#include "charts/builders/point_figure_chart.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "charts/builders/time_periods.h"
#include "support/price_world.h"

namespace vistaplot {
namespace {

struct World : test::PriceWorld {
  explicit World(const std::vector<std::vector<float>>& histories) : PriceWorld(histories) {
    request.end_day = calendar.MaxNumDays;
    selection.TimePeriodIndex = kAllDays;
  }

  BuildOutcome Build() { return DrawPointAndFigure(request, prices, calendar, selection, view); }

  /// The label of a point; nothing without one.
  std::optional<std::string> LabelOf(int row) const {
    for (const auto& [number, item] : view.Plot.Series(1).DataPoints.items) {
      if (number == row && item.DataPointLabel) return item.DataPointLabel->Text;
    }
    return std::nullopt;
  }

  PointFigureRequest request;
};

// Day 2 makes three X, day 3 one more, day 4 three O, day 5 three X: columns 1, 2, 3.
const std::vector<float> kThreeColumns = {40.0F, 41.2F, 43.0F, 40.2F, 42.0F};

TEST(PointFigureChart, DrawsABoxARow) {
  World world({kThreeColumns});
  const BuildOutcome outcome = world.Build();
  EXPECT_TRUE(outcome.drawn);
  EXPECT_EQ(world.view.rowcount(), 7 + 3 + 40 - 3);
  EXPECT_EQ(world.view.ColumnCount(), 2);
  EXPECT_EQ(world.view.ColumnLabelAt(1), "F1");
  EXPECT_EQ(world.view.DataAt(1, 1), 1.0);
  EXPECT_FLOAT_EQ(static_cast<float>(world.view.DataAt(1, 2)), 40.4F);
  EXPECT_FLOAT_EQ(static_cast<float>(world.view.DataAt(4, 2)), 41.6F);
  EXPECT_EQ(world.view.DataAt(7, 1), 3.0);
  EXPECT_EQ(world.view.DataAt(8, 1), 2.0);
  const ChartMarker x = test::MarkerAt(world.view, 1, 7);
  EXPECT_EQ(x.style, kMarkerCross);
  EXPECT_EQ(x.Size, 6.0);
  EXPECT_TRUE(x.Visible);
  EXPECT_EQ(x.Pen.VtColor, (ChartColor{0, 0, 255}));
  const ChartMarker o = test::MarkerAt(world.view, 1, 8);
  EXPECT_EQ(o.style, kMarkerCircle);
  EXPECT_EQ(o.Pen.VtColor, (ChartColor{255, 0, 0}));
  ASSERT_EQ(world.view.facts.boxes.size(), 10U);
  EXPECT_EQ(world.view.facts.boxes[6].date, "01/05/90");
  EXPECT_TRUE(world.view.facts.boxes[6].rises);
  EXPECT_FALSE(world.view.facts.boxes[7].rises);
  EXPECT_FLOAT_EQ(static_cast<float>(world.view.facts.boxes[7].size), 0.4F);
  // The rest stands unseen in the columns up to 40, at the last level.
  EXPECT_EQ(world.view.DataAt(11, 1), 4.0);
  EXPECT_EQ(world.view.DataAt(47, 1), 40.0);
  EXPECT_EQ(world.view.DataAt(47, 2), world.view.DataAt(7, 2));
  EXPECT_FALSE(test::MarkerAt(world.view, 1, 47).Visible);
}

TEST(PointFigureChart, DatesTheFirstXOfADay) {
  World world({kThreeColumns});
  EXPECT_EQ(world.Build().box_dates, "Last X: 01/05/90 Last O: 01/04/90");
  EXPECT_EQ(world.LabelOf(1), "1/2/90");
  EXPECT_EQ(world.LabelOf(2), std::nullopt);
  EXPECT_EQ(world.LabelOf(4), "1/3/90");
  EXPECT_EQ(world.LabelOf(5), "1/5/90");
  EXPECT_EQ(world.LabelOf(8), std::nullopt);  // O boxes get none
  EXPECT_EQ(world.view.Plot.Series(1).DataPoints.items[0].second.DataPointLabel->LocationType,
            kLabelBelow);
  World falls({{40.0F, 38.0F}});
  EXPECT_EQ(falls.Build().box_dates, "Last X:  Last O: 01/02/90");
}

TEST(PointFigureChart, LooksAsAgreed) {
  World world({kThreeColumns});
  world.request.display.height = 14400.0;
  world.Build();
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
  World world({std::vector<float>(45, 20.0F), late});
  world.selection.TimePeriodIndex = 0;
  world.selection.CurrentFund = 2;
  world.Build();
  EXPECT_EQ(world.selection.FirstDay, 25);
  EXPECT_EQ(world.view.ColumnLabelAt(1), "F2");
  EXPECT_EQ(world.LabelOf(1), "2/12/90");  // day 31
  world.selection.TimePeriodIndex = kAllDays;
  world.request.end_day = 7;
  const BuildOutcome all = world.Build();
  EXPECT_EQ(all.end_day, 45);
  EXPECT_EQ(all.scroll_to, 45);
  EXPECT_EQ(world.selection.FirstDay, 1);
}

TEST(PointFigureChart, SaysWhyItIsEmpty) {
  World still({{50.0F, 51.1F, 49.0F}});
  still.Build();
  EXPECT_EQ(still.view.WhyEmpty, "F1 has not moved by 3 boxes in this window");
  World moved({{50.0F, 51.2F}});
  moved.Build();
  EXPECT_EQ(moved.view.WhyEmpty, "");
  World world({{-1.0F, -1.0F, -1.0F}});
  const BuildOutcome outcome = world.Build();
  EXPECT_TRUE(outcome.drawn);
  EXPECT_TRUE(outcome.message.empty());
  EXPECT_EQ(world.view.WhyEmpty, "F1 has no price in this window");
  for (const double y : test::Points(world.view, 2)) EXPECT_EQ(y, test::kEmpty);
}

TEST(PointFigureChart, RefusesTooManyColumnsAndBoxesOfNoHeight) {
  std::vector<float> turns;
  for (int day = 0; day < 60; ++day) turns.push_back(day % 2 == 0 ? 30.0F : 60.0F);
  World world({turns});
  world.request.settings.PfReversal = 0;
  EXPECT_EQ(world.Build().message, "Too many columns, please select a shorter time period");
  EXPECT_EQ(world.view.ColumnCount(), 0);
  world.request.settings.PfBox[4] = 0.0F;
  const BuildOutcome refused = world.Build();
  EXPECT_FALSE(refused.drawn);
  EXPECT_EQ(refused.message,
            "The box value of range 5 is 0: point and figure needs values above 0");
  EXPECT_EQ(refused.scroll_to, 60);
}

}  // namespace
}  // namespace vistaplot
