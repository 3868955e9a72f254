#include <gtest/gtest.h>

#include "base/number_text.h"
#include "calc/fnu_series.h"

namespace vistaplot {
namespace {

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
