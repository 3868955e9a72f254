// Texts, numbers and dates as they are written.
#include "base/text.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "base/date.h"
#include "base/number_text.h"

namespace vistaplot {
namespace {

TEST(Text, ComparesWithCaseIgnored) {
  EXPECT_EQ(CompareIgnoringCase("abc", "ABC"), 0);
  EXPECT_LT(CompareIgnoringCase("ab", "ABC"), 0);
  EXPECT_GT(CompareIgnoringCase("b", "ABC"), 0);
  EXPECT_LT(CompareIgnoringCase("z", "\xC3\xA4"), 0);  // bytes above 127 sort behind letters
  EXPECT_TRUE(StartsWithIgnoringCase("Growth.FAM", "growth"));
  EXPECT_FALSE(StartsWithIgnoringCase("Gro", "growth"));
}

TEST(Text, PadsAndCutsByCharacters) {
  EXPECT_EQ(PadRight("ab", 4), "ab  ");
  EXPECT_EQ(PadRight("abcde", 4), "abcd");
  EXPECT_EQ(PadRight("z\xC3\xBCrich", 3), "z\xC3\xBCr");
  EXPECT_EQ(PadRight("\xC3\xBC", 3), "\xC3\xBC  ");
  EXPECT_EQ(UpToFirstDot("A.B.FAM"), "A");
}

TEST(Text, TrimsOnlyWhatItSaysAndKeepsEmptyParts) {
  EXPECT_EQ(TrimBlanks("  a\t "), "a\t");
  EXPECT_EQ(TrimRightBlanks("  a "), "  a");
  EXPECT_EQ(TrimWhite(" \r\n a b\t\n"), "a b");
  EXPECT_EQ(TrimBlanks("   "), "");
  EXPECT_EQ(Split("a,,b,", ','), (std::vector<std::string_view>{"a", "", "b", ""}));
  EXPECT_EQ(Split("", ','), std::vector<std::string_view>{""});
}

TEST(Windows1252, AllBytesSurviveTheWayToUtf8AndBack) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  EXPECT_EQ(Windows1252FromUtf8(Utf8FromWindows1252(bytes)), bytes);
  EXPECT_EQ(Utf8FromWindows1252("\x80 \xFC"), "\xE2\x82\xAC \xC3\xBC");
  EXPECT_EQ(Windows1252FromUtf8("a\xCE\xB1z"), "a?z");        // Greek alpha
  EXPECT_EQ(Windows1252FromUtf8("\xF0\x9F\x98\x80!"), "?!");  // beyond 16 bits
  EXPECT_EQ(Windows1252FromUtf8("\xC2\x80"), "?");            // a control that no byte stands for
  EXPECT_EQ(Windows1252FromUtf8("\xFF\xE2\x82"), "???");      // no UTF-8
}

TEST(JsonQuoted, IsValidWhateverTheBytes) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"a\"b\\c", R"("a\"b\\c")"},
      {"x\r\n\ty", R"("x\r\n\ty")"},
      {std::string("\0\x1F", 2), R"("\u0000\u001f")"},
      {"\xC3\xBC", "\"\xC3\xBC\""},
      {"\xFC", "\"\xC3\xBC\""},                              // a lone byte is Windows-1252
      {"\xC0\xAF", "\"\xC3\x80\xC2\xAF\""},                  // over-long
      {"\xED\xA0\x80", "\"\xC3\xAD\xC2\xA0\xE2\x82\xAC\""},  // a surrogate
      {"\xE2\x82", "\"\xC3\xA2\xE2\x80\x9A\""}};             // cut
  for (const auto& [text, json] : cases) EXPECT_EQ(JsonQuoted(text), json);
}

