#include "quoteline/sample.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>

#include "quoteline/check.h"
#include "quoteline/store_creation.h"
#include "support/quoteline_world.h"

namespace vistaplot {
namespace {

using test::QuotelineWorld;

TEST(Sample, FillsAnEmptyDirectoryAndPassesTheCheck) {
  QuotelineWorld world;
  const auto filled = FillWithSample(world.folder.Path());
  ASSERT_TRUE(filled) << PlainText(filled.Error());
  const CheckReport report = CheckService(world.folder.Path());
  EXPECT_EQ(report.faults, std::vector<std::string>{});
  EXPECT_EQ(report.issues, 68U);
  EXPECT_EQ(report.families, 8U);
  // ALL60 counts its sixty members.
  EXPECT_EQ(world.folder.Read("USERDEF/ALL60.FAM").size(), 116U + 60U * 19U);
  // The closed fund keeps its last price to the end.
  EXPECT_EQ(
      world.List("EQINX"),
      std::vector<std::string>{"EQINX 1999-01-04 2020-01-02 5338 Eskwood International Fund"});
}

TEST(Sample, TouchesNothingThatTheUserHas) {
  QuotelineWorld world;
  world.Import("A.csv", "Date,Close\n2000-01-03,10\n");
  EXPECT_FALSE(FillWithSample(world.folder.Path()));
  EXPECT_EQ(world.List(), std::vector<std::string>{"A 2000-01-03 2000-01-03 1 A"});
  EXPECT_EQ(world.folder.Read("SIG/ALL1050.SIG"), "");
  QuotelineWorld other;
  other.folder.Write("SIG/TEC1050.SIG", "\"mine\"\r\n");
  EXPECT_FALSE(FillWithSample(other.folder.Path()));
  EXPECT_EQ(other.folder.Read("SIG/TEC1050.SIG"), "\"mine\"\r\n");
  EXPECT_TRUE(other.List().empty());
}

// A snapshot of our own: the sample must not change from machine to machine or run to run.
TEST(Sample, IsTheSameEverywhere) {
  const SampleMarket market = MakeSampleMarket();
  std::uint32_t sum = FirstFormChecksum(std::as_bytes(std::span(market.days)));
  for (const SampleIssue& issue : market.issues)
    sum = sum * 31 + FirstFormChecksum(std::as_bytes(std::span(issue.prices)));
  EXPECT_EQ(sum, 1288349594U);
}

TEST(Sample, MarketIsPlausible) {
  const SampleMarket market = MakeSampleMarket();
  ASSERT_EQ(market.issues.size(), 68U);
  std::set<std::size_t> first_days;
  for (const SampleIssue& issue : market.issues) {
    std::size_t first = 0;
    while (issue.prices[first] == 0.0F) ++first;
    first_days.insert(first);
    if (issue.kind == SampleKind::kBreadth) continue;
    for (std::size_t i = first + 1; i < issue.prices.size() && issue.prices[i] > 0.0F; ++i) {
      ASSERT_LT(std::abs(issue.prices[i] / issue.prices[i - 1] - 1.0F), 0.25F) << issue.symbol;
      ASSERT_LT(issue.prices[i], 10'000.0F) << issue.symbol;
    }
  }
  EXPECT_GE(first_days.size(), 5U);
  for (const DateSerial day : market.days) {
    ASSERT_NE(WeekdayOf(day), Weekday::kSaturday);
    ASSERT_NE(WeekdayOf(day), Weekday::kSunday);
  }
  EXPECT_EQ(DateText(market.days.back(), DatePattern::kIso), "2023-12-29");
}

TEST(Sample, ResultFilesHaveTheShapesOfTheirKinds) {
  const std::vector<SampleFile> files = MakeSampleResults();
  ASSERT_EQ(files.size(), 5U);
  EXPECT_EQ(files[0].bytes.size(), 100U * 119U);
  EXPECT_EQ(files[0].bytes.substr(115, 4), "\r\n  ");
  EXPECT_EQ(files[3].bytes.size(), 100U * 77U);
  EXPECT_EQ(files[3].bytes.substr(73, 4), "\r\n  ");
  for (const std::size_t tab : {4U, 9U, 14U, 23U, 28U, 37U, 46U, 55U, 64U}) {
    EXPECT_EQ(files[3].bytes[77 + tab], '\t') << tab;
  }
  EXPECT_EQ(files[4].bytes.size(), 60U * 40U);
  const std::string& fixed = files[1].bytes;
  EXPECT_EQ(fixed.substr(fixed.find('\n') + 6, 2), "MA");
  const std::size_t row = fixed.find("\n  5 ") + 1;  // line 8, the first row
  EXPECT_EQ(std::count(fixed.begin(), fixed.begin() + static_cast<std::ptrdiff_t>(row), '\n'), 7);
  EXPECT_EQ(fixed.substr(row + 67, 5), " 7.38");
}

}  // namespace
}  // namespace vistaplot
