#include <gtest/gtest.h>

#include "marketdata/service.h"
#include "support/recording_dialogs.h"

namespace vistaplot {
namespace {

TEST(Status, ReportIsThreePartsUnderTheTitleError) {
  struct Case {
    std::int32_t status;
    const char* text;
  };
  for (const Case& c : {Case{-5, "Unable to get prices for ABC\rno such issue\r(error -5)"},
                        Case{-42, "Unable to get prices for ABC\r\r(error -42)"},
                        Case{-999, "Unable to get prices for ABC\rsystem failure\r(error -999)"}}) {
    test::RecordingDialogs dialogs;
    ReportQuotelineError(c.status, "Unable to get prices for ABC", false, dialogs);
    ASSERT_EQ(dialogs.messages.size(), 1U);
    EXPECT_EQ(dialogs.messages[0].text, c.text);
    EXPECT_EQ(dialogs.messages[0].title, "Error");
    EXPECT_FALSE(dialogs.ended);
  }
}

TEST(Status, OnlyFailuresAreReportedAndOnlyFatalOnesEndTheProgram) {
  test::RecordingDialogs dialogs;
  ReportQuotelineError(0, "x", true, dialogs);
  ReportQuotelineError(7, "x", true, dialogs);
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_FALSE(dialogs.ended);
  ReportQuotelineError(-1, "x", true, dialogs);
  EXPECT_TRUE(dialogs.ended_fatally);
}

}  // namespace
}  // namespace vistaplot