TEST(NumberText, ShowsSevenDigitsWithoutExponent) {
  const std::vector<std::pair<float, const char*>> cases = {
      {0.0F, "0"},
      {-0.0F, "0"},
      {0.5F, "0.5"},
      {-0.25F, "-0.25"},
      {23.6F, "23.6"},
      {100.0F, "100"},
      {1.0F / 3.0F, "0.3333333"},
      {1234567.0F, "1234567"},
      {12345678.0F, "12345680"},
      {1e10F, "10000000000"},
      {0.99999994F, "0.9999999"},
      {1.00000012F, "1"},
      {1e-5F, "0.00001"},
      {1.5e-7F, "0.00000015"},
      // Exactly halves of the seventh digit: to the even digit.
      {262144.25F, "262144.2"},
      {262144.75F, "262144.8"},
      {16777215.0F, "16777220"},
      {std::numeric_limits<float>::infinity(), "Infinity"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(NumberText(value), text);
}

// The number of a cell must be what its text reads back as, to the last bit, in and around the
// range of the fast form.
TEST(NumberText, SevenDigitValueIsWhatTheTextReadsBackAs) {
  std::mt19937 random(7);
  std::vector<float> values;
  float edge = 1e-7F;
  for (int decade = 0; decade < 16; ++decade, edge *= 10.0F) {
    values.insert(values.end(), {edge, std::nextafter(edge, 0.0F), std::nextafter(edge, 1e30F)});
  }
  for (int i = 0; i < 200'000; ++i) {
    const float value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    if (std::isfinite(value)) values.push_back(value);
    values.push_back(std::ldexp(1.0F + static_cast<float>(random() % 8'388'608) / 8'388'608.0F,
                                static_cast<int>(random() % 44) - 18));
  }
  for (const float value : values) {
    std::array<char, 40> exact{};
    const auto end = std::to_chars(
        exact.data(), exact.data() + exact.size(), value, std::chars_format::scientific, 6);
    double expected = 0;
    std::from_chars(exact.data(), end.ptr, expected);
    ASSERT_EQ(SevenDigitValue(value), expected) << exact.data();
    ASSERT_EQ(LeadingNumber(NumberText(value)), expected) << exact.data();
  }
}

TEST(FixedText, RoundsTheExactValueHalfAwayFromZero) {
  const std::vector<std::tuple<double, int, const char*>> cases = {
      {0.125, 2, "0.13"},
      {-0.125, 2, "-0.13"},
      {2.5, 0, "3"},
      {0.5, 0, "1"},
      {-0.4, 0, "0"},
      {9.5, 0, "10"},
      {99.9375, 3, "99.938"},
      {1.005, 2, "1.00"},  // the binary value lies below 1.005
      {-0.004, 2, "0.00"},
      {999.995, 2, "1000.00"},  // above it
      {4503599627370495.5, 0, "4503599627370496"},
      {1234567.0, 2, "1234567.00"},
      {1e22, 1, "10000000000000000000000.0"}};
  for (const auto& [value, decimals, text] : cases) EXPECT_EQ(FixedText(value, decimals), text);
}

TEST(LeadingNumber, ReadsTheNumberThatTheTextBeginsWith) {
  const std::vector<std::pair<const char*, double>> whole = {
      {"  -3.25 ", -3.25},
      {"+7", 7},
      {".5", 0.5},
      {"5.", 5},
      {"-.5", -0.5},
      {"1e3", 1000},
      {"9007199254740993", 9007199254740992.0},
      {"0.1000000000000000055511151231257827", 0.1},
      {"1e-999", 0},
      {"-1e999", -std::numeric_limits<double>::infinity()}};
  for (const auto& [text, number] : whole) {
    EXPECT_EQ(LeadingNumber(text), number) << text;
    EXPECT_EQ(WholeNumber(text), number) << text;
  }
  for (const auto& [text, number] : std::vector<std::pair<const char*, double>>{
           {"12 days", 12}, {"1E+2x", 100}, {"2e", 2}, {"1,5", 1}}) {
    EXPECT_EQ(LeadingNumber(text), number) << text;
    EXPECT_EQ(WholeNumber(text), std::nullopt) << text;
  }
  for (const char* text : {"", ".", "-", "+-1", "abc", "nan", "0x10"}) {
    EXPECT_EQ(LeadingNumber(text), 0) << text;
    EXPECT_EQ(WholeNumber(text), std::nullopt) << text;
  }
}

TEST(WholeInteger, TakesSignAndDigitsOnly) {
  EXPECT_EQ(WholeInteger(" +12 "), 12);
  EXPECT_EQ(WholeInteger("-9223372036854775808"), std::numeric_limits<long long>::min());
  for (const char* text : {"", "+", "+-1", "1.0", "1e2", "12x", "9223372036854775808"}) {
    EXPECT_EQ(WholeInteger(text), std::nullopt) << text;
  }
}

TEST(ToInt16, RoundsHalvesToEvenAndNamesWhatOverflows) {
  EXPECT_EQ(ToInt16(2.5).Value(), 2);
  EXPECT_EQ(ToInt16(-3.5).Value(), -4);
  EXPECT_EQ(ToInt16(32767.4).Value(), 32767);
  EXPECT_EQ(ToInt16(-32768.5).Value(), -32768);
  for (const double value : {32767.5, -32769.0, 1e300, std::nan("")}) {
    const auto result = ToInt16(value, "txtDays");
    ASSERT_FALSE(result.Ok()) << value;
    EXPECT_EQ(NumberedText(result.Error()), "6 Overflow");
    EXPECT_EQ(PlainText(result.Error()), "txtDays: Overflow");
  }
}

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
