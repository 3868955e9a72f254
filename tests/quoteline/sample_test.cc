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
  std::set<std::size_t> first_days;
  for (const SampleIssue& issue : market.issues) {
    std::size_t first = 0;
    while (issue.prices[first] == 0.0F) ++first;
    first_days.insert(first);
    if (issue.kind == SampleKind::kBreadth) continue;
    for (std::size_t i = first + 1; i < issue.prices.size() && issue.prices[i] > 0.0F; ++i) {
      ASSERT_LT(std::abs(issue.prices[i] / issue.prices[i - 1] - 1.0F), 0.25F) << issue.symbol;
    }
  }
  EXPECT_GE(first_days.size(), 5U);
  for (const DateSerial day : market.days) {
    ASSERT_TRUE(WeekdayOf(day) != Weekday::kSaturday && WeekdayOf(day) != Weekday::kSunday);
  }
}

}  // namespace
}  // namespace vistaplot
