// The QL functions over imported prices and over the sample data.
#include "quoteline/quoteline.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "base/date.h"
#include "quoteline/check.h"
#include "quoteline/sample.h"
#include "quoteline/store_creation.h"
#include "support/quoteline_world.h"

namespace vistaplot::test {
namespace {

using Floats = std::vector<float>;

// A has days 1 to 3 of four, B days 2 and 4.
constexpr const char* kTwoIssues =
    "Date,A,B\n2000-01-03,10,\n2000-01-04,11.5,7\n2000-01-05,12,\n2000-01-06,,8.25\n";

struct TwoIssues : testing::Test, QuotelineWorld {
  TwoIssues() { Import("w.csv", kTwoIssues); }
};

TEST_F(TwoIssues, AnswersByTheConventionsOfItsCallers) {
  ASSERT_EQ(QLopen(), 0);
  EXPECT_EQ(QLgetMaxDays(), 4);
  EXPECT_EQ(QLgetMaxNumDays(), 4);
  EXPECT_EQ(QLgetJulian(1), 36528);  // 3 January 2000
  EXPECT_EQ(QLgetJulian(4), 36531);
  EXPECT_EQ(QLgetJulian(0), QL_OUT_OF_BOUNDS);
  EXPECT_EQ(QLgetJulian(5), QL_OUT_OF_BOUNDS);
  EXPECT_EQ(QLgetMarketDay(36530), 3);
  EXPECT_EQ(QLgetMarketDay(36532), QL_OUT_OF_BOUNDS);
  EXPECT_EQ(QLisQLIssue("a"), -1);
  EXPECT_EQ(QLisQLIssue("B    "), -1);
  EXPECT_EQ(QLisQLIssue("C"), 0);
  EXPECT_EQ(QLisQLIssue("TOOLONG"), 0);
  EXPECT_EQ(QLgetStartDateBySym("B"), 2);
  EXPECT_EQ(QLgetMaxDaysBySym("A"), 3);
  EXPECT_EQ(QLgetStartDateBySym("C"), 0);
  EXPECT_EQ(QLgetNumSyms(), 2);
  EXPECT_EQ(IterateSymbols(), (std::vector<std::string>{"A", "B"}));
}

TEST_F(TwoIssues, WritesATextAndOneZeroByteAndLeavesTheRestOfTheBuffer) {
  Import("ab.csv", "Date,Close\n2000-01-03,1\n", Named("Zürich Fund"));
  ASSERT_EQ(QLopen(), 0);
  std::string name(static_cast<std::size_t>(QLgetNameSize()), ' ');
  ASSERT_EQ(QLgetIssueName("ab", name.data()), 0);
  EXPECT_EQ(name.substr(0, 14), std::string("Z\xFCrich Fund\0  ", 14));
  EXPECT_EQ(name.substr(12).find_first_not_of(' '), std::string::npos);
  std::string path(static_cast<std::size_t>(QLgetPathSize()), ' ');
  ASSERT_EQ(QLgetQLDir(path.data()), 0);
  EXPECT_EQ(path.substr(0, path.find_last_not_of(' ')), folder.Path());
  EXPECT_EQ(path[path.find_last_not_of(' ')], '\0');
}

TEST_F(TwoIssues, FillsAHistoryFromItsFirstDayToTheEndOfTheCalendar) {
  ASSERT_EQ(QLopen(), 0);
  EXPECT_EQ(FetchPrices("A"), (Floats{10, 11.5F, 12, 12}));
  EXPECT_EQ(FetchPrices("B"), (Floats{-1, 7, 7, 8.25F}));
  std::vector<float> buffer(5, -1.0F);
  EXPECT_EQ(QLgetIssue("C", buffer.data()), QL_NO_SUCH_ISSUE);
  EXPECT_EQ(buffer, Floats(5, -1.0F));
}

TEST_F(TwoIssues, IsHarmlessWhileItIsClosed) {
  std::string buffer(300, ' ');
  float price = 5.0F;
  EXPECT_EQ(QLclose(), 0);
  for (const std::int32_t status : {QLgetMaxDays(),
                                    QLgetMaxNumDays(),
                                    QLgetJulian(1),
                                    QLgetNumSyms(),
                                    QLgetIssueIter(),
                                    QLgetIssueName("A", buffer.data()),
                                    QLgetIssue("A", &price),
                                    QLgetQLDir(buffer.data()),
                                    QLgetStartDateBySym("A")}) {
    EXPECT_LT(status, 0);
  }
  EXPECT_EQ(QLisQLIssue("A"), 0);
  EXPECT_EQ(QLissueNext(1, buffer.data()), 0);
  EXPECT_LT(QLcloseIssueIter(77), 0);
  EXPECT_EQ(price, 5.0F);
}

struct Damage {
  const char* sql;
  std::int32_t open_status;
  std::int32_t rebuild_status;
};

TEST(QuotelineDamage, IsReportedWhenOpeningAndRepairedWhereItCanBe) {
  for (const Damage& damage : {
           Damage{"PRAGMA application_id = 7", QL_DATABASE_CORRUPT, QL_DATABASE_CORRUPT},
           Damage{"PRAGMA user_version = 3", QL_DATABASE_CORRUPT, QL_DATABASE_CORRUPT},
           Damage{"DROP TABLE service; DROP TABLE service_copy",
                  QL_DATABASE_CORRUPT,
                  QL_DATABASE_CORRUPT},
           Damage{"UPDATE service SET calendar = zeroblob(16)", 0, 0},  // held twice
           Damage{"UPDATE service_copy SET stamp = 99", 0, 0},
           Damage{"UPDATE service SET stamp = 99; UPDATE service_copy SET stamp = 99",
                  QL_DATABASE_CORRUPT,
                  QL_DATABASE_CORRUPT},
           Damage{"DROP TABLE symbols", QL_BAD_SYMBOLS, 0},
           Damage{"DELETE FROM symbols", QL_BAD_SYMBOLS, 0},
           Damage{"UPDATE symbols SET entries = x'FFFFFFFF'", QL_BAD_SYMBOLS, 0},
           Damage{"UPDATE symbols SET stamp = 99", QL_SYMBOLS_MISMATCH, 0},
       }) {
    SCOPED_TRACE(damage.sql);
    QuotelineWorld world;
    world.Import("w.csv", kTwoIssues);
    world.Tamper(damage.sql);
    EXPECT_EQ(QLopen(), damage.open_status);
    EXPECT_EQ(QLgetMaxDays() < 0, damage.open_status != 0) << "closed";
    EXPECT_EQ(QLrebuildSymbols(), damage.rebuild_status);
    if (damage.rebuild_status != 0) continue;
    EXPECT_EQ(FetchPrices("B"), (Floats{-1, 7, 7, 8.25F}));
    EXPECT_EQ(QLopen(), 0);
  }
}

TEST_F(TwoIssues, AFileThatIsNoDatabaseIsReported) {
  const auto opened = [](std::int32_t status) {
    EXPECT_EQ(QLopen(), status);
    EXPECT_LT(QLgetMaxDays(), 0);  // closed
    EXPECT_EQ(QLrebuildSymbols(), status);
  };
  const std::string path = folder.Path("quoteline.db");
  std::filesystem::resize_file(path, std::filesystem::file_size(path) - 65'536);
  opened(QL_DATABASE_CORRUPT);
  for (const std::size_t length : {0U, 100'000U}) {
    folder.Write("quoteline.db", std::string(length, 'x'));
    opened(QL_DATABASE_CORRUPT);
  }
  ::unlink(path.c_str());
  opened(QL_NO_DATABASE);
  folder.MakeFolder("quoteline.db");
  opened(QL_NO_DATABASE);
}

TEST_F(TwoIssues, RefusesADamagedHistoryAloneAndMarksItsDays) {
  Tamper("UPDATE histories SET prices = x'000020410000384100004840' WHERE issue = 1");
  ASSERT_EQ(QLopen(), 0);
  std::vector<float> buffer(5, 3.0F);
  // 10, 11.5, 12.5 in place of 10, 11.5, 12.
  EXPECT_EQ(QLgetIssue("A", buffer.data()), QL_ISSUE_CORRUPT);
  EXPECT_EQ(buffer, (Floats{3, -1, -1, -1, -1}));
  EXPECT_EQ(FetchPrices("B"), (Floats{-1, 7, 7, 8.25F}));
}

TEST_F(TwoIssues, KeepsItsStateUntilTheCalendarIsAskedForAnew) {
  ASSERT_EQ(QLopen(), 0);
  ASSERT_EQ(QLgetMaxDays(), 4);
  // A day in front renumbers every issue while the service is open.
  ASSERT_TRUE(Import("C.csv", "Date,Close\n1999-12-31,5\n2000-01-07,6\n").faults.empty());
  EXPECT_EQ(QLgetMaxNumDays(), 4);
  EXPECT_EQ(QLisQLIssue("C"), 0);
  EXPECT_EQ(FetchPrices("A"), (Floats{10, 11.5F, 12, 12}));
  EXPECT_EQ(QLgetMaxDays(), 6);
  EXPECT_EQ(QLgetStartDateBySym("A"), 2);
  EXPECT_EQ(FetchPrices("A"), (Floats{-1, 10, 11.5F, 12, 12, 12}));
  EXPECT_EQ(FetchPrices("C"), (Floats{5, 5, 5, 5, 5, 6}));
}

TEST_F(TwoIssues, FollowsADatabaseThatWasPutInItsPlace) {
  QuotelineWorld other;
  other.Import("N.csv", "Date,Close\n2001-02-05,3\n");
  QLsetDirectory(folder.Path().c_str());
  ASSERT_EQ(QLopen(), 0);
  std::filesystem::rename(other.folder.Path("quoteline.db"), folder.Path("quoteline.db"));
  EXPECT_EQ(QLgetMaxDays(), 1);
  EXPECT_EQ(IterateSymbols(), std::vector<std::string>{"N"});
}

TEST_F(TwoIssues, TakesTheDirectoryFromTheEnvironmentWhenNobodyNamesOne) {
  QLsetDirectory(nullptr);
  ::setenv("QUOTELINE_DIR", folder.Path().c_str(), 1);
  EXPECT_EQ(QLopen(), 0);
  EXPECT_EQ(QLgetMaxDays(), 4);
  ::unsetenv("QUOTELINE_DIR");
}

std::string Fnu(const std::string& symbol, const std::string& lines) {
  return symbol + "\r\nA series\r\n" + lines;
}

TEST_F(TwoIssues, SeriesLieOnMarketDaysWithAnyValues) {
  // 2 January 2000 is no market day; nothing is said of 5 January.
  folder.Write(
      "some.fnu",
      Fnu("f_adv", "\"01/02/2000\",9,0\r\n\"01/04/2000\",-2.5,0\r\n\"01/06/2000\",0,0\r\n"));
  ASSERT_EQ(QLopen(), 0);
  EXPECT_EQ(IterateSymbols(), (std::vector<std::string>{"A", "B", "F_ADV"}));
  EXPECT_EQ(QLgetStartDateBySym("F_adv"), 2);
  EXPECT_EQ(FetchPrices("f_adv"), (Floats{-1, -2.5F, -2.5F, 0}));
  EXPECT_EQ(TextOut(QLgetNameSize(), [](char* name) { QLgetIssueName("F_ADV", name); }),
            "A series");
}

TEST_F(TwoIssues, ChangedAddedAndRemovedFilesShowAtOnce) {
  folder.Write("S.FNU", Fnu("S", "\"01/04/2000\",1,0\r\n"));
  ASSERT_EQ(QLopen(), 0);
  EXPECT_EQ(FetchPrices("S"), (Floats{-1, 1, 1, 1}));
  folder.Write("S.FNU", Fnu("S", "\"01/04/2000\",2,0\r\n"));  // of the same size
  EXPECT_EQ(FetchPrices("S"), (Floats{-1, 2, 2, 2}));
  folder.Write("T.fnu", Fnu("T", "\"01/03/2000\",3,0\r\n"));
  EXPECT_EQ(QLisQLIssue("T"), -1);
  ::unlink(folder.Path("S.FNU").c_str());
  EXPECT_EQ(IterateSymbols(), (std::vector<std::string>{"A", "B", "T"}));
  EXPECT_TRUE(FetchPrices("S").empty());
}

TEST_F(TwoIssues, ADatabaseSymbolWinsAndABrokenFileIsLeftOut) {
  folder.Write("a.fnu", Fnu("A", "\"01/04/2000\",1,0\r\n"));
  folder.Write("broken.fnu", Fnu("X", "\"01/04/2000\",1,0\r\n\"01/0"));
  folder.Write("off.fnu", Fnu("Y", "\"01/04/2011\",1,0\r\n"));
  ASSERT_EQ(QLopen(), 0);
  EXPECT_EQ(IterateSymbols(), (std::vector<std::string>{"A", "B"}));
  EXPECT_EQ(FetchPrices("A"), (Floats{10, 11.5F, 12, 12}));
}

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
}  // namespace vistaplot::test
