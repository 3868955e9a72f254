#include "charts/kinds/lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string_view>

#include "charts/kinds/curves.h"
#include "charts/kinds/line_hits.h"
#include "charts/kinds/read_out.h"
#include "charts/view/palette.h"
#include "support/chart_pictures.h"

namespace vistaplot {
namespace {

using namespace test;

PicturePoint PlaceOf(const ChartPicture& picture, double position, double value) {
  return {picture.scale.X(position), picture.scale.Y(value)};
}

void ExpectAt(PicturePoint at, PicturePoint expected) {
  EXPECT_NEAR(at.x, expected.x, 1e-6);
  EXPECT_NEAR(at.y, expected.y, 1e-6);
}

void ShowMarkersOnly(ChartView& view) {
  for (ChartSeries& series : view.Plot.SeriesCollection) {
    series.SeriesMarker.Show = true;
    series.showline = false;
  }
}

// The markers inside the plot; the legend's lie beside it.
std::vector<StampMarkers> PlotMarkers(const ChartPicture& picture) {
  std::vector<StampMarkers> inside;
  for (const StampMarkers& markers : ItemsOf<StampMarkers>(picture)) {
    if (picture.plot.Contains(markers.centers.front())) inside.push_back(markers);
  }
  return inside;
}

TEST(LayoutSeries, LinesBreakAtGapsAndLonelyPointsAreDots) {
  const ChartPicture picture = LayOut(LineChart({{0.0, 0.1, kGap, 0.3, kGap, 0.2, 0.1}}));
  const auto lines = ItemsOf<StrokeLine>(picture);
  ASSERT_EQ(lines.size(), 2U);
  ASSERT_EQ(lines[0].points.size(), 2U);
  ExpectAt(lines[0].points[1], PlaceOf(picture, 2, 0.1));
  ExpectAt(lines[1].points[0], PlaceOf(picture, 6, 0.2));
  const auto dots = PlotMarkers(picture);
  ASSERT_EQ(dots.size(), 1U);
  ExpectAt(dots[0].centers.at(0), PlaceOf(picture, 4, 0.3));
  EXPECT_GT(dots[0].size, lines[0].width);
}

TEST(LayoutSeries, AThinnedLineKeepsItsExtremes) {
  std::vector<double> values(12000);
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = static_cast<double>(i % 7) * 0.01;
  values[4321] = 0.9;
  values[7654] = -0.8;
  const ChartPicture picture = LayOut(LineChart({values}), {1280, 900});
  const auto lines = ItemsOf<StrokeLine>(picture);
  ASSERT_EQ(lines.size(), 1U);
  const auto& points = lines[0].points;
  EXPECT_LE(points.size(), 4.0 * (picture.scale.box.Width() + 2.0));
  const auto [highest, lowest] =
      std::minmax_element(points.begin(), points.end(), [](auto a, auto b) { return a.y < b.y; });
  ExpectAt(*highest, PlaceOf(picture, 4322, 0.9));
  ExpectAt(*lowest, PlaceOf(picture, 7655, -0.8));
  ExpectAt(points.back(), PlaceOf(picture, 12000, values.back()));
}

TEST(LayoutSeries, EveryPixelBearsOneMarkerOfASeries) {
  std::vector<double> values(12000);
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = i % 2 == 0 ? 0.0 : 0.5;
  ChartView view = LineChart({values});
  ShowMarkersOnly(view);
  const ChartPicture picture = LayOut(view);
  EXPECT_TRUE(ItemsOf<StrokeLine>(picture).empty());
  const auto markers = PlotMarkers(picture);
  ASSERT_EQ(markers.size(), 1U);
  std::set<std::pair<int, int>> pixels;
  for (const PicturePoint& center : markers[0].centers) {
    pixels.emplace(static_cast<int>(center.x), static_cast<int>(center.y));
  }
  EXPECT_EQ(pixels.size(), markers[0].centers.size());
  EXPECT_NEAR(static_cast<double>(pixels.size()), 2.0 * picture.scale.box.Width(), 4.0);
}

TEST(LayoutSeries, PointsShowTheirOwnMarkers) {
  ChartView view = LineChart({{0.0, 0.1, 0.2, 0.3}});
  ShowMarkersOnly(view);
  auto& points = view.Plot.Series(1).DataPoints;
  points.Item(2).Marker = {.Size = 8, .Visible = true, .style = kMarkerStar, .Pen = {}};
  points.Item(3).Marker.Visible = false;
  const ChartPicture picture = LayOut(view);
  const auto markers = PlotMarkers(picture);
  ASSERT_EQ(markers.size(), 2U);
  EXPECT_EQ(markers[0].centers.size(), 2U);
  EXPECT_EQ(markers[1].shape, MarkerShape::kStar);
  EXPECT_EQ(markers[1].color, InkOn(LightTheme(), DefaultSeriesColor(1)));
  EXPECT_EQ(markers[1].size, 11.0);  // 8 points at 96 to the inch
  ExpectAt(markers[1].centers.at(0), PlaceOf(picture, 2, 0.1));
}

TEST(LayoutSeries, XYPointsStandAtTheirXWithLabelsBelowThatDoNotCollide) {
  // Boxes of a point-and-figure chart: two crosses with dates on one place, one elsewhere.
  ChartView view = LineChart({{1.0, 1.0, 2.0, 5.0}, {20.0, 20.001, 21.0, 22.0}});
  view.ChartType = kChartXY;
  ShowMarkersOnly(view);
  for (int point = 1; point <= 3; ++point) {
    auto& own = view.Plot.Series(1).DataPoints.Item(point);
    own.Marker = {.Size = 6, .Visible = true, .style = kMarkerCross, .Pen = {}};
    own.Marker.Pen.VtColor.Set(0, 0, 255);
    own.DataPointLabel = {.Component = kLabelName,
                          .Text = std::string("3/1").append(std::to_string(point)),
                          .VtFont = {},
                          .TextLayout = {},
                          .LocationType = kLabelBelow};
  }
  view.Plot.Series(1).DataPoints.Item(4).Marker.Visible = false;
  const ChartPicture picture = LayOut(view);
  const auto markers = PlotMarkers(picture);
  ASSERT_EQ(markers.size(), 1U);
  EXPECT_EQ(markers[0].shape, MarkerShape::kCross);
  EXPECT_EQ(markers[0].color, (PictureColor{0, 0, 255}));
  ASSERT_EQ(markers[0].centers.size(), 3U);
  ExpectAt(markers[0].centers[2], PlaceOf(picture, 2.0, 21.0));
  EXPECT_GT(picture.scale.last_position, 5.0);
  std::vector<std::string> labels;
  for (const DrawText& text : ItemsOf<DrawText>(picture)) {
    if (!text.text.starts_with("3/1")) continue;
    labels.push_back(text.text);
    EXPECT_GT(BoxOf(text).top, markers[0].centers[labels.size() == 1 ? 0 : 2].y);
  }
  EXPECT_EQ(labels, (std::vector<std::string>{"3/11", "3/13"}));
}

TEST(LayoutSeries, ColoursThatWouldVanishOnDarkGroundAreLightened) {
  ChartView view = LineChart({{0.0, 0.1}, {0.0, 0.2}});
  view.Plot.Series(1).Pen.VtColor = {0, 0, 90};
  view.Plot.Series(2).Pen.VtColor = {240, 220, 60};
  const auto lines = ItemsOf<StrokeLine>(LayOut(view, {}, {.dark = true, .detail = 1.0}));
  EXPECT_GT(lines.at(0).color.red, 90);
  EXPECT_EQ(lines.at(1).color, (PictureColor{240, 220, 60}));
}

TEST(LineThinner, AColumnKeepsItsFirstAndLastPointAndFinerDevicesKeepMore) {
  for (const double detail : {1.0, 4.0}) {
    LineThinner thinner(detail, 100);
    for (int i = 0; i < 8; ++i) thinner.Add({1.0 + i / 8.0, i % 2 == 0 ? 1.0 : 2.0});
    thinner.Break();
    const auto pieces = thinner.TakePieces();
    EXPECT_EQ(pieces[0].front().x, 1.0);
    EXPECT_EQ(pieces[0].back().x, 1.875);
    EXPECT_EQ(pieces[0].size() == 8U, detail > 1.0);
  }
}

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
