#include "base/date.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "base/text.h"

namespace vistaplot {
namespace {

DateSerial Serial(int year, int month, int day) {
  return SerialFromDate({.year = year, .month = month, .day = day});
}

// 1900 had no 29 February; the days before it are days like others.
TEST(Date, CountsDaysFromTheEndOf1899) {
  const std::vector<std::pair<DateSerial, const char*>> cases = {{0, "12/30/1899"},
                                                                 {1, "12/31/1899"},
                                                                 {-1, "12/29/1899"},
                                                                 {2, "01/01/1900"},
                                                                 {61, "03/01/1900"},
                                                                 {36526, "01/01/2000"},
                                                                 {-11261, "03/01/1869"}};
  for (const auto& [serial, text] : cases) {
    EXPECT_EQ(DateText(serial, DatePattern::kMonthDayLongYear), text);
    EXPECT_EQ(ParseDate(text), serial) << text;
  }
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
  for (const auto text : Split("01/05/1990| 1/5/90 |1-5-1990|1990-01-05|1990/1/5", '|')) {
    EXPECT_EQ(ParseDate(text), Serial(1990, 1, 5)) << text;
  }
  EXPECT_EQ(ParseDate("12/31/30"), Serial(1930, 12, 31));
  EXPECT_EQ(ParseDate("12/31/29"), Serial(2029, 12, 31));
  EXPECT_EQ(ParseDate("2/29/00"), Serial(2000, 2, 29));
}

TEST(ParseDate, RefusesWhatNoCalendarHas) {
  for (const auto text : Split("|1/5|1/5/1990/2|13/01/1990|02/29/1900|04/31/1999|0/5/1990|1/5/990|"
                               "001/05/1990|1/5/0099|1/5/+9|1/5/19900|Jan/5/1990|1/ 5/1990|"
                               "1990-01-05x",
                               '|')) {
    EXPECT_EQ(ParseDate(text), std::nullopt) << text;
  }
}

TEST(ParseTypedDate, AlsoTakesMonthNamesAndPoints) {
  const DateSerial eve = Serial(1999, 12, 24);
  for (const auto text : Split("12/24/1999|1999-12-24", '|')) {
    EXPECT_EQ(ParseTypedDate(text), eve) << text;
  }
  for (const auto text : Split("Dec 24, 1999|24-Dec-1999|24 december 99|24. Dec. 1999|1999 Dec 24|"
                               "decemb-24-99|24.12.1999| 24. 12. 99 |1999.12.24",
                               '|')) {
    EXPECT_EQ(ParseTypedDate(text), eve) << text;
    EXPECT_EQ(ParseDate(text), std::nullopt) << text;
  }
  EXPECT_EQ(ParseTypedDate("1.2.2000"), Serial(2000, 2, 1));  // a point: the day first
  for (const auto text : Split("|De 24 1999|Decembers 24 1999|24.13.1999|24.12|31 Feb 2000|"
                               "Dec Jan 1999|24 12 1999|12,24,1999|24.12/1999|Dec 24 199|"
                               "Dec 24 1999 x|24.Dez.1999|24.0012.1999",
                               '|')) {
    EXPECT_EQ(ParseTypedDate(text), std::nullopt) << text;
  }
}

TEST(MonthsBefore, EndsAtTheLastDayOfAShorterMonth) {
  EXPECT_EQ(MonthsBefore(Serial(1999, 3, 31), 1), Serial(1999, 2, 28));
  EXPECT_EQ(MonthsBefore(Serial(2000, 3, 31), 1), Serial(2000, 2, 29));
  EXPECT_EQ(MonthsBefore(Serial(2000, 2, 29), 12), Serial(1999, 2, 28));
  EXPECT_EQ(MonthsBefore(Serial(2000, 1, 15), 37), Serial(1996, 12, 15));
  EXPECT_EQ(MonthsBefore(Serial(1900, 3, 31), 25), Serial(1898, 2, 28));
}

TEST(WeekdayOf, AgreesWithTheCalendar) {
  EXPECT_EQ(WeekdayOf(Serial(2000, 1, 1)), Weekday::kSaturday);
  EXPECT_EQ(WeekdayOf(Serial(1987, 10, 19)), Weekday::kMonday);
  EXPECT_EQ(WeekdayOf(Serial(1899, 12, 24)), Weekday::kSunday);
}

}  // namespace
}  // namespace vistaplot
