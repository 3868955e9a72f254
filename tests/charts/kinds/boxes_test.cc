#include "charts/kinds/boxes.h"

#include <gtest/gtest.h>

#include "charts/kinds/cross_hair.h"
#include "support/chart_pictures.h"

namespace vistaplot {
namespace {

using namespace test;

struct Box {
  int column;
  double level;
  double size;
  bool rises;
  const char* date;
};

// X boxes first, then O boxes, then a filler for each column up to 40, as the builder has them.
ChartView BoxChart(const std::vector<Box>& boxes) {
  ChartView view;
  view.ChartType = kChartXY;
  view.TitleText = "Point & Figure";
  view.facts.kind = FigureKind::kBoxes;
  view.facts.unit = ValueUnit::kPrice;
  view.Legend.Location = {true, kLocationRight};
  const int count = static_cast<int>(boxes.size());
  view.rowcount(count + 2);
  view.ColumnCount(2);
  view.EmptyAllPoints();
  view.SetColumnLabel(1, "ABC");
  view.Plot.Axis[0].AxisScale.Hide = true;
  ChartSeries& series = view.Plot.Series(1);
  series.SeriesMarker.Show = true;
  series.showline = false;
  std::string labelled;
  for (int row = 1; row <= count; ++row) {
    const Box& box = boxes[static_cast<std::size_t>(row - 1)];
    view.SetData(row, 1, box.column, false);
    view.SetData(row, 2, box.level, false);
    view.facts.boxes.push_back({.date = box.date, .size = box.size, .rises = box.rises});
    ChartDataPoint& point = series.DataPoints.Item(row);
    point.Marker.Visible = true;
    point.Marker.style = box.rises ? kMarkerCross : kMarkerCircle;
    point.Marker.Pen.VtColor = box.rises ? ChartColor{0, 0, 255} : ChartColor{255, 0, 0};
    if (!box.rises || box.date == labelled) continue;
    labelled = box.date;
    point.DataPointLabel = ChartPointLabel{};
    point.DataPointLabel->Text = box.date;
    point.DataPointLabel->VtFont.Size = 7.0;
  }
  for (int row = count + 1; row <= view.rowcount(); ++row) {
    view.SetData(row, 1, 40.0, false);
    view.SetData(row, 2, boxes.back().level, false);
    series.DataPoints.Item(row).Marker.Visible = false;
  }
  return view;
}

// X at 23.20 to 23.60, reversed by three O, then X again.
ChartView ThreeColumns() {
  return BoxChart({{1, 23.2, 0.2, true, "03/14/23"},
                   {1, 23.4, 0.2, true, "03/14/23"},
                   {1, 23.6, 0.2, true, "03/14/23"},
                   {3, 23.2, 0.2, true, "04/03/23"},
                   {3, 23.4, 0.2, true, "04/04/23"},
                   {2, 23.4, 0.2, false, "03/20/23"},
                   {2, 23.2, 0.2, false, "03/20/23"},
                   {2, 23.0, 0.2, false, "03/21/23"}});
}

TEST(Boxes, EachFigureFillsItsBoxLessAPixelAndFillersAreNotDrawn) {
  const ChartPicture picture = LayOut(ThreeColumns(), {1280.0, 900.0});
  ASSERT_EQ(picture.regions.size(), 8U);
  const double column = picture.scale.X(2.0) - picture.scale.X(1.0);
  EXPECT_NEAR(column * 40.0, picture.scale.box.Width(), 1e-6) << "40 columns always";
  for (const HitRegion& region : picture.regions) {
    EXPECT_NEAR(region.box.Width(), column, 1e-6);
    EXPECT_NEAR(region.box.Height(), picture.scale.Y(0.0) - picture.scale.Y(0.2), 1e-6);
  }
  double left = picture.regions[5].box.right;
  double right = picture.regions[5].box.left;
  std::vector<StrokeLine> rings = ItemsOf<StrokeLine>(picture);
  std::erase_if(rings, [](const StrokeLine& line) { return line.points.size() < 3; });
  ASSERT_EQ(rings.size(), 4U) << "one in the legend";
  const StrokeLine& ring = rings[1];
  for (const PicturePoint& point : ring.points) {
    left = std::min(left, point.x - ring.width / 2.0);
    right = std::max(right, point.x + ring.width / 2.0);
  }
  EXPECT_NEAR(left, picture.regions[5].box.left + 1.0, 0.3);
  EXPECT_NEAR(right, picture.regions[5].box.right - 1.0, 0.3);
}

TEST(Boxes, SmallerBoxesAreFlatterAtTheirTrueLevels) {
  const ChartPicture picture = LayOut(
      BoxChart({{1, 40.0, 0.4, true, "a"}, {1, 40.4, 0.4, true, "a"}, {2, 39.8, 0.2, false, "b"}}));
  EXPECT_NEAR(picture.regions[2].box.Height() * 2.0, picture.regions[0].box.Height(), 1e-6);
  EXPECT_NEAR(picture.regions[2].box.top, picture.scale.Y(39.9), 1e-6);
}

// The first box of each column of X has its date, in whatever place is free below it.
TEST(Boxes, DatesStandBelowTheirColumnsAndCoverNothing) {
  std::vector<Box> boxes;
  const std::string dates[] = {"1/11/23", "2/12/23", "3/13/23", "4/14/23"};
  for (int i = 0; i < 12; ++i) {
    boxes.push_back({2 * (i / 3) + 1, 20.0 + i % 3, 1.0, true, dates[i / 3].c_str()});
  }
  boxes[1].date = "1/12/23";  // above the box of the day before: no room
  for (int level = 22; level > 8; --level) boxes.push_back({2, 1.0 * level, 1.0, false, "O"});
  ChartView view = BoxChart(boxes);
  view.facts.covered_top = 0.1;
  const ChartPicture picture = LayOut(view, {1280.0, 900.0});
  EXPECT_GE(picture.plot.top, 90.0);
  std::vector<PictureBox> covered;
  for (const HitRegion& region : picture.regions) covered.push_back(region.box);
  std::vector<std::string> texts;
  for (const DrawText& text : ItemsOf<DrawText>(picture)) {
    if (text.text.find("/23") == std::string::npos) continue;
    texts.push_back(text.text);
    const PictureBox box = BoxOf(text);
    for (const PictureBox& other : covered) EXPECT_FALSE(box.Overlaps(other)) << text.text;
    covered.push_back(box);
    EXPECT_GE(box.left, picture.scale.box.left) << "moved in at the left edge";
    EXPECT_LE(box.bottom, picture.scale.box.bottom);
  }
  EXPECT_EQ(texts, std::vector<std::string>(std::begin(dates), std::end(dates)));
}

TEST(Boxes, ABoxIsReadAndTheCrossHairGoesByColumnsAndLevels) {
  const ChartView view = ThreeColumns();
  EXPECT_EQ(LineText(ReadRow(view, 2, false)), "ABC box 23.40, column 1, since 03/14/23");
  const ReadOut last = ReadRow(view, 8, false);
  EXPECT_EQ(last.at, "03/21/23");
  EXPECT_EQ(last.entries[0].values[0].value, 23.0);
  EXPECT_FALSE(last.entries[0].values[0].percent);
  EXPECT_TRUE(ReadRow(view, 9, false).entries.empty()) << "a filler";
  CrossHair cross_hair;
  cross_hair.Follow(view);
  cross_hair.GoToRow(3);
  EXPECT_TRUE(cross_hair.Climbs());
  EXPECT_TRUE(cross_hair.Step(1));
  EXPECT_EQ(cross_hair.Row(), 6) << "the highest box of the next column";
  EXPECT_TRUE(cross_hair.Climb(-1));
  EXPECT_EQ(cross_hair.Row(), 7);
  EXPECT_TRUE(cross_hair.Step(5));
  EXPECT_EQ(cross_hair.Row(), 4);
}

}  // namespace
}  // namespace vistaplot
