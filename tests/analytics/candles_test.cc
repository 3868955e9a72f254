#include "analytics/candles.h"

#include <gtest/gtest.h>

namespace vistaplot {
namespace {

constexpr DateSerial kMonday = 32874;  // 1 January 1990

TEST(WeekEnds, AreFridaysOrThursdaysBeforeAHoliday) {
  // A whole week, one without its Friday, one without Thursday and Friday, a week to Thursday.
  const std::vector<DateSerial> dates = {kMonday,
                                         kMonday + 3,
                                         kMonday + 4,
                                         kMonday + 7,
                                         kMonday + 10,
                                         kMonday + 14,
                                         kMonday + 16,
                                         kMonday + 21,
                                         kMonday + 24};
  EXPECT_EQ(ComputeWeekEndFlags(dates), (std::vector<std::int16_t>{0, 0, 1, 0, 1, 0, 0, 0, 0}));
  EXPECT_EQ(ComputeWeekEndFlags(std::vector<DateSerial>{kMonday + 4}),
            std::vector<std::int16_t>{1});
}

void ExpectBar(const Candle& bar, const Candle& expected) {
  EXPECT_FLOAT_EQ(bar.open, expected.open);
  EXPECT_FLOAT_EQ(bar.high, expected.high);
  EXPECT_FLOAT_EQ(bar.low, expected.low);
  EXPECT_FLOAT_EQ(bar.close, expected.close);
  EXPECT_EQ(bar.day, expected.day);
}

TEST(WeeklyCandles, HoldOpenHighLowAndCloseRelativeToTheFirstPrice) {
  const std::vector<float> prices = {-1, 10, 12, 9, 11, 20, 0, 30};
  const std::vector<std::int16_t> week_ends = {0, 0, 0, 0, 1, 0, 1, 0};
  const WeeklyCandles candles = ComputeWeeklyCandles(prices, week_ends);
  EXPECT_EQ(candles.base, 10.0F);
  ASSERT_EQ(candles.bars.size(), 2U);  // the days behind the last week end are in none
  ExpectBar(candles.bars[0], {1.0F, 1.2F, 0.9F, 1.1F, 4});
  ExpectBar(candles.bars[1], {2.0F, 2.0F, 2.0F, 2.0F, 6});
}

TEST(WeeklyCandles, LeaveOutWeeksWithoutAPrice) {
  const std::vector<float> prices = {5, -1, 0, 6};
  const std::vector<std::int16_t> week_ends = {1, 1, 1, 1};
  const WeeklyCandles candles = ComputeWeeklyCandles(prices, week_ends);
  ASSERT_EQ(candles.bars.size(), 2U);
  EXPECT_EQ(candles.bars[1].day, 3);
  EXPECT_FLOAT_EQ(candles.bars[1].low, 1.2F);
  EXPECT_EQ(ComputeWeeklyCandles(std::vector<float>{-1, -1, -1, -1}, week_ends).base, 0.0F);
}

}  // namespace
}  // namespace vistaplot
