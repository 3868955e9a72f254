#include <gtest/gtest.h>

#include <algorithm>

#include "calc/family_series.h"

namespace vistaplot {
namespace {

TEST(Breadth, AMissingSideOfTheExchangeLineCountsAsMinusOne) {
  const std::vector<float> advancers = {-1, -1, -1, -1, 800, 500};
  const std::vector<float> decliners = {-1, -1, 300, 400, 200, 700};
  // days 3 and 4 add -1 - decliners
  EXPECT_EQ(AdvanceDeclineLine(advancers, decliners),
            (std::vector<float>{0, 0, -301, -702, -102, -302}));
}

FamilyRecords Records(const std::vector<std::vector<float>>& histories, int days) {
  FamilyRecords records;
  records.Resize(static_cast<int>(histories.size()), days);
  for (int k = 1; k <= records.Count(); ++k) {
    const std::vector<float>& history = histories[static_cast<std::size_t>(k - 1)];
    std::copy(history.begin(), history.end(), records.Prices(k).begin() + 1);
  }
  return records;
}

TEST(Breadth, AMemberCountsWhereItHadAPriceTheDayBefore) {
  const FamilyBreadth breadth =
      CountFamilyBreadth(Records({{5, 6, 6, 4, 5}, {-1, -1, 3, 2, 1}, {0, 1, 0, -1, 7}}, 5));
  EXPECT_EQ(breadth.advancers, (std::vector<int>{0, 2, 0, 0, 1}));
  EXPECT_EQ(breadth.decliners, (std::vector<int>{0, 0, 1, 3, 1}));
  EXPECT_EQ(breadth.line, (std::vector<float>{0, 2, 1, -2, -2}));
}

TEST(Breadth, AnEmptyFamilyIsZeroThroughout) {
  const FamilyBreadth breadth = CountFamilyBreadth(Records({}, 3));
  EXPECT_EQ(breadth.advancers, (std::vector<int>{0, 0, 0}));
  EXPECT_EQ(breadth.decliners, (std::vector<int>{0, 0, 0}));
  EXPECT_EQ(breadth.line, (std::vector<float>{0, 0, 0}));
}

}  // namespace
}  // namespace vistaplot
