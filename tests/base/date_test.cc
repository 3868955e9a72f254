#include "base/date.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace vistaplot {
namespace {

DateSerial Serial(int year, int month, int day) {
  return SerialFromDate({.year = year, .month = month, .day = day});
}

TEST(Date, CountsDaysFromTheEndOf1899) {
  EXPECT_EQ(Serial(1899, 12, 30), 0);
  EXPECT_EQ(Serial(1900, 3, 1), 61);  // 1900 had no 29 February
  EXPECT_EQ(Serial(2000, 1, 1), 36526);
  EXPECT_EQ(DateText(0, DatePattern::kMonthDayLongYear), "12/30/1899");
  EXPECT_EQ(DateText(-2, DatePattern::kIso), "1899-12-28");
}

TEST(Date, IsWrittenInEveryPattern) {
  const DateSerial serial = Serial(1990, 1, 5);
  EXPECT_EQ(DateText(serial, DatePattern::kMonthDayLongYear), "01/05/1990");
  EXPECT_EQ(DateText(serial, DatePattern::kMonthDayShortYear), "01/05/90");
  EXPECT_EQ(DateText(serial, DatePattern::kBareShortYear), "1/5/90");
  EXPECT_EQ(DateText(Serial(2003, 11, 25), DatePattern::kBareShortYear), "11/25/03");
  EXPECT_EQ(DateText(serial, DatePattern::kYearMonthDay), "1990/01/05");
  EXPECT_EQ(DateText(serial, DatePattern::kCompact), "19900105");
  EXPECT_EQ(DateText(serial, DatePattern::kIso), "1990-01-05");
}

TEST(ParseDate, TakesTheWaysInWhichDatesAreWritten) {
  const std::vector<std::pair<const char*, DateSerial>> cases = {{"01/05/1990", Serial(1990, 1, 5)},
                                                                 {" 1/5/90 ", Serial(1990, 1, 5)},
                                                                 {"1-5-1990", Serial(1990, 1, 5)},
                                                                 {"1990-01-05", Serial(1990, 1, 5)},
                                                                 {"1990/1/5", Serial(1990, 1, 5)},
                                                                 {"12/31/30", Serial(1930, 12, 31)},
                                                                 {"12/31/29", Serial(2029, 12, 31)},
                                                                 {"2/29/00", Serial(2000, 2, 29)}};
  for (const auto& [text, serial] : cases) EXPECT_EQ(ParseDate(text), serial) << text;
}

TEST(ParseDate, RefusesWhatNoCalendarHas) {
  for (const char* text : {"",
                           "1/5",
                           "1/5/1990/2",
                           "13/01/1990",
                           "02/29/1900",
                           "04/31/1999",
                           "0/5/1990",
                           "1/5/990",
                           "001/05/1990",
                           "1/5/0099",
                           "1/5/+9",
                           "1/5/19900",
                           "Jan/5/1990",
                           "1/ 5/1990",
                           "1990-01-05x"}) {
    EXPECT_EQ(ParseDate(text), std::nullopt) << text;
  }
}

TEST(ParseTypedDate, AlsoTakesMonthNamesAndPoints) {
  const DateSerial eve = Serial(1999, 12, 24);
  for (const char* text : {"12/24/1999",
                           "1999-12-24",
                           "Dec 24, 1999",
                           "24-Dec-1999",
                           "24 december 99",
                           "24. Dec. 1999",
                           "1999 Dec 24",
                           "decemb-24-99",
                           "24.12.1999",
                           " 24. 12. 99 ",
                           "1999.12.24"}) {
    EXPECT_EQ(ParseTypedDate(text), eve) << text;
    const bool plain = text[0] == '1' && text[4] != ' ' && text[4] != '.';
    EXPECT_EQ(ParseDate(text).has_value(), plain) << text;
  }
  EXPECT_EQ(ParseTypedDate("1.2.2000"), Serial(2000, 2, 1));  // a point: the day first
  for (const char* text : {"",
                           "De 24 1999",
                           "Decembers 24 1999",
                           "24.13.1999",
                           "24.12",
                           "31 Feb 2000",
                           "Dec Jan 1999",
                           "24 12 1999",
                           "12,24,1999",
                           "24.12/1999",
                           "Dec 24 199",
                           "Dec 24 1999 x",
                           "24.Dez.1999",
                           "24.0012.1999"}) {
    EXPECT_EQ(ParseTypedDate(text), std::nullopt) << text;
  }
}

TEST(Date, DaysBefore1900AreDaysLikeOthers) {
  EXPECT_EQ(Serial(1900, 1, 1), 2);
  EXPECT_EQ(ParseDate("12/31/1899"), 1);
  EXPECT_EQ(ParseDate("12/29/1899"), -1);
  EXPECT_EQ(DateText(-1, DatePattern::kMonthDayShortYear), "12/29/99");
  EXPECT_EQ(DateText(Serial(1869, 2, 28) + 1, DatePattern::kCompact), "18690301");
  EXPECT_EQ(MonthsBefore(Serial(1900, 3, 31), 25), Serial(1898, 2, 28));
  EXPECT_EQ(WeekdayOf(-1), Weekday::kFriday);
}

TEST(MonthsBefore, EndsAtTheLastDayOfAShorterMonth) {
  EXPECT_EQ(MonthsBefore(Serial(1999, 3, 31), 1), Serial(1999, 2, 28));
  EXPECT_EQ(MonthsBefore(Serial(2000, 3, 31), 1), Serial(2000, 2, 29));
  EXPECT_EQ(MonthsBefore(Serial(2000, 2, 29), 12), Serial(1999, 2, 28));
  EXPECT_EQ(MonthsBefore(Serial(2000, 1, 15), 1), Serial(1999, 12, 15));
  EXPECT_EQ(MonthsBefore(Serial(2000, 1, 15), 37), Serial(1996, 12, 15));
}

TEST(WeekdayOf, AgreesWithTheCalendar) {
  EXPECT_EQ(WeekdayOf(Serial(2000, 1, 1)), Weekday::kSaturday);
  EXPECT_EQ(WeekdayOf(Serial(1987, 10, 19)), Weekday::kMonday);
  EXPECT_EQ(WeekdayOf(Serial(1899, 12, 24)), Weekday::kSunday);
}

}  // namespace
}  // namespace vistaplot
