#include "charts/layout/layout.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "charts/view/palette.h"
#include "support/chart_pictures.h"

namespace vistaplot {
namespace {

using namespace test;

PictureBox WholeOf(const ChartPicture& picture) {
  return {0.0, 0.0, picture.width, picture.height};
}

bool Within(const PictureBox& inner, const PictureBox& outer) {
  return outer.Contains({inner.left, inner.top}) && outer.Contains({inner.right, inner.bottom});
}

std::vector<DrawText> TextsBelow(const ChartPicture& picture) {
  std::vector<DrawText> below;
  for (const DrawText& text : ItemsOf<DrawText>(picture)) {
    const bool label = text.align == TextAlign::kCenter && !text.upwards;
    if (label && text.at.y > picture.plot.bottom) below.push_back(text);
  }
  return below;
}

bool OverTick(const DrawText& label, const ChartPicture& picture) {
  return std::ranges::any_of(ItemsOf<FillBox>(picture), [&](const FillBox& tick) {
    return tick.box.top > picture.plot.bottom && tick.box.Height() == 5.0 &&
           tick.box.left == std::floor(label.at.x);
  });
}

ChartView NamedChart(int series, std::string_view name) {
  ChartView view = LineChart(std::vector<std::vector<double>>(static_cast<std::size_t>(series),
                                                              std::vector<double>{0.0, 0.1, 0.2}));
  for (int c = 1; c <= series; ++c) {
    view.SetColumnLabel(c, std::string(name) + std::to_string(c));
  }
  return view;
}

TEST(Layout, LegendLeavesThePlotFreeAndCountsWhatItLeavesOut) {
  for (const PictureSize size : {PictureSize{320, 240}, {640, 480}, {1280, 960}, {900, 200}}) {
    for (const int series : {1, 3, 10, 60, 255}) {
      for (const char* name : {"FND", "A fund with an uncommonly long name "}) {
        SCOPED_TRACE(std::to_string(size.width) + " " + std::to_string(series) + name);
        const ChartPicture picture = LayOut(NamedChart(series, name), size);
        EXPECT_FALSE(picture.legend.Overlaps(picture.plot));
        EXPECT_TRUE(Within(picture.legend, WholeOf(picture)));
        EXPECT_GT(picture.plot.Width(), 0.5 * size.width);
        int entries = 0;
        int more = 0;
        for (const DrawText& text : ItemsOf<DrawText>(picture)) {
          if (!picture.legend.Contains({text.at.x, text.at.y - 1.0})) continue;
          EXPECT_TRUE(Within(BoxOf(text), WholeOf(picture))) << text.text;
          text.text.front() == '+' ? more = std::stoi(text.text.substr(1)) : ++entries;
        }
        EXPECT_EQ(entries + more, series);
      }
    }
  }
}

TEST(Layout, LongNamesKeepTheirEnds) {
  const ChartPicture picture = LayOut(NamedChart(2, "International Growth and Income Fund "));
  const std::vector<DrawText> texts = ItemsOf<DrawText>(picture);
  EXPECT_TRUE(std::ranges::any_of(texts, [](const DrawText& text) {
    return text.text.starts_with("International") && text.text.find("…") != std::string::npos &&
           text.text.ends_with(" 2");
  }));
}

TEST(Layout, DateLabelsKeepTheSpacingOrItsMultiplesAndNeverTouch) {
  struct Case {
    int rows, per_label;
    std::vector<std::string> first;
    std::string row_name = {};
  };
  // The plot of 640 units leaves about 515 for the rows. A font of 11 makes "d11801" 40 wide, with
  // the gap 50; 200 of 12000 rows are 8.6 wide, so that every sixth label has room.
  for (const Case& c : {Case{21, 3, {"d1", "d4", "d7"}},
                        Case{240, 25, {"d1", "d26", "d51"}},
                        Case{12000, 200, {"d1", "d1201", "d2401"}},
                        Case{50, 10, {"d10", "d20", "d30"}, "period"},
                        Case{3, 7, {"d1"}},
                        Case{1, 3, {"d1"}}}) {
    ChartView view = LineChart({std::vector<double>(static_cast<std::size_t>(c.rows), 0.5)});
    view.Plot.Axis[0].CategoryScale.DivisionsPerLabel = c.per_label;
    view.facts.row_name = c.row_name;
    const ChartPicture picture = LayOut(view, {640, 480});
    const std::vector<DrawText> labels = TextsBelow(picture);
    ASSERT_GE(labels.size(), c.first.size()) << c.rows;
    for (std::size_t i = 0; i < c.first.size(); ++i) EXPECT_EQ(labels[i].text, c.first[i]);
    for (std::size_t i = 1; i < labels.size(); ++i) {
      EXPECT_GT(BoxOf(labels[i]).left, BoxOf(labels[i - 1]).right + 3.0) << labels[i].text;
    }
    for (const DrawText& label : labels) {
      EXPECT_TRUE(Within(BoxOf(label), {0, 0, 640, 480}));
      EXPECT_EQ(label.at.x, picture.scale.X(std::stod(label.text.substr(1))));
      EXPECT_TRUE(OverTick(label, picture)) << label.text;
    }
  }
}

TEST(Layout, BlankLabelsAndLabelsUnderTheTitleAreLeftAway) {
  ChartView view = LineChart({std::vector<double>(31, 0.5)});
  view.Plot.Axis[0].CategoryScale.DivisionsPerLabel = 10;
  view.SetRowLabel(21, " ");
  view.title.Location.LocationType = kLocationBottomRight;
  view.TitleText = "CORRELATION";
  view.facts.unit = ValueUnit::kCoefficient;
  view.Legend.Location.Visible = false;
  const std::vector<DrawText> labels = TextsBelow(LayOut(view));
  ASSERT_EQ(labels.size(), 2U);
  EXPECT_EQ(labels[1].text, "d11");
}

TEST(Layout, GuidesStandAtRoundChangesInsideThePlot) {
  ChartView view = LineChart({{0.0, -0.06, 0.2}});
  const ChartPicture picture = LayOut(view);
  const auto lines = ItemsOf<FillBox>(picture);
  std::vector<std::string> texts;
  for (const DrawText& text : ItemsOf<DrawText>(picture)) {
    if (text.align != TextAlign::kRight) continue;
    texts.push_back(text.text);
    EXPECT_TRUE(Within(BoxOf(text), picture.plot)) << text.text;
    EXPECT_LT(BoxOf(text).right, picture.scale.box.left);
    EXPECT_TRUE(std::ranges::any_of(lines, [&](const FillBox& guide) {
      return guide.box.Width() > 100.0 &&
             std::abs(guide.box.top - text.at.y + 0.36 * text.pixel_size) < 1.5;
    })) << text.text;
  }
  EXPECT_EQ(texts, (std::vector<std::string>{"−5%", "0%", "+5%", "+10%", "+15%", "+20%"}));
  const double zero = std::round(picture.scale.Y(0.0));
  const auto at_zero = std::ranges::find_if(
      lines, [&](const FillBox& line) { return line.box.top == zero && line.box.Width() > 100.0; });
  ASSERT_NE(at_zero, lines.end());
  EXPECT_EQ(at_zero->color, LightTheme().guide_zero);
  EXPECT_EQ(at_zero->box.Height(), 1.0);

  view.Plot.Axis[1].AxisGrid.MajorPen.style = kPenNone;
  const auto unguided = ItemsOf<FillBox>(LayOut(view));
  EXPECT_EQ(std::ranges::count(unguided, LightTheme().guide_zero, &FillBox::color), 0);
}

TEST(Layout, FixedBoundsAreTakenAsTheyAreAndAFlatPriceIsDrawnFlat) {
  ChartView view = LineChart({{1.0, 1.2, 0.9}});
  auto& bounds = view.Plot.Axis[1].ValueScale;
  bounds = {.Auto = false, .Minimum = 0.89, .Maximum = 1.21};
  EXPECT_EQ(LayOut(view).scale.lowest, 0.89);
  EXPECT_EQ(LayOut(view).scale.highest, 1.21);
  bounds = {.Auto = false, .Minimum = 9998.99, .Maximum = -9998.99};
  EXPECT_LT(LayOut(view).scale.highest, 2.0);
  const PlotScale flat = LayOut(LineChart({{0.0, 1.5e-8, 1.5e-8}})).scale;
  EXPECT_GT(flat.highest - flat.lowest, 0.01) << "not as the rounding of its base";
}

TEST(Layout, ShownScalesOfAnXYChartStandBesideThePlotWithTheirTitles) {
  ChartView view = LineChart({{1.0, 2.0, 400.0}, {10.0, 20.0, 15.0}});
  view.ChartType = kChartXY;
  view.TitleText = "Ulcer Index";
  view.facts.unit = ValueUnit::kPlain;
  view.Plot.Axis[1].AxisScale.Hide = false;
  view.Plot.Axis[0].AxisTitle.Text = "Test Case";
  view.Plot.Axis[1].AxisTitle.Text = "Ulcer Index";
  const ChartPicture picture = LayOut(view);
  std::vector<std::string> outside;
  for (const DrawText& text : ItemsOf<DrawText>(picture)) {
    if (text.align == TextAlign::kRight || text.upwards) {
      EXPECT_LT(text.at.x, picture.plot.left);
      outside.push_back(text.text);
    }
  }
  EXPECT_EQ(outside.front(), "Ulcer Index");
  EXPECT_EQ(outside[1], "10");
  const std::vector<DrawText> below = TextsBelow(picture);
  EXPECT_EQ(below.front().text, "Test Case");
  EXPECT_EQ(below.back().text, "400");
  for (std::size_t i = 1; i < below.size(); ++i) EXPECT_TRUE(OverTick(below[i], picture));
}

TEST(Layout, ChartsThatShareTheirDaysHaveThemBelowEachOtherToThePixel) {
  ChartView prices = NamedChart(3, "A LONG NAME OF A FUND");
  ChartView analysis =
      LineChart({std::vector<double>(static_cast<std::size_t>(prices.rowcount()))});
  analysis.facts.unit = ValueUnit::kCoefficient;
  analysis.SetData(1, 1, 123456.0, false);
  prices.days_with = &analysis;
  analysis.days_with = &prices;
  prices.facts.covered_right = 0.16;
  prices.Legend.Location.Visible = false;
  prices.TitleText = "NAV";
  prices.title.Location.LocationType = kLocationBottomRight;
  for (const double width : {400.0, 640.0, 1280.0, 1920.0}) {
    const ChartPicture above = LayOut(prices, {width, 0.36 * width});
    const ChartPicture below = LayOut(analysis, {width, 0.35 * width});
    EXPECT_EQ(above.scale.box.left, below.scale.box.left) << width;
    EXPECT_EQ(above.scale.box.right, below.scale.box.right) << width;
    EXPECT_EQ(above.scale.X(2.0), below.scale.X(2.0)) << width;
    EXPECT_LE(above.plot.right, 0.84 * width);
    const std::vector<DrawText> texts = ItemsOf<DrawText>(above);
    for (const DrawText& text : texts) EXPECT_LE(BoxOf(text).right, 0.84 * width) << text.text;
    EXPECT_EQ(std::ranges::count(texts, "NAV", &DrawText::text), 1) << width;
  }
}

TEST(Layout, AnySizeAndAnEmptyChartAreDrawn) {
  ChartView view = NamedChart(40, "FUND");
  for (int step = 0; step < 18; ++step) {
    const double side = 7.0 * step;
    for (const PictureSize size : {PictureSize{side, 480}, PictureSize{640, side}, {side, side}}) {
      const ChartPicture picture = LayOut(view, size);
      EXPECT_EQ(picture.width, size.width);
      EXPECT_TRUE(picture.items.empty() || Within(picture.plot, WholeOf(picture))) << side;
    }
  }
  // A chart without values says why instead of showing a scale of nothing.
  for (const int columns : {1, 0}) {
    view.ToDefaults();
    EXPECT_TRUE(ItemsOf<StrokeLine>(LayOut(view)).empty());
    view.ColumnCount(columns);
    view.WhyEmpty = "No price";
    const std::vector<DrawText> texts = ItemsOf<DrawText>(LayOut(view));
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_EQ(texts[0].text, "No price");
  }
}

}  // namespace
}  // namespace vistaplot
