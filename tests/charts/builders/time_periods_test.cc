#include "charts/builders/time_periods.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/weekday_calendar.h"

namespace vistaplot {
namespace {

int DayOf(const MarketCalendar& calendar, const CivilDate& date) {
  return MarketDayOf(calendar, SerialFromDate(date));
}

// A window that begins on the day of the right number of months before its end.
TEST(PriceWindow, BeginsOnOrBeforeTheDateOfThePeriod) {
  const MarketCalendar calendar = WeekdayCalendar(1500);
  struct Case {
    int period;
    CivilDate end;
    CivilDate first;
  };
  const std::vector<Case> cases = {
      {0, {1990, 3, 15}, {1990, 2, 15}},
      {0, {1990, 3, 30}, {1990, 2, 28}},  // February has no 30th
      {0, {1990, 5, 14}, {1990, 4, 13}},  // 14 April was a Saturday
      {1, {1990, 5, 14}, {1990, 3, 14}},
      {2, {1990, 5, 14}, {1990, 2, 14}},
      {3, {1991, 5, 14}, {1990, 11, 14}},
      {4, {1991, 5, 14}, {1990, 8, 14}},
      {5, {1991, 5, 14}, {1990, 5, 14}},
      {6, {1992, 5, 14}, {1990, 5, 14}},
      {7, {1993, 5, 14}, {1990, 5, 14}},
      {8, {1995, 5, 15}, {1990, 5, 15}},
      {5, {1990, 12, 31}, {1990, 1, 2}},  // no further back than day 2
  };
  for (const Case& c : cases) {
    const int end = DayOf(calendar, c.end);
    ASSERT_GT(end, 0);
    const auto window = PriceWindow(c.period, end, kLeastLookbackDays, calendar);
    ASSERT_TRUE(window);
    EXPECT_EQ(DateText(calendar.DateOf(window->first_day), DatePattern::kIso),
              DateText(SerialFromDate(c.first), DatePattern::kIso));
    EXPECT_EQ(window->end_day, end);
  }
}

TEST(PriceWindow, ReachesBackAtLeastItsMarketDays) {
  MarketCalendar fridays = WeekdayCalendar(600);
  for (int day = 1; day <= 600; ++day) fridays.DayDates[static_cast<std::size_t>(day)] = day * 7;
  EXPECT_EQ(PriceWindow(0, 500, kLeastLookbackDays, fridays), (DayWindow{480, 500}));
  EXPECT_EQ(PriceWindow(2, 500, kLeastLookbackDays, fridays), (DayWindow{440, 500}));
}

TEST(PriceWindow, MovesAsAWholeBehindTheHistoryItNeeds) {
  const MarketCalendar calendar = WeekdayCalendar(300);
  EXPECT_EQ(PriceWindow(0, 30, 52, calendar), (DayWindow{52, 72}));
  EXPECT_EQ(PriceWindow(0, 1, 2, calendar), (DayWindow{2, 22}));
  EXPECT_EQ(PriceWindow(0, -5, 2, calendar), (DayWindow{2, 22}));
  EXPECT_EQ(PriceWindow(5, 200, 102, calendar), (DayWindow{102, 300}));
  EXPECT_EQ(PriceWindow(0, 299, 300, calendar), (DayWindow{300, 300}));
  EXPECT_EQ(PriceWindow(0, 299, 301, calendar), std::nullopt);
  EXPECT_EQ(PriceWindow(9, 120, 2, calendar), (DayWindow{2, 300}));
  EXPECT_EQ(PriceWindow(9, 120, 52, calendar), (DayWindow{52, 300}));
  EXPECT_EQ(PriceWindow(9, 1, 2, MarketCalendar{}), std::nullopt);
}

TEST(LookbackDays, IsTheLongestPeriodAndTwoDays) {
  const auto days = [](std::vector<double> periods) { return LookbackDaysFor(periods).Value(); };
  EXPECT_EQ(days({}), 2);
  EXPECT_EQ(days({-7.0}), 2);
  EXPECT_EQ(days({20.0, 50.0, 30.0}), 52);
  EXPECT_EQ(days({50.5}), 52);  // halves to even
  EXPECT_EQ(days({51.5}), 54);
  EXPECT_EQ(LookbackDaysFor(std::vector{20.0, 32766.0}).Error().number, kErrorOverflow);
}

}  // namespace
}  // namespace vistaplot
