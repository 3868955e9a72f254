#include "charts/kinds/candles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "charts/kinds/cross_hair.h"
#include "support/chart_pictures.h"

namespace vistaplot {
namespace {

using namespace test;

// Bars of one fund as a weekly chart has them, an empty row with a blank label behind them.
ChartView BarChart(const std::vector<std::vector<double>>& bars, int type = kSeriesCandleBar) {
  ChartView view;
  view.ChartType = kChartStock;
  view.TitleText = "NAV";
  view.facts.unit = ValueUnit::kRatio;
  view.facts.Series(1).base = 10.0;
  view.Legend.Location = {true, kLocationRight};
  view.rowcount(static_cast<int>(bars.size()) + 1);
  view.ColumnCount(static_cast<int>(bars.front().size()));
  view.EmptyAllPoints();
  for (std::size_t axis = 1; axis < 4; ++axis) view.Plot.Axis[axis].AxisScale.Hide = true;
  for (ChartSeries& series : view.Plot.SeriesCollection) {
    series.SeriesType = type;
    series.HiLo.GainColor.Set(0, 255, 10);
    series.HiLo.LossColor.Set(255, 10, 0);
  }
  view.SetColumnLabel(1, "ABC");
  for (int row = 1; row < view.rowcount(); ++row) {
    view.SetRowLabel(row, std::string("w").append(std::to_string(row)));
    const auto& bar = bars[static_cast<std::size_t>(row - 1)];
    for (int c = 1; c <= view.ColumnCount(); ++c) {
      const double value = bar[static_cast<std::size_t>(c - 1)];
      view.SetData(row, c, value, std::isnan(value));
    }
  }
  view.SetRowLabel(view.rowcount(), " ");
  return view;
}

// Boxes of figures: those of the theme's own colours are frame and guides.
std::vector<FillBox> Figures(const ChartPicture& picture, const ChartTheme& theme = LightTheme()) {
  std::vector<FillBox> boxes;
  for (const FillBox& item : ItemsOf<FillBox>(picture)) {
    const auto is = [&item](const PictureColor& color) { return item.color == color; };
    if (is(theme.guide) || is(theme.guide_zero) || is(theme.axis)) continue;
    if (picture.legend.Overlaps(item.box)) continue;
    boxes.push_back(item);
  }
  return boxes;
}

bool IsWhole(double place, double detail) {
  return std::abs(place * detail - std::round(place * detail)) < 1e-9;
}

TEST(Candles, BodiesKeepAGapAndAreWholePixels) {
  struct Case {
    double spacing;
    int wick, width;
  };
  // Worked out by hand: 4 wide leaves a gap of 1; 10: 10 (1 - 0.2 atan(6) 2 / pi) = 8.2, made odd;
  // 100: 80.1, odd; twice the pixels of a fine display: spacing 20 is 10 plain ones, 16.4, even.
  for (const Case& c : {Case{0.4, 1, 1},
                        Case{1.9, 1, 1},
                        Case{2.5, 1, 1},
                        Case{3.9, 1, 3},
                        Case{4.0, 1, 3},
                        Case{10.0, 1, 7},
                        Case{100.0, 1, 79},
                        Case{100.0, 2, 80}}) {
    EXPECT_EQ(BodyWidth(c.spacing, c.wick, 1.0), c.width) << c.spacing;
  }
  EXPECT_EQ(BodyWidth(20.0, 2, 2.0), 16);
  EXPECT_EQ(BodyWidth(16.8, 4, 4.0), 12) << "on paper the gap is as wide as on a screen";
  for (double spacing = 4.0; spacing < 60.0; spacing += 0.1) {
    EXPECT_LE(BodyWidth(spacing, 1, 1.0), spacing - 1.0) << spacing;
  }
}

TEST(Candles, GainIsHollowLossIsFilledAndAFlatWeekIsADash) {
  const ChartView view =
      BarChart({{1.0, 1.2, 0.9, 1.1}, {1.1, 1.15, 0.85, 0.9}, {0.9, 0.9, 0.9, 0.9}});
  for (const double detail : {1.0, 2.0, 1.5}) {
    const ChartPicture picture = LayOut(view, {640.0, 480.0}, {.dark = false, .detail = detail});
    const std::vector<FillBox> figures = Figures(picture);
    ASSERT_EQ(figures.size(), 8U) << "edge, inside, two wicks; body, two wicks; dash";
    EXPECT_EQ(figures[1].color, picture.background);
    EXPECT_GT(figures[1].box.left, figures[0].box.left);
    EXPECT_EQ(figures[0].color, InkOn(LightTheme(), {0, 255, 10}));
    EXPECT_GT(figures[4].color.red, figures[4].color.green) << "a loss is red";
    EXPECT_NEAR(figures[4].box.top, picture.scale.Y(1.1), 1.0);
    EXPECT_NEAR(figures[4].box.bottom, picture.scale.Y(0.9), 1.0);
    EXPECT_NEAR(figures[5].box.top, picture.scale.Y(1.15), 1.0);
    EXPECT_LE(figures[5].box.bottom, figures[4].box.top) << "wicks outside the body only";
    EXPECT_GE(figures[6].box.top, figures[4].box.bottom);
    EXPECT_LE(figures[7].box.Height(), 2.0 / detail);
    for (const FillBox& figure : figures) {
      for (const double edge :
           {figure.box.left, figure.box.right, figure.box.top, figure.box.bottom}) {
        EXPECT_TRUE(IsWhole(edge, detail)) << edge << " at " << detail;
      }
    }
  }
}

TEST(Candles, ALineHasItsOpenAtTheLeftAndItsCloseAtTheRight) {
  const ChartPicture picture = LayOut(BarChart({{1.0, 1.2, 0.9, 1.1}}, kSeriesCandleLine));
  const std::vector<FillBox> figures = Figures(picture);
  ASSERT_EQ(figures.size(), 3U);
  EXPECT_NEAR(figures[0].box.top, picture.scale.Y(1.2), 1.0);
  EXPECT_NEAR(figures[0].box.bottom, picture.scale.Y(0.9), 2.0);
  EXPECT_EQ(figures[1].box.right, figures[0].box.left);
  EXPECT_NEAR(figures[1].box.top, picture.scale.Y(1.0), 1.0);
  EXPECT_EQ(figures[2].box.left, figures[0].box.right);
  EXPECT_NEAR(figures[2].box.top, picture.scale.Y(1.1), 1.0);
  const double spacing = picture.scale.X(2.0) - picture.scale.X(1.0);
  EXPECT_NEAR(figures[2].box.Width(), 0.3 * spacing, 1.0);
  std::vector<FillBox> swatch = ItemsOf<FillBox>(picture);
  std::erase_if(swatch, [&](const FillBox& box) { return !picture.legend.Overlaps(box.box); });
  ASSERT_EQ(swatch.size(), 6U) << "two such lines";
  EXPECT_GT(swatch[1].box.top, swatch[2].box.top) << "a gain closes higher";
  EXPECT_LT(swatch[4].box.top, swatch[5].box.top);
}

TEST(Candles, FundsOfAWeekStandSideBySideInTheirOwnHues) {
  ChartView view = BarChart(
      {{1.0, 1.2, 0.9, 1.1, 1.0, 1.3, 0.8, 0.9}, {1.1, 1.2, 0.9, 1.0, 0.9, 1.0, 0.8, 0.9}});
  view.SetColumnLabel(5, "XYZ");
  const ChartPicture picture = LayOut(view);
  std::set<int> series;
  for (const HitRegion& one : picture.regions) {
    series.insert(one.series);
    for (const HitRegion& other : picture.regions) {
      EXPECT_TRUE(&one == &other || !one.box.Overlaps(other.box));
    }
  }
  EXPECT_EQ(picture.regions.size(), 4U);
  EXPECT_EQ(series, (std::set<int>{1, 2}));
  std::vector<std::string> legend;
  for (const DrawText& text : ItemsOf<DrawText>(picture)) {
    if (text.at.x > picture.legend.left) legend.push_back(text.text);
  }
  EXPECT_EQ(legend, (std::vector<std::string>{"ABC", "XYZ"}));
  const ReadOutEntry second = ReadRow(view, 1, false).entries[1];
  EXPECT_EQ(second.mark, InkOn(LightTheme(), DefaultSeriesColor(2)));
  const PictureBox& bar = picture.regions[2].box;  // the second fund's first
  EXPECT_NEAR(picture.scale.X(second.at->x), (bar.left + bar.right) / 2.0, 1.0);
}

// Bars of one pixel differ by lightness, as their shape cannot tell gain from loss.
TEST(Candles, FiveHundredAndTwentyWeeksStayApart) {
  const std::vector<std::vector<double>> bars(520, {1.1, 1.1, 0.9, 0.9});  // bodies alone
  for (const PictureSize size : {PictureSize{1280.0, 900.0}, {1920.0, 1080.0}, {2200.0, 900.0}}) {
    for (const double detail : {1.0, 2.0}) {
      const ChartPicture picture = LayOut(BarChart(bars), size, {.dark = false, .detail = detail});
      const std::vector<FillBox> figures = Figures(picture);
      ASSERT_EQ(figures.size(), 520U);
      for (std::size_t i = 1; i < figures.size(); ++i) {
        EXPECT_GE(figures[i].box.left, figures[i - 1].box.right + 0.99 / detail) << size.width;
      }
    }
  }
  for (const bool dark : {false, true}) {
    const auto mark = [dark](double close) {
      return ReadRow(BarChart({{1.0, 1.2, 0.8, close}}), 1, dark).entries[0].mark;
    };
    EXPECT_GT(Contrast(mark(1.1), mark(0.9)), 1.8) << dark;
  }
}

TEST(Candles, AWeekIsReadWithItsFourPrices) {
  ChartView view = BarChart({{1.0, 1.2, 0.9, 1.1}, {kGap, kGap, kGap, kGap}, {1, 1, 1, 0.95}});
  const ReadOut read_out = ReadRow(view, 1, false);
  EXPECT_EQ(LineText(read_out), "w1, ABC open 10 high 12 low 9 close 11 +10.00%");
  std::string names;
  for (const ReadOutValue& value : read_out.entries[0].values) {
    names += value.name + "=" + value.text + ";";
  }
  EXPECT_EQ(names, "ABC open=10;high=12;low=9;close=11 +10.00%;");
  EXPECT_NEAR(*read_out.entries[0].values[1].percent, 20.0, 1e-9);
  EXPECT_EQ(LineText(ReadRow(view, 2, false)), "w2, ABC –");
  CrossHair cross_hair;
  cross_hair.Follow(view);
  cross_hair.GoToLast();
  EXPECT_EQ(cross_hair.Row(), 3) << "not on the empty row behind";
}

}  // namespace
}  // namespace vistaplot
