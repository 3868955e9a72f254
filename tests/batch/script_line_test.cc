#include "batch/script_line.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace vistaplot {
namespace {

using Words = std::vector<std::string>;

TEST(ScriptLine, SplitsAtBlanksOutsideQuotes) {
  const std::vector<std::pair<std::string, Words>> cases = {
      {"", {}},
      {"   ", {}},
      {"# set a b", {}},
      {"  # set a b", {}},
      {"set frmTab.txtDays(0) 50\r", {"set", "frmTab.txtDays(0)", "50"}},
      {"\tanswer   open\ta.SUM  b.SUM ", {"answer", "open", "a.SUM", "b.SUM"}},
      {R"(answer text "two words")", {"answer", "text", "two words"}},
      {R"(answer text "say ""hi""")", {"answer", "text", "say \"hi\""}},
      {R"(set a.b "")", {"set", "a.b", ""}},
      {R"(set a.b """")", {"set", "a.b", "\""}},
      {R"(set a.b 5")", {"set", "a.b", "5\""}},
      {R"(set a.b C:\QL\#1)", {"set", "a.b", "C:\\QL\\#1"}},
      {R"(select a.b "=My Fam" ="My Fam")", {"select", "a.b", "=My Fam", "=My Fam"}},
  };
  for (const auto& [line, words] : cases) EXPECT_EQ(SplitScriptLine(line), words) << line;
}

TEST(ScriptLine, BadQuotesAreRefused) {
  for (const char* line : {"set a.b \"open", "set a.b \"", "set a.b \"x\"y", "set a.b \"x\"\""}) {
    EXPECT_THROW(SplitScriptLine(line), ScriptError) << line;
  }
}

TEST(ScriptLine, CloseNamesAreProposed) {
  const Words names = {"cmdLoadData", "cmdFileName", "txtIndex"};
  EXPECT_EQ(DidYouMean("cmdLoaddate", names), " (did you mean cmdLoadData?)");
  EXPECT_EQ(DidYouMean("cmd", names), " (did you mean cmdLoadData, cmdFileName?)");
  EXPECT_EQ(DidYouMean("lstFunds", names), "");
  EXPECT_EQ(DidYouMean("", names), "");
}

}  // namespace
}  // namespace vistaplot
