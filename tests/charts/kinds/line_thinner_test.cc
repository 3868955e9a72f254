#include <gtest/gtest.h>

#include <string_view>

#include "charts/kinds/line_hits.h"

namespace vistaplot {
namespace {

std::vector<double> Heights(const std::vector<PicturePoint>& points) {
  std::vector<double> heights;
  heights.reserve(points.size());
  for (const PicturePoint& point : points) heights.push_back(point.y);
  return heights;
}

TEST(LineThinner, AColumnKeepsFirstLowestHighestAndLastInTheirOrder) {
  LineThinner thinner(1.0, 100);
  double x = 5.0;
  for (const double y : {3.0, 4.0, 9.0, 5.0, 1.0, 2.0, 6.0}) thinner.Add({x += 0.1, y});
  for (const double y : {7.0, 2.0}) thinner.Add({6.5, y});
  thinner.Break();
  const auto pieces = thinner.TakePieces();
  ASSERT_EQ(pieces.size(), 1U);
  EXPECT_EQ(Heights(pieces[0]), (std::vector<double>{3.0, 9.0, 1.0, 6.0, 7.0, 2.0}));
}

TEST(LineThinner, FinerDevicesKeepMore) {
  LineThinner thinner(4.0, 100);
  for (int i = 0; i < 8; ++i) thinner.Add({1.0 + i / 8.0, i % 2 == 0 ? 1.0 : 2.0});
  thinner.Break();
  EXPECT_EQ(thinner.TakePieces()[0].size(), 8U);
}

TEST(LineThinner, GapsPartTheLineAndLeaveSinglePoints) {
  LineThinner thinner(1.0, 10);
  double x = 0.0;
  for (const char mark : std::string_view("oo.o..ooo.")) {
    x += 10.0;
    if (mark == 'o') {
      thinner.Add({x, x});
    } else {
      thinner.Break();
    }
  }
  EXPECT_EQ(Heights(thinner.TakeAlone()), (std::vector<double>{40.0}));
  const auto pieces = thinner.TakePieces();
  ASSERT_EQ(pieces.size(), 2U);
  EXPECT_EQ(Heights(pieces[0]), (std::vector<double>{10.0, 20.0}));
  EXPECT_EQ(Heights(pieces[1]), (std::vector<double>{70.0, 80.0, 90.0}));
}

}  // namespace
}  // namespace vistaplot
