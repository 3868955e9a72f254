#include "charts/kinds/curves.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "charts/kinds/read_out.h"
#include "charts/view/palette.h"
#include "support/chart_pictures.h"

namespace vistaplot {
namespace {

using namespace test;

constexpr int kRows = 30;

std::vector<double> Ramp(double from) {
  std::vector<double> values;
  for (int i = 0; i < kRows; ++i) values.push_back(from + 0.01 * i);
  return values;
}

// A fund with every kind of overlay, in the order of the price chart's columns.
ChartView Overlays() {
  ChartView view =
      LineChart({Ramp(0.0), Ramp(0.02), Ramp(0.04), Ramp(-0.1), Ramp(0.2), Ramp(0.1), Ramp(-0.2)});
  const SeriesRole roles[] = {SeriesRole::kPlain,
                              SeriesRole::kAverage,
                              SeriesRole::kAdaptiveAverage,
                              SeriesRole::kStop,
                              SeriesRole::kUpperBand,
                              SeriesRole::kMiddleBand,
                              SeriesRole::kLowerBand};
  for (int s = 1; s <= view.ColumnCount(); ++s) {
    view.facts.Series(s).role = roles[s - 1];
    view.facts.Series(s).parent = s == 1 ? 0 : 1;
  }
  view.Legend.Location.Visible = false;
  return view;
}

TEST(Curves, OverlaysHaveTheirFundsHueAndAreToldApartByWeightAndDash) {
  const ChartPicture picture = LayOut(Overlays(), {1280.0, 900.0});
  const std::vector<StrokeLine> lines = ItemsOf<StrokeLine>(picture);
  ASSERT_EQ(lines.size(), 6U);
  const StrokeLine& price = lines.back();  // above its overlays
  EXPECT_EQ(price.points.front().y, picture.scale.Y(0.0));
  EXPECT_EQ(price.dash, LineDash{});
  std::vector<double> dashes;
  for (const StrokeLine& line : lines) {
    EXPECT_EQ(line.color.blue > line.color.red, price.color.blue > price.color.red);
    EXPECT_GE(Contrast(line.color, picture.background), kLeastContrast);
    EXPECT_TRUE(&line == &price || line.width < price.width);
    dashes.push_back(line.dash.on);
  }
  EXPECT_LT(dashes[0], dashes[1]) << "exponential short, adaptive long";
  EXPECT_GT(dashes[0], dashes[3]) << "the mean of the bands is dotted";
  EXPECT_EQ(dashes[2], 0.0);
  EXPECT_EQ(dashes[4], 0.0);
}

TEST(Curves, BandsHaveAPaleFillBetweenThemWhereBothAreThere) {
  ChartView view = Overlays();
  view.SetData(10, 7, 0.0, true);
  const std::vector<FillShape> fills = ItemsOf<FillShape>(LayOut(view));
  ASSERT_EQ(fills.size(), 2U);
  for (const FillShape& fill : fills) {
    EXPECT_GE(fill.fill.alpha, 16);
    EXPECT_LE(fill.fill.alpha, 25);
    EXPECT_EQ(fill.width, 0.0);
  }
}

TEST(Curves, TheStopIsADotADayAndSmallerWhereDaysAreClose) {
  const auto dots = [](const ChartView& view, PictureSize size) {
    std::vector<StampMarkers> all = ItemsOf<StampMarkers>(LayOut(view, size));
    EXPECT_EQ(all.size(), 1U);
    return all.front();
  };
  const ChartView view = Overlays();
  const StampMarkers wide = dots(view, {640.0, 480.0});
  EXPECT_EQ(wide.shape, MarkerShape::kDot);
  EXPECT_EQ(wide.centers.size(), static_cast<std::size_t>(kRows));
  EXPECT_LT(dots(view, {100.0, 480.0}).size, wide.size);
}

TEST(Curves, AForecastIsDashedOnPaleGroundFromTheLastRealDayOn) {
  ChartView view = LineChart({Ramp(0.0)});
  view.facts.last_real_row = 20;
  const ChartPicture picture = LayOut(view);
  std::vector<StrokeLine> lines = ItemsOf<StrokeLine>(picture);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_GT(lines[0].dash.on, 0.0);
  EXPECT_EQ(lines[0].points.front(), lines[1].points.back()) << "it goes on from the last price";
  EXPECT_DOUBLE_EQ(lines[1].points.back().x, picture.scale.X(20.0));
  const std::vector<FillBox> boxes = ItemsOf<FillBox>(picture);
  const auto ground = std::find_if(
      boxes.begin(), boxes.end(), [](const FillBox& item) { return item.color.alpha < 255; });
  ASSERT_NE(ground, boxes.end());
  EXPECT_NEAR(ground->box.left, picture.scale.X(20.0), 0.5);
  EXPECT_EQ(ground->box.right, picture.plot.right);
  EXPECT_EQ(ReadRow(view, 22, false).entries[0].label, "forecast");
  EXPECT_EQ(ReadRow(view, 20, false).entries[0].label, "C1");
}

}  // namespace
}  // namespace vistaplot
