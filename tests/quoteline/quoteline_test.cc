#include "quoteline/quoteline.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "base/date.h"
#include "support/quoteline_world.h"

namespace vistaplot {
namespace {

using test::FetchPrices;
using test::IterateSymbols;
using test::QuotelineWorld;
using test::TextOut;
using Prices = std::vector<float>;

// A has days 1 to 3 of four, B days 2 and 4.
constexpr const char* kTwoIssues =
    "Date,A,B\n2000-01-03,10,\n2000-01-04,11.5,7\n2000-01-05,12,\n2000-01-06,,8.25\n";

TEST(Quoteline, AnswersByTheConventionsOfItsCallers) {
  QuotelineWorld world;
  world.Import("w.csv", kTwoIssues);
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

TEST(Quoteline, WritesATextAndOneZeroByteAndLeavesTheRestOfTheBuffer) {
  QuotelineWorld world;
  world.Import("ab.csv", "Date,Close\n2000-01-03,1\n", test::Named("Zürich Fund"));
  ASSERT_EQ(QLopen(), 0);
  std::string name(static_cast<std::size_t>(QLgetNameSize()), ' ');
  ASSERT_EQ(QLgetIssueName("ab", name.data()), 0);
  EXPECT_EQ(name.substr(0, 14), std::string("Z\xFCrich Fund\0  ", 14));
  EXPECT_EQ(name.substr(12).find_first_not_of(' '), std::string::npos);
  std::string path(static_cast<std::size_t>(QLgetPathSize()), ' ');
  ASSERT_EQ(QLgetQLDir(path.data()), 0);
  EXPECT_EQ(path.substr(0, path.find_last_not_of(' ')), world.folder.Path());
  EXPECT_EQ(path[path.find_last_not_of(' ')], '\0');
}

TEST(Quoteline, FillsAHistoryFromItsFirstDayToTheEndOfTheCalendar) {
  QuotelineWorld world;
  world.Import("w.csv", kTwoIssues);
  ASSERT_EQ(QLopen(), 0);
  EXPECT_EQ(FetchPrices("A"), (Prices{10, 11.5F, 12, 12}));
  EXPECT_EQ(FetchPrices("B"), (Prices{-1, 7, 7, 8.25F}));
  std::vector<float> buffer(5, -1.0F);
  EXPECT_EQ(QLgetIssue("C", buffer.data()), QL_NO_SUCH_ISSUE);
  EXPECT_EQ(buffer, Prices(5, -1.0F));
}

TEST(Quoteline, IsHarmlessWhileItIsClosed) {
  QuotelineWorld world;
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
  const char* what;
  std::function<void(const QuotelineWorld&)> inflict;
  std::int32_t open_status;
  std::int32_t rebuild_status;
};

void PrintTo(const Damage& damage, std::ostream* out) {
  *out << damage.what;
}

const Damage kDamages[] = {
    {"no database",
     [](const QuotelineWorld& w) { ::unlink(w.folder.Path("quoteline.db").c_str()); },
     QL_NO_DATABASE,
     QL_NO_DATABASE},
    {"a folder in its place",
     [](const QuotelineWorld& w) {
       ::unlink(w.folder.Path("quoteline.db").c_str());
       w.folder.MakeFolder("quoteline.db");
     },
     QL_NO_DATABASE,
     QL_NO_DATABASE},
    {"an empty file",
     [](const QuotelineWorld& w) { w.folder.Write("quoteline.db", ""); },
     QL_DATABASE_CORRUPT,
     QL_DATABASE_CORRUPT},
    {"no SQLite file",
     [](const QuotelineWorld& w) { w.folder.Write("quoteline.db", std::string(100'000, 'x')); },
     QL_DATABASE_CORRUPT,
     QL_DATABASE_CORRUPT},
    {"an SQLite file of something else",
     [](const QuotelineWorld& w) { w.Tamper("PRAGMA application_id = 7"); },
     QL_DATABASE_CORRUPT,
     QL_DATABASE_CORRUPT},
    {"a file of a later version",
     [](const QuotelineWorld& w) { w.Tamper("PRAGMA user_version = 3"); },
     QL_DATABASE_CORRUPT,
     QL_DATABASE_CORRUPT},
    {"a file cut short",
     [](const QuotelineWorld& w) {
       const std::string path = w.folder.Path("quoteline.db");
       std::filesystem::resize_file(path, std::filesystem::file_size(path) - 65'536);
     },
     QL_DATABASE_CORRUPT,
     QL_DATABASE_CORRUPT},
    {"no calendar",
     [](const QuotelineWorld& w) { w.Tamper("DROP TABLE service; DROP TABLE service_copy"); },
     QL_DATABASE_CORRUPT,
     QL_DATABASE_CORRUPT},
    {"a calendar that is not ascending",
     [](const QuotelineWorld& w) { w.Tamper("UPDATE service SET calendar = zeroblob(16)"); },
     0,
     0},
    {"a damaged copy of the calendar",
     [](const QuotelineWorld& w) { w.Tamper("UPDATE service_copy SET stamp = 99"); },
     0,
     0},
    {"no whole calendar",
     [](const QuotelineWorld& w) {
       w.Tamper("UPDATE service SET stamp = 99; UPDATE service_copy SET stamp = 99");
     },
     QL_DATABASE_CORRUPT,
     QL_DATABASE_CORRUPT},
    {"no table of symbols",
     [](const QuotelineWorld& w) { w.Tamper("DROP TABLE symbols"); },
     QL_BAD_SYMBOLS,
     0},
    {"an empty table of symbols",
     [](const QuotelineWorld& w) { w.Tamper("DELETE FROM symbols"); },
     QL_BAD_SYMBOLS,
     0},
    {"damaged symbols",
     [](const QuotelineWorld& w) { w.Tamper("UPDATE symbols SET entries = x'FFFFFFFF'"); },
     QL_BAD_SYMBOLS,
     0},
    {"symbols of another state",
     [](const QuotelineWorld& w) { w.Tamper("UPDATE symbols SET stamp = 99"); },
     QL_SYMBOLS_MISMATCH,
     0},
};

class QuotelineDamage : public testing::TestWithParam<Damage> {};

TEST_P(QuotelineDamage, IsReportedWhenOpeningAndRepairedWhereItCanBe) {
  QuotelineWorld world;
  world.Import("w.csv", kTwoIssues);
  GetParam().inflict(world);
  EXPECT_EQ(QLopen(), GetParam().open_status);
  if (GetParam().open_status != 0) {
    EXPECT_LT(QLgetMaxDays(), 0);  // closed
  }
  EXPECT_EQ(QLrebuildSymbols(), GetParam().rebuild_status);
  if (GetParam().rebuild_status != 0) return;
  EXPECT_EQ(FetchPrices("B"), (Prices{-1, 7, 7, 8.25F}));
  EXPECT_EQ(QLopen(), 0);
}

INSTANTIATE_TEST_SUITE_P(All, QuotelineDamage, testing::ValuesIn(kDamages));

TEST(Quoteline, RefusesADamagedHistoryAloneAndMarksItsDays) {
  QuotelineWorld world;
  world.Import("w.csv", kTwoIssues);
  world.Tamper("UPDATE histories SET prices = x'000020410000384100004840' WHERE issue = 1");
  ASSERT_EQ(QLopen(), 0);
  std::vector<float> buffer(5, 3.0F);
  // 10, 11.5, 12.5 in place of 10, 11.5, 12.
  EXPECT_EQ(QLgetIssue("A", buffer.data()), QL_ISSUE_CORRUPT);
  EXPECT_EQ(buffer, (Prices{3, -1, -1, -1, -1}));
  EXPECT_EQ(FetchPrices("B"), (Prices{-1, 7, 7, 8.25F}));
}

TEST(Quoteline, KeepsItsStateUntilTheCalendarIsAskedForAnew) {
  QuotelineWorld world;
  world.Import("w.csv", kTwoIssues);
  ASSERT_EQ(QLopen(), 0);
  ASSERT_EQ(QLgetMaxDays(), 4);
  // A day in front renumbers every issue while the service is open.
  ASSERT_TRUE(world.Import("C.csv", "Date,Close\n1999-12-31,5\n2000-01-07,6\n").faults.empty());
  EXPECT_EQ(QLgetMaxNumDays(), 4);
  EXPECT_EQ(QLisQLIssue("C"), 0);
  EXPECT_EQ(FetchPrices("A"), (Prices{10, 11.5F, 12, 12}));
  EXPECT_EQ(QLgetMaxDays(), 6);
  EXPECT_EQ(QLgetStartDateBySym("A"), 2);
  EXPECT_EQ(FetchPrices("A"), (Prices{-1, 10, 11.5F, 12, 12, 12}));
  EXPECT_EQ(FetchPrices("C"), (Prices{5, 5, 5, 5, 5, 6}));
}

TEST(Quoteline, FollowsADatabaseThatWasPutInItsPlace) {
  QuotelineWorld world;
  world.Import("w.csv", kTwoIssues);
  QuotelineWorld other;
  other.Import("N.csv", "Date,Close\n2001-02-05,3\n");
  QLsetDirectory(world.folder.Path().c_str());
  ASSERT_EQ(QLopen(), 0);
  std::filesystem::rename(other.folder.Path("quoteline.db"), world.folder.Path("quoteline.db"));
  EXPECT_EQ(QLgetMaxDays(), 1);
  EXPECT_EQ(IterateSymbols(), std::vector<std::string>{"N"});
}

TEST(Quoteline, TakesTheDirectoryFromTheEnvironmentWhenNobodyNamesOne) {
  QuotelineWorld world;
  world.Import("w.csv", kTwoIssues);
  QLsetDirectory(nullptr);
  ::setenv("QUOTELINE_DIR", world.folder.Path().c_str(), 1);
  EXPECT_EQ(QLopen(), 0);
  EXPECT_EQ(QLgetMaxDays(), 4);
  ::unsetenv("QUOTELINE_DIR");
}

std::string Fnu(const std::string& symbol, const std::string& lines) {
  return symbol + "\r\nA series\r\n" + lines;
}

TEST(QuotelineFnu, SeriesLieOnMarketDaysWithAnyValues) {
  QuotelineWorld world;
  world.Import("w.csv", kTwoIssues);
  // 2 January 2000 is no market day; nothing is said of 5 January.
  world.folder.Write(
      "some.fnu",
      Fnu("f_adv", "\"01/02/2000\",9,0\r\n\"01/04/2000\",-2.5,0\r\n\"01/06/2000\",0,0\r\n"));
  ASSERT_EQ(QLopen(), 0);
  EXPECT_EQ(IterateSymbols(), (std::vector<std::string>{"A", "B", "F_ADV"}));
  EXPECT_EQ(QLgetStartDateBySym("F_adv"), 2);
  EXPECT_EQ(FetchPrices("f_adv"), (Prices{-1, -2.5F, -2.5F, 0}));
  EXPECT_EQ(TextOut(QLgetNameSize(), [](char* name) { QLgetIssueName("F_ADV", name); }),
            "A series");
}

TEST(QuotelineFnu, ChangedAddedAndRemovedFilesShowAtOnce) {
  QuotelineWorld world;
  world.Import("w.csv", kTwoIssues);
  world.folder.Write("S.FNU", Fnu("S", "\"01/04/2000\",1,0\r\n"));
  ASSERT_EQ(QLopen(), 0);
  EXPECT_EQ(FetchPrices("S"), (Prices{-1, 1, 1, 1}));
  world.folder.Write("S.FNU", Fnu("S", "\"01/04/2000\",2,0\r\n"));  // of the same size
  EXPECT_EQ(FetchPrices("S"), (Prices{-1, 2, 2, 2}));
  world.folder.Write("T.fnu", Fnu("T", "\"01/03/2000\",3,0\r\n"));
  EXPECT_EQ(QLisQLIssue("T"), -1);
  ::unlink(world.folder.Path("S.FNU").c_str());
  EXPECT_EQ(IterateSymbols(), (std::vector<std::string>{"A", "B", "T"}));
  EXPECT_TRUE(FetchPrices("S").empty());
}

TEST(QuotelineFnu, ADatabaseSymbolWinsAndABrokenFileIsLeftOut) {
  QuotelineWorld world;
  world.Import("w.csv", kTwoIssues);
  world.folder.Write("a.fnu", Fnu("A", "\"01/04/2000\",1,0\r\n"));
  world.folder.Write("broken.fnu", Fnu("X", "\"01/04/2000\",1,0\r\n\"01/0"));
  world.folder.Write("off.fnu", Fnu("Y", "\"01/04/2011\",1,0\r\n"));
  ASSERT_EQ(QLopen(), 0);
  EXPECT_EQ(IterateSymbols(), (std::vector<std::string>{"A", "B"}));
  EXPECT_EQ(FetchPrices("A"), (Prices{10, 11.5F, 12, 12}));
}

}  // namespace
}  // namespace vistaplot
