// The service's library, and the lists that it fills.
#include "marketdata/service.h"

#include <gtest/gtest.h>

#include "formats/family_file.h"
#include "marketdata/issue_lists.h"
#include "marketdata/market_calendar.h"
#include "support/fake_quoteline.h"
#include "support/recording_dialogs.h"
#include "support/temporary_folder.h"

namespace vistaplot::test {
namespace {

using Texts = std::vector<std::string>;

TEST(Service, OpensRebuildsOnceOrEnds) {
  struct Case {
    std::int32_t open, rebuild;
    bool opened;
    int rebuilds;
    Texts messages;
  };
  const std::string unable = "Unable to open Quoteline DLL\r";
  for (const Case& c :
       {Case{0, 0, true, 0, {}},
        Case{3, 0, true, 0, {}},
        Case{-4, 0, true, 1, {}},
        Case{-4, -7, false, 1, {unable + "symbols file-database mismatch\r(error -7)"}},
        Case{-1, 0, false, 0, {unable + "unable to open database file\r(error -1)"}}}) {
    FakeQuoteline api;
    api.open_status = c.open;
    api.rebuild_status = c.rebuild;
    MarketData market;
    RecordingDialogs dialogs;
    EXPECT_EQ(OpenQuoteline(api, market, dialogs), c.opened) << c.open;
    EXPECT_EQ(api.rebuilds, c.rebuilds) << c.open;
    EXPECT_EQ(dialogs.Texts(), c.messages);
    EXPECT_EQ(dialogs.ended_fatally, !c.opened);
  }
}

struct ServiceWorld {
  FakeQuoteline api;
  MarketData market;
  RecordingDialogs dialogs;
};

TEST(Service, DirectoryLosesItsTerminatorAndIsEmptyAfterAFailure) {
  ServiceWorld world;
  ReadQuotelineDir(world.api, world.market, world.dialogs);
  EXPECT_EQ(world.market.QuotelineDir, "C:\\QL");
  EXPECT_TRUE(world.dialogs.messages.empty());
  world.api.directory_status = -3;
  ReadQuotelineDir(world.api, world.market, world.dialogs);
  EXPECT_EQ(world.market.QuotelineDir, "");
  EXPECT_EQ(world.dialogs.Texts(),
            Texts{"Unable to get Quoteline directory\rbad INI file\r(error -3)"});
}

TEST(Service, CalendarTakesDatesAndReportsWhatFails) {
  ServiceWorld world;
  const auto load = [&world] { LoadMarketCalendar(world.api, world.market, world.dialogs); };
  world.api.dates = {33000, -8, 33003};
  load();
  EXPECT_EQ(world.market.calendar.MaxDays, 3);
  EXPECT_EQ(world.market.calendar.DayDates, (std::vector<DateSerial>{0, 33000, -8, 33003}));
  world.api.max_days_status = -2;
  load();
  EXPECT_EQ(world.market.calendar.MaxDays, 0);
  world.api.max_days_status = 0;
  world.api.SetDays(1, 32768);
  load();
  EXPECT_EQ(world.dialogs.Texts(),
            (Texts{"Unable to get Julian day 2\rindex out of bounds\r(error -8)",
                   "Unable to get max days\rdatabase file corrupt\r(error -2)",
                   "error: 6 Overflow",     // of the calendar's days
                   "error: 6 Overflow"}));  // and of those with prices
}

TEST(Service, HistoryOfAnUnknownIssueWarnsTwiceAndHasNoPrice) {
  auto [api, market, dialogs] = ServiceWorld();
  api.SetDays(33000, 3);
  api.AddIssue("OLD", {5.0F, 6.0F}, 2);
  PrepareHistories(api, market, dialogs);
  EXPECT_EQ(FetchHistoryOrReport(api, market, "OLD  ", market.PriceBuffer, dialogs), 2);
  EXPECT_EQ(market.PriceBuffer, (std::vector<float>{-1, -1, 5, 6}));
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_EQ(FetchHistoryOrReport(api, market, "NEW", market.PriceBuffer, dialogs), 1);
  EXPECT_EQ(market.PriceBuffer, (std::vector<float>{-1, -1, -1, -1}));
  EXPECT_EQ(dialogs.Texts(),
            (Texts{"Unable to get prices for NEW\rno such issue\r(error -5)",
                   "Unable to get start date for NEW\rusing 1"}));
}

TEST(Status, ReportIsThreePartsUnderTheTitleErrorAndOnlyFatalFailuresEndTheProgram) {
  RecordingDialogs dialogs;
  for (const int status : {0, 7}) ReportQuotelineError(status, "x", true, dialogs);
  EXPECT_TRUE(dialogs.messages.empty() && !dialogs.ended);
  for (const int status : {-5, -42, -999}) {
    ReportQuotelineError(status, "No prices for ABC", false, dialogs);
  }
  EXPECT_EQ(dialogs.Texts(),
            (Texts{"No prices for ABC\rno such issue\r(error -5)",
                   "No prices for ABC\r\r(error -42)",
                   "No prices for ABC\rsystem failure\r(error -999)"}));
  EXPECT_EQ(dialogs.messages[0].title, "Error");
  EXPECT_FALSE(dialogs.ended);
  ReportQuotelineError(-1, "x", true, dialogs);
  EXPECT_TRUE(dialogs.ended_fatally);
}

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

std::string FamilyBytes(const std::string& title) {
  return FamilyFileBytes({"X", title, 0, ""}, {}).Value();
}

TEST(ListFamilies, OneEntryAFileFolderAfterFolder) {
  const TemporaryFolder ql;
  ql.Write("QLDEF/dow15.fam", FamilyBytes("Stocks of the Dow"));
  ql.Write("QLDEF/Bonds.FAM", FamilyBytes("Bonds"));
  ql.Write("QLDEF/readme.txt", "no family");
  ql.MakeFolder("QL4WIN/SQLDEF");
  ql.Write("USERDEF/LONGERTHAN8.FAM", "LONGER");  // cut within its name
  RecordingDialogs dialogs;
  SilentProgress progress;
  const auto entries = ListFamilies(ql.Path(), {ql.Path(), {}, {}}, dialogs, progress);
  ASSERT_TRUE(entries.has_value());
  EXPECT_EQ(*entries,
            (std::vector<std::string>{"BONDS    Bonds" + std::string(67, ' '),
                                      "DOW15    Stocks of the Dow" + std::string(55, ' '),
                                      "LONGERTH " + std::string(72, ' ')}));
  EXPECT_EQ(FamilyNameOfEntry(entries->at(1)), "DOW15");
  EXPECT_EQ(progress.actions,
            (std::vector<std::string>{"Loading Quoteline Families...",
                                      "Loading Quoteline Stock Families...",
                                      "Loading User Defined Families..."}));
  EXPECT_EQ(progress.percents, (std::vector<double>{0, 0, 100, 0, 0, 100}));
  EXPECT_FALSE(progress.action_shown || progress.meter_shown);
}

TEST(ListFamilies, AFolderThatIsMissingEndsTheProgram) {
  const TemporaryFolder ql;
  ql.MakeFolder("QLDEF");
  RecordingDialogs dialogs;
  SilentProgress progress;
  EXPECT_FALSE(ListFamilies(ql.Path(), {ql.Path(), {}, {}}, dialogs, progress).has_value());
  EXPECT_EQ(dialogs.Texts(),
            std::vector<std::string>{
                "Please check that you have the following family folder: \\ql\\ql4win\\sqldef"});
  EXPECT_TRUE(dialogs.ended_fatally);
  EXPECT_FALSE(progress.action_shown);
}

TEST(ListAllIssues, SymbolInSixCharactersThenTheName) {
  FakeQuoteline api;
  api.AddIssue("SP500", {});
  api.AddIssue("C", {});
  api.issues["C"].name = "Soci\xE9t\xE9 " + std::string(40, 'x');
  MarketData market;
  SilentProgress progress;
  EXPECT_EQ(
      ListAllIssues(api, market, progress),
      (std::vector<std::string>{"C     Société " + std::string(32, 'x'), "SP500 Name of SP500"}));
  EXPECT_EQ(api.open_iterators, 0);
  EXPECT_EQ(SymbolOfEntry("C     Société"), "C");
}

TEST(FindInList, TypingMovesToTheFirstFit) {
  const std::vector<std::string> entries{"~BEAR", "APPLE", "Bell", "BELT", "Delta", "GAMMA"};
  struct Case {
    const char* key;
    int current;
    int found;  // -1: the selection stays
  };
  for (const Case& c :
       {Case{"", 3, 0},
        Case{"be", 1, 2},      // downwards: first whose beginning is the key
        Case{" belt ", 2, 3},  // trimmed
        Case{"C", 1, 3},       // none: the one before the first above
        Case{"B", 5, 3},       // upwards: the first met from below
        Case{"C", 5, 4},       // none: the one after the first below
        Case{"A", 5, 1},
        Case{"AB", 3, -1},  // "~BEAR" is ordered as "ABEAR": not equal, not below
        Case{"AC", 3, 1},   // it is below this one
        Case{"be", 0, 2},   // "~" itself sorts above letters: upwards, then the whole list
        Case{"Z", 1, -1},   // nothing lies above
        Case{"D", -1, 4}}) {
    EXPECT_EQ(FindTyped(entries, c.current, c.key).value_or(-1), c.found)
        << c.key << " from " << c.current;
  }
  EXPECT_EQ(FindInList(entries, 0, "A", 1).value_or(-1), 1);
  EXPECT_EQ(FindInList({}, -1, "", 1).value_or(-1), -1);
  const std::vector<std::string> unsorted{"MIKE", "ZULU", "KILO", "ALPHA"};
  EXPECT_EQ(FindInList(unsorted, 0, "k", 1).value_or(-1), 2);  // "MIKE" stops the scan at once
  EXPECT_EQ(FindInList(unsorted, 3, "m", 0).value_or(-1), 0);
  EXPECT_EQ(FindInList(unsorted, 0, "l", 1).value_or(-1), 0);
}

TEST(ChooseFamilyFile, AsksAgainUntilAFileOrGivingUp) {
  RecordingDialogs dialogs;
  dialogs.open_answers = {{}, {"C:\\QL\\USERDEF\\A.FAM"}};
  dialogs.answers = {Answer::kCancel};
  EXPECT_EQ(ChooseFamilyFile("C:\\QL", dialogs), "C:\\QL\\USERDEF\\A.FAM");
  EXPECT_EQ(dialogs.open_requests[0].initial_folder, "C:\\QL/USERDEF");
  EXPECT_EQ(dialogs.Texts(),
            std::vector<std::string>{
                "No file selected, press OK to continue. Press cancel to select a file"});
  EXPECT_EQ(ChooseFamilyFile("C:\\QL", dialogs), "");
}

TEST(FamilyFiles, AMissingOrShortFileIsAnErrorThatNamesIt) {
  const TemporaryFolder folder;
  EXPECT_EQ(ReadFamilyFile(folder.Path("NONE.FAM")).Error().number, 53);
  const auto cut = ReadFamilyFile(folder.Write("CUT.FAM", std::string(115, ' ')));
  EXPECT_EQ(cut.Error().number, 62);
  EXPECT_EQ(cut.Error().subject, folder.Path("CUT.FAM"));
}

TEST(FamilyFiles, AreSoughtInThreeFoldersInOrder) {
  const TemporaryFolder ql;
  const PathRoots roots{ql.Path(), {}, {}};
  EXPECT_EQ(FindFamilyFile("DOW", ql.Path(), roots), "");
  ql.Write("QL4WIN/SQLDEF/DOW.FAM", "");
  EXPECT_EQ(FindFamilyFile("DOW", ql.Path(), roots), ql.Path("QL4WIN/SQLDEF/DOW.FAM"));
  ql.Write("USERDEF/dow.fam", "");
  EXPECT_EQ(FindFamilyFile("DOW", ql.Path(), roots), ql.Path("USERDEF/DOW.FAM"));
  ql.Write("QLDEF/DOW.FAM", "");
  EXPECT_EQ(FindFamilyFile("DOW", "c:\\ql", roots), "c:\\ql/QLDEF/DOW.FAM");
}

}  // namespace
}  // namespace vistaplot::test
