#include "batch/script_dialogs.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "batch/script_line.h"

namespace vistaplot {
namespace {

struct Asked {
  AnswerQueue answers;
  std::ostringstream out;
  ScriptDialogs dialogs{answers, out};

  void Queue(const std::string& line) {
    const std::vector<std::string> words = SplitScriptLine(line);
    answers.Add(AnswerFromWords(ScriptWords(words).subspan(1)));
  }
  std::string Report() {
    std::string text = out.str();
    out.str("");
    return text;
  }
};

FileRequest Files(const std::string& title, bool multiple = false) {
  FileRequest request;
  request.title = title;
  request.multiple = multiple;
  return request;
}

MessageRequest Box(Buttons buttons) {
  return {.text = "line 1\rline 2", .title = "Error", .buttons = buttons, .icon = Icon::kNone};
}

TEST(ScriptDialogs, WithoutAnswersTheDefaultsHold) {
  Asked asked;
  EXPECT_EQ(asked.dialogs.ShowMessage(Box(Buttons::kOk)), Answer::kOk);
  EXPECT_EQ(asked.Report(),
            R"({"message": {"title": "Error", "text": "line 1\rline 2", "buttons": "ok", )"
            R"("answer": "ok"}})"
            "\n");
  EXPECT_EQ(asked.dialogs.ShowMessage(Box(Buttons::kOkCancel)), Answer::kOk);
  EXPECT_EQ(asked.dialogs.ShowMessage(Box(Buttons::kYesNoCancel)), Answer::kNo);
  EXPECT_EQ(asked.dialogs.AskText({.prompt = "P", .title = "T", .proposed = "A.SUM"}), "A.SUM");
  asked.Report();
  EXPECT_FALSE(asked.dialogs.ChooseFileToSave(Files("Save")));
  EXPECT_EQ(asked.Report(),
            "{\"save\": {\"title\": \"Save\", \"filter\": \"\", \"answer\": null}}\n");
  EXPECT_TRUE(asked.dialogs.ChooseFilesToOpen(Files("Open")).empty());
}

TEST(ScriptDialogs, TheHeadIsTakenWhenItsKindFits) {
  Asked asked;
  asked.Queue("answer yes");
  asked.Queue("answer open a b");
  asked.Queue("answer cancel");
  asked.Queue("answer text \"new name\"");
  EXPECT_EQ(asked.dialogs.ShowMessage(Box(Buttons::kOk)), Answer::kOk) << "yes does not fit";
  EXPECT_EQ(asked.dialogs.ShowMessage(Box(Buttons::kYesNoCancel)), Answer::kYes);
  EXPECT_EQ(asked.dialogs.ShowMessage(Box(Buttons::kYesNoCancel)), Answer::kNo);
  asked.Report();
  const std::vector<std::string> files{"a", "b"};
  EXPECT_EQ(asked.dialogs.ChooseFilesToOpen(Files("O", true)), files);
  EXPECT_EQ(asked.Report(),
            "{\"open\": {\"title\": \"O\", \"filter\": \"\", \"answer\": [\"a\", \"b\"]}}\n");
  EXPECT_FALSE(asked.dialogs.AskText({.prompt = "P", .title = {}, .proposed = "x"}));
  EXPECT_THROW(asked.answers.RequireEmpty(), ScriptError);
  asked.Report();
  EXPECT_EQ(asked.dialogs.AskText({.prompt = "P", .title = {}, .proposed = "x"}), "new name");
  EXPECT_EQ(asked.Report(),
            "{\"input\": {\"title\": \"\", \"text\": \"P\", \"proposed\": \"x\", "
            "\"answer\": \"new name\"}}\n");
  EXPECT_NO_THROW(asked.answers.RequireEmpty());
}

TEST(ScriptDialogs, AnswersThatNoBoxGivesAreRefused) {
  for (const char* line : {"answer",
                           "answer maybe",
                           "answer ok now",
                           "answer text",
                           "answer text a b",
                           "answer open"}) {
    const std::vector<std::string> words = SplitScriptLine(line);
    EXPECT_THROW(AnswerFromWords(ScriptWords(words).subspan(1)), ScriptError) << line;
  }
  Asked asked;
  asked.Queue("answer open a b");
  EXPECT_THROW(asked.dialogs.ChooseFilesToOpen(Files("One")), ScriptError);
}

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
