#include "marketdata/service.h"

#include <gtest/gtest.h>

#include "support/fake_quoteline.h"
#include "support/recording_dialogs.h"

namespace vistaplot {
namespace {

TEST(Service, OpensRebuildsOnceOrEnds) {
  struct Case {
    std::int32_t open, rebuild;
    bool opened;
    int rebuilds;
    std::vector<std::string> messages;
  };
  const std::vector<Case> cases{
      {0, 0, true, 0, {}},
      {3, 0, true, 0, {}},
      {-4, 0, true, 1, {}},
      {-4,
       -7,
       false,
       1,
       {"Unable to open Quoteline DLL\rsymbols file-database mismatch\r(error -7)"}},
      {-1,
       0,
       false,
       0,
       {"Unable to open Quoteline DLL\runable to open database file\r(error -1)"}}};
  for (const Case& c : cases) {
    test::FakeQuoteline api;
    api.open_status = c.open;
    api.rebuild_status = c.rebuild;
    MarketData market;
    test::RecordingDialogs dialogs;
    EXPECT_EQ(OpenQuoteline(api, market, dialogs), c.opened) << c.open;
    EXPECT_EQ(api.rebuilds, c.rebuilds) << c.open;
    EXPECT_EQ(dialogs.Texts(), c.messages);
    EXPECT_EQ(dialogs.ended_fatally, !c.opened);
  }
}

TEST(Service, DirectoryLosesItsTerminatorAndIsEmptyAfterAFailure) {
  test::FakeQuoteline api;
  MarketData market;
  test::RecordingDialogs dialogs;
  ReadQuotelineDir(api, market, dialogs);
  EXPECT_EQ(market.QuotelineDir, "C:\\QL");
  EXPECT_TRUE(dialogs.messages.empty());

  api.directory_status = -3;
  ReadQuotelineDir(api, market, dialogs);
  EXPECT_EQ(market.QuotelineDir, "");
  EXPECT_EQ(
      dialogs.Texts(),
      std::vector<std::string>{"Unable to get Quoteline directory\rbad INI file\r(error -3)"});
}

TEST(Service, CalendarTakesDatesAndReportsWhatFails) {
  test::FakeQuoteline api;
  MarketData market;
  test::RecordingDialogs dialogs;
  api.dates = {33000, -8, 33003};
  LoadMarketCalendar(api, market, dialogs);
  EXPECT_EQ(market.calendar.MaxDays, 3);
  EXPECT_EQ(market.calendar.DayDates, (std::vector<DateSerial>{0, 33000, -8, 33003}));
  EXPECT_EQ(
      dialogs.Texts(),
      std::vector<std::string>{"Unable to get Julian day 2\rindex out of bounds\r(error -8)"});

  api.max_days_status = -2;
  LoadMarketCalendar(api, market, dialogs);
  EXPECT_EQ(market.calendar.MaxDays, 0);
  EXPECT_EQ(dialogs.messages.back().text,
            "Unable to get max days\rdatabase file corrupt\r(error -2)");

  api.max_days_status = 0;
  api.SetDays(1, 32768);
  LoadMarketCalendar(api, market, dialogs);
  EXPECT_EQ(dialogs.messages.back().text, "error: 6 Overflow");
}

TEST(Service, HistoryOfAnUnknownIssueWarnsTwiceAndHasNoPrice) {
  test::FakeQuoteline api;
  api.SetDays(33000, 3);
  api.AddIssue("OLD", {5.0F, 6.0F}, 2);
  MarketData market;
  test::RecordingDialogs dialogs;
  PrepareHistories(api, market, dialogs);
  EXPECT_EQ(FetchHistoryOrReport(api, market, "OLD  ", market.PriceBuffer, dialogs), 2);
  EXPECT_EQ(market.PriceBuffer, (std::vector<float>{-1, -1, 5, 6}));
  EXPECT_TRUE(dialogs.messages.empty());

  EXPECT_EQ(FetchHistoryOrReport(api, market, "NEW", market.PriceBuffer, dialogs), 1);
  EXPECT_EQ(market.PriceBuffer, (std::vector<float>{-1, -1, -1, -1}));
  EXPECT_EQ(dialogs.Texts(),
            (std::vector<std::string>{"Unable to get prices for NEW\rno such issue\r(error -5)",
                                      "Unable to get start date for NEW\rusing 1"}));
}

}  // namespace
}  // namespace vistaplot
