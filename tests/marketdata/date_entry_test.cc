#include <gtest/gtest.h>

#include "marketdata/market_calendar.h"

namespace vistaplot {
namespace {

/// Thursday 23, Monday 27, Tuesday 28 December 1999, Monday 3 January 2000.
MarketCalendar HolidayCalendar() {
  MarketCalendar calendar{4, 4, {0}};
  for (const CivilDate& date :
       {CivilDate{1999, 12, 23}, {1999, 12, 27}, {1999, 12, 28}, {2000, 1, 3}}) {
    calendar.DayDates.push_back(SerialFromDate(date));
  }
  return calendar;
}

TEST(DateEntry, TypedTextsFindTheirMarketDay) {
  struct Case {
    const char* typed;
    int day;
    const char* text;
    bool exact;
    bool is_date = true;
  };
  for (const Case& c : {Case{"12/27/1999", 2, "12/27/1999", true},
                        Case{"12/25/1999", 2, "12/27/1999", false},
                        Case{"1/3/00", 4, "1/3/00", true},
                        Case{"1/4/2000", 4, "01/03/2000", false},
                        Case{"27. Dec 99", 2, "27. Dec 99", true},
                        Case{"26.12.1999", 2, "12/27/1999", false},
                        Case{"7/4/1950", 1, "12/23/1999", false},
                        Case{"", 1, "12/23/1999", false, false},
                        Case{"soon", 4, "01/03/2000", false, false},
                        Case{"2000", 4, "01/03/2000", false, false},
                        Case{"1999/12/26x", 2, "12/27/1999", false, false}}) {
    const auto entry = SnapDateEntry(c.typed, HolidayCalendar());
    ASSERT_TRUE(entry.has_value());
    EXPECT_EQ(entry->day, c.day) << c.typed;
    EXPECT_EQ(entry->text, c.text) << c.typed;
    EXPECT_EQ(entry->exact, c.exact) << c.typed;
    EXPECT_EQ(entry->is_date, c.is_date) << c.typed;
  }
}

TEST(DateEntry, WithoutACalendarNothingChanges) {
  EXPECT_FALSE(SnapDateEntry("1/3/2000", MarketCalendar{}).has_value());
}

TEST(MarketCalendar, FindsDaysByDate) {
  const MarketCalendar calendar = HolidayCalendar();
  const DateSerial first = calendar.DateOf(1);
  EXPECT_EQ(MarketDayOnOrBefore(calendar, first - 1), 0);
  EXPECT_EQ(MarketDayOnOrBefore(calendar, first + 3), 1);
  EXPECT_EQ(MarketDayOnOrBefore(calendar, first + 1000), 4);
  EXPECT_EQ(MarketDayOf(calendar, first + 4), 2);
  EXPECT_EQ(MarketDayOf(calendar, first + 3), 0);
  EXPECT_EQ(MarketDayOnOrBefore(MarketCalendar{}, first), 0);
}

}  // namespace
}  // namespace vistaplot
