#include "calc/fnu_series.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/number_text.h"
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

std::string Series(const std::vector<double>& prices, float beta) {
  std::string text;
  for (const float value : ComputeBetaSeries(prices, beta, 100.0F)) {
    if (!text.empty()) text += ' ';
    text += NumberText(value);
  }
  return text;
}

TEST(BetaSeries, MovesByBetaTimesTheFundsChange) {
  const std::vector<double> fund = {10, 11, 9.9};
  EXPECT_EQ(Series(fund, 1), "100 110 99");
  EXPECT_EQ(Series(fund, -1), "100 90 99");
  EXPECT_EQ(Series(fund, 0), "100 100 100");
  EXPECT_EQ(Series(fund, 2), "100 120 96");
}

TEST(BetaSeries, TheDayBeforeDecidesWhetherItMoves) {
  EXPECT_EQ(Series({-1, -1, 50, 55}, 1), "100 100 100 110");
  EXPECT_EQ(Series({10, 0, 5, 6}, 1), "100 0 0 0") << "a fund at 0 has lost all";
  EXPECT_EQ(Series({10, 0, 5, 6}, 0.5F), "100 50 50 55") << "after a day of 0 it stays";
  EXPECT_EQ(Series({10, -1, 10, 11}, 1), "100 -10 -10 -11");
}

TEST(BetaSeries, EachDayIsRoundedToSinglePrecision) {
  // 100 (1 + 1e-9) is 100 in single precision, however often
  EXPECT_EQ(Series({1e9, 1e9 + 1, 1e9 + 2, 1e9 + 3}, 1), "100 100 100 100");
  EXPECT_EQ(Series({}, 1), "");
}

}  // namespace
}  // namespace vistaplot
