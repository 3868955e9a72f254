// What is made for each market day: counts of signals, breadth, beta series.
#include <gtest/gtest.h>

#include <algorithm>

#include "base/files.h"
#include "base/number_text.h"
#include "calc/family_series.h"
#include "calc/fnu_series.h"
#include "calc/signal_counts.h"
#include "support/temporary_folder.h"
#include "support/weekday_calendar.h"

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

/// Counts of the first ten weekdays of 1990 (Monday, January 1 to Friday, January 12) as digits.
std::string CountsOf(std::initializer_list<std::string_view> files) {
  const MarketCalendar calendar = WeekdayCalendar(10);
  SignalCounter counter(calendar);
  for (const std::string_view file : files) {
    counter.Add(ParseSignalFile(file).signals);
  }
  std::string digits;
  for (const int count : counter.Counts()) {
    digits += std::to_string(count);
  }
  return digits;
}

TEST(SignalCounts, ASignalHoldsUntilTheDayOfTheNext) {
  struct Row {
    const char *name, *file, *counts;
  };
  const Row rows[] = {
      {"first from day 1", "T\r\nB,01/09/1990\r\nS,01/10/1990\r\n", "1111111000"},
      {"last to the end", "T\nS,01/01/90\nB,01/05/90\n", "0000111111"},
      {"quoted, no last line end", "T\n\"B\",\"1/2/1990\"\n\"S\",\"1/3/1990\"", "1100000000"},
      {"one signal alone", "T\nB,01/02/1990\n", "0000000000"},
      {"nothing", "", "0000000000"},
      {"title alone", "B,01/02/1990\n", "0000000000"},
      {"only a capital B", "T\nB,1/1/90\nb,1/3/90\nB,1/8/90\nX,1/9/90\n", "1100010000"},
      {"closed day: the next open one", "T\nS,1/1/90\nB,1/6/90\nS,1/11/90\n", "0000011100"},
      {"two on one day: the last", "T\nS,1/1/90\nB,1/6/90\nS,1/8/90\nB,1/10/90\n", "0000000111"},
      {"back in time: at once", "T\nB,1/1/90\nS,1/8/90\nB,1/2/90\nS,1/10/90\n", "1111111000"},
      {"behind the last day", "T\nB,1/1/90\nS,1/15/90\nB,2/1/90\n", "1111111111"},
      {"before the first day", "T\nB,1/1/89\nS,12/29/89\n", "0000000000"},
      {"lines without a date", "T\n\nB\nB,1/1/90\nS,\nS,1/9/90\n\n", "1111110000"},
      {"a century away, as written", "T\nB,1/1/90\nS,1/9/2090\nB,1/11/1890\n", "1111110011"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(CountsOf({row.file}), row.counts) << row.name;
  }
}

TEST(SignalCounts, FilesAddUp) {
  const std::string_view early = "T\nB,1/1/90\nS,1/5/90\n";
  const std::string_view late = "T\nS,1/1/90\nB,1/4/90\n";
  EXPECT_EQ(CountsOf({early, late, late}), "1113222222");
}

TEST(SignalCounts, InACalendarOfMoreThanACenturyTheFirstDayWrittenAlikeCounts) {
  MarketCalendar calendar;
  calendar.DayDates = {0};
  for (const int year : {1928, 1929, 1930, 2028, 2029, 2030}) {
    calendar.DayDates.push_back(SerialFromDate({.year = year, .month = 6, .day = 3}));
  }
  calendar.MaxDays = calendar.MaxNumDays = 6;
  SignalCounter counter(calendar);
  counter.Add(ParseSignalFile("T\nS,1/1/28\nB,6/3/29\nS,6/3/2030\nB,6/3/29\n").signals);
  EXPECT_EQ(counter.Counts(), (std::vector<int>{0, 1, 0, 0, 1, 1}));
}

TEST(SignalCounts, AFileThatCannotBeReadIsNamed) {
  const test::TemporaryFolder folder;
  const std::string good = JoinPath(folder.Path(), "A.SIG");
  ASSERT_TRUE(WriteFileAtomically(good, "T\nB,1/1/90\nS,1/3/90\n"));
  const std::string missing = JoinPath(folder.Path(), "B.SIG");
  const MarketCalendar calendar = WeekdayCalendar(3);
  EXPECT_EQ(CountSignalFiles(std::vector{good, good}, calendar).Value(),
            (std::vector<int>{2, 2, 0}));
  const auto failed = CountSignalFiles(std::vector{good, missing}, calendar);
  ASSERT_FALSE(failed);
  EXPECT_EQ(failed.Error().number, kErrorFileNotFound);
  EXPECT_EQ(failed.Error().subject, missing);
}

}  // namespace
}  // namespace vistaplot
