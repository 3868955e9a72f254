// Contour and surface charts as the layout draws them and as they are read.
#include <gtest/gtest.h>

#include <algorithm>

#include "charts/kinds/kind.h"
#include "charts/kinds/surface.h"
#include "charts/layout/layout.h"
#include "support/cell_views.h"
#include "support/chart_pictures.h"

namespace vistaplot {
namespace {

// Buy 10, 20, 30 across, sell 5, 10, ... upwards.
ChartView Chart(std::string_view lines, FigureKind kind) {
  ChartView view;
  FillCellView(lines, view);
  view.TitleText = "Avg Annual %";
  view.Legend.Location.Visible = true;
  view.Plot.Axis[0].AxisTitle.Text = "Sell";
  view.Plot.Axis[3].AxisTitle.Text = "Buy";
  view.facts.kind = kind;
  view.facts.cells.first_x = 10.0;
  view.facts.cells.step_x = 10.0;
  view.facts.cells.first_y = 5.0 * view.rowcount();
  view.facts.cells.step_y = 5.0;
  return view;
}

ChartPicture Draw(const ChartView& view, double width = 640.0) {
  return test::LayOut(view, {width, 480.0});
}

template <class Item>
int Count(const ChartPicture& picture) {
  return static_cast<int>(test::ItemsOf<Item>(picture).size());
}

bool Says(const ChartPicture& picture, std::string_view text) {
  const auto texts = test::ItemsOf<DrawText>(picture);
  return std::any_of(
      texts.begin(), texts.end(), [&](const DrawText& drawn) { return drawn.text == text; });
}

FillFacets FacesOf(const ChartPicture& picture) {
  return test::ItemsOf<FillFacets>(picture).front();
}

TEST(ContourChart, NumbersOfTheParametersStandAtColumnsAndRows) {
  const ChartPicture picture = Draw(Chart("1 2 3\n4 5 6", FigureKind::kContour));
  for (const char* text : {"10", "20", "30", "5", "Buy", "Sell", "best", "best plateau"}) {
    EXPECT_TRUE(Says(picture, text)) << text;
  }
  EXPECT_EQ(picture.scale.X(1.0), picture.scale.box.left);
  EXPECT_GT(Count<FillRegion>(picture), 5) << "a region a band";
}

TEST(ContourChart, ASquareWithAnEmptyCornerIsHatchedAndItsCellsKeepABox) {
  const ChartPicture full = Draw(Chart("1 2 3\n4 5 6\n7 8 9", FigureKind::kContour));
  const ChartPicture empty = Draw(Chart("1 2 -\n4 - 6\n7 - 9", FigureKind::kContour));
  EXPECT_EQ(Count<FillRegion>(empty), Count<FillRegion>(full));
  EXPECT_GT(Count<StrokeLine>(empty), Count<StrokeLine>(full) + 50) << "the hatch";
  EXPECT_EQ(Count<FillBox>(empty), Count<FillBox>(full) + 6) << "cells outside full squares";
}

TEST(ContourChart, ASingleRowIsBarsOfColour) {
  const ChartPicture picture = Draw(Chart("1 2 3", FigureKind::kContour));
  EXPECT_EQ(Count<FillRegion>(picture), 0);
  EXPECT_EQ(picture.scale.first_position, 0.5);
}

TEST(ContourChart, TheCrossHairGoesFromCellToCellAndReadsRankAndPlateau) {
  const ChartView view = Chart("1 2 3\n4 9 6\n7 8 -", FigureKind::kContour);
  const StopList stops = KindOf(view).Stops(view);
  EXPECT_EQ(stops.Count(), 8);
  const int middle = stops.Find(2, 2);
  EXPECT_EQ(stops.At(stops.Above(middle, 1)).row, 1);
  EXPECT_EQ(stops.At(stops.Beside(middle, 1)).column, 3);
  const ReadOut read = ReadRow(view, 2, false, 2);
  EXPECT_EQ(read.at, "Buy 20, Sell 10");
  ASSERT_EQ(read.entries.size(), 3U);
  EXPECT_EQ(read.entries[0].values[0].value, 9.0);
  EXPECT_EQ(read.entries[1].text, "1 of 8");
  EXPECT_NEAR(read.entries[2].values[0].value, (1 + 2 + 3 + 4 + 6 + 7 + 8) / 7.0, 1e-12);
  EXPECT_TRUE(ReadRow(view, 3, false, 3).entries.empty());
}

TEST(ContourChart, TheCellUnderThePointerIsFoundAndEmptyOnesAreNot) {
  const ChartView view = Chart("1 2 3\n4 5 -", FigureKind::kContour);
  const ChartPicture picture = Draw(view);
  const PlotScale& scale = picture.scale;
  const auto hit = FindPoint(view, picture, {scale.X(1.8), scale.Y(1.9)});
  ASSERT_TRUE(hit);
  EXPECT_EQ(hit->series, 2);
  EXPECT_EQ(hit->point, 1);
  EXPECT_FALSE(FindPoint(view, picture, {scale.X(2.9), scale.Y(1.1)}));
}

TEST(SurfaceChart, DrawsAFaceASquareAndTurnsWithoutTouchingTheData) {
  ChartView view = Chart("1 2 3\n4 5 6\n7 8 9", FigureKind::kSurface);
  const FillFacets before = FacesOf(Draw(view));
  EXPECT_EQ(before.facets.size(), 4U);
  StepSurface(view, 3, 1);
  const FillFacets turned = FacesOf(Draw(view));
  EXPECT_NE(turned.facets[0].corners[0].x, before.facets[0].corners[0].x);
  EXPECT_EQ(view.DataAt(2, 2), 5.0);
  ResetSurface(view);
  EXPECT_EQ(FacesOf(Draw(view)).facets[0].corners[0].x, before.facets[0].corners[0].x);
  EXPECT_TRUE(KindOf(view).Turns());
}

TEST(SurfaceChart, TheCellUnderThePointerIsTheOneSeen) {
  const ChartView view = Chart("1 2 3\n4 5 6\n7 8 9", FigureKind::kSurface);
  const ChartPicture picture = Draw(view);
  // The last face is the nearest: rows 2 and 3, columns 1 and 2.
  const auto hit = FindPoint(view, picture, FacesOf(picture).facets.back().corners[2]);
  ASSERT_TRUE(hit);
  EXPECT_EQ(hit->point, 3);
  EXPECT_EQ(hit->series, 1);
}

TEST(SurfaceChart, TextsStayOnThePictureFromEverySide) {
  ChartView view = Chart("1 2 3\n4 5 6\n7 8 9", FigureKind::kSurface);
  for (int step = 0; step < 36; ++step) {
    StepSurface(view, 2, step % 3 - 1);
    const ChartPicture picture = Draw(view);
    for (const DrawText& text : test::ItemsOf<DrawText>(picture)) {
      const PictureBox box = test::BoxOf(text);
      EXPECT_GE(box.left, 0.0) << text.text;
      EXPECT_LE(box.right, picture.width) << text.text;
      EXPECT_LE(box.bottom, picture.height) << text.text;
    }
  }
}

}  // namespace
}  // namespace vistaplot
