#include <gtest/gtest.h>

#include "charts/kinds/kind.h"
#include "support/chart_pictures.h"

namespace vistaplot {
namespace {

using namespace test;

std::string HitText(const std::optional<ChartHit>& hit) {
  if (!hit) return "none";
  return std::to_string(hit->series) + "/" + std::to_string(hit->point);
}

TEST(HitTest, TheNearerPointOfALineUnderThePointerIsMeant) {
  // Two lines far apart over five rows; row 4 of the first is missing.
  const ChartView view = LineChart({{0.0, 0.0, 0.0, kGap, 0.0}, {0.5, 0.5, 0.5, 0.5, 0.9}});
  const ChartPicture picture = LayOut(view);
  struct Case {
    double position;
    double value;
    const char* hit;
  };
  for (const Case& c : {Case{1.0, 0.0, "1/1"},
                        Case{1.4, 0.0, "1/1"},
                        Case{1.6, 0.0, "1/2"},
                        Case{1.6, 0.5, "2/2"},
                        Case{3.5, 0.0, "none"},  // the gap
                        Case{3.4, 0.5, "2/3"},
                        Case{4.6, 0.74, "2/5"},   // on the slope
                        Case{2.0, 0.25, "none"},  // between the lines
                        Case{5.0, 0.0, "1/5"}}) {
    const PicturePoint at{picture.scale.X(c.position), picture.scale.Y(c.value)};
    EXPECT_EQ(HitText(FindPoint(view, picture, at)), c.hit) << c.position << " " << c.value;
  }
  EXPECT_EQ(HitText(FindPoint(view, picture, {1.0, 1.0})), "none");
}

TEST(HitTest, MarkersCountAlone) {
  ChartView view = LineChart({{1.0, 5.0, 3.0}, {1.0, 1.0, 9.0}});
  view.ChartType = kChartXY;
  view.Plot.Series(1).showline = false;
  const ChartPicture picture = LayOut(view);
  const auto hit_at = [&](double x, double y) {
    return HitText(FindPoint(view, picture, {picture.scale.X(x) + 3.0, picture.scale.Y(y) - 3.0}));
  };
  EXPECT_EQ(hit_at(3.0, 9.0), "1/3");
  EXPECT_EQ(hit_at(3.0, 1.0), "none");
}

TEST(HitTest, RegionsComeFirstAndTheTopmostOneWins) {
  const ChartView view = LineChart({{0.0, 0.1}});
  ChartPicture picture = LayOut(view);
  picture.regions = {{{100, 100, 200, 200}, 1, 1}, {{150, 100, 250, 200}, 2, 7}};
  EXPECT_EQ(HitText(FindPoint(view, picture, {160, 150})), "2/7");
  EXPECT_EQ(HitText(FindPoint(view, picture, {120, 150})), "1/1");
}

}  // namespace
}  // namespace vistaplot
