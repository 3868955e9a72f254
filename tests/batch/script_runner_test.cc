// Scripts and the answers that they have ready.
#include "batch/script_runner.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "batch/script_commands.h"
#include "batch/script_dialogs.h"
#include "batch/script_line.h"
#include "support/script_screen.h"

namespace vistaplot::test {
namespace {

TEST(ScriptRunner, AModalFormTakesTheLinesUntilItIsClosed) {
  ScriptStage stage;
  stage.frmTest.cmdGo.Click = [&stage] {
    stage.frmTest.log += "before\n";
    stage.frmAsk.ShowModal();
    stage.frmTest.log += "after " + stage.frmAsk.txtAnswer.Text() + "\n";
  };
  EXPECT_EQ(stage.Run("click frmTest.cmdGo\n"
                      "set frmAsk.txtAnswer yes\n"
                      "click frmAsk.cmdOK\n"
                      "set frmTest.chkMem 1\n"),
            0);
  EXPECT_EQ(stage.frmTest.log, "before\nafter yes\nchecked\n");

  EXPECT_EQ(stage.Refusal("click frmTest.cmdGo\nset frmTest.chkMem 0\n"),
            "s:2: frmTest.chkMem cannot be used while frmAsk is open: close it first\n");
  EXPECT_EQ(stage.frmTest.log, "before\n") << "the handler was left where it was";
}

TEST(ScriptRunner, AWordWithoutMeasureIsRefusedInOneShortLine) {
  const std::string word(10'000'000, 'x');
  for (const std::string& line : {word + " a",
                                  "click " + word,
                                  "dump sheet 1 " + word,
                                  "sheet " + word,
                                  "select frmTest.lstMany =\x1B" + word}) {
    ScriptStage stage;
    EXPECT_EQ(stage.Run(line), 1);
    const std::string told = stage.err.str();
    EXPECT_LT(told.size(), 1100U) << line.substr(0, 20);
    EXPECT_EQ(told.find_first_of("\n\x1B"), told.size() - 1);
  }
}

TEST(ScriptRunner, WhatIsLeftOpenOrUnansweredAtTheEndIsAnError) {
  ScriptStage stage;
  stage.frmTest.cmdGo.Click = [&stage] { stage.frmAsk.ShowModal(); };
  EXPECT_EQ(stage.Refusal("click frmTest.cmdGo\nset frmAsk.txtAnswer x\n"),
            "s:2: the script ends while frmAsk is open\n");
  ScriptStage other;
  EXPECT_EQ(other.Refusal("\nanswer open a.SUM b.SUM\nanswer ok\n"),
            "s:2: nothing asked for this answer: open \"a.SUM\", nor for 1 more\n");
  other.answers = {};
  other.frmTest.cmdGo.Click = [] { throw std::runtime_error("no memory"); };
  EXPECT_EQ(other.Refusal("set frmTest.chkMem 1\nclick frmTest.cmdGo\n"),
            "s:2: the program failed: no memory\n");
}

TEST(ScriptRunner, ExitEndsTheRunAndAFatalErrorSaysSo) {
  for (const bool fatal : {false, true}) {
    ScriptStage stage;
    ScriptDialogs dialogs(stage.answers, stage.out);
    stage.frmTest.cmdGo.Click = [&dialogs, fatal] { dialogs.EndProgram(fatal); };
    EXPECT_EQ(stage.Run("click frmTest.cmdGo\nset frmTest.chkMem 1\n"), fatal ? 3 : 0);
    EXPECT_EQ(stage.frmTest.log, "");
    EXPECT_EQ(stage.err.str(), "");
  }
}

TEST(ScriptRunner, GridCommandsReachTheTable) {
  ScriptStage stage;
  stage.table.SetSheetCount(2);
  EXPECT_EQ(stage.Run("sheet 2\ncells 5 3 1 2  1 7 9 7\nrclick 4 0"), 0) << stage.err.str();
  EXPECT_EQ(stage.table.ActiveSheet(), 2);
  const std::vector<CellRange> ranges{{1, 2, 5, 3}, {1, 7, 9, 7}};
  EXPECT_EQ(stage.table.Active().selection, ranges);
  EXPECT_EQ(stage.frmData.clicked, (std::vector<int>{'r', 4, 0}));
  EXPECT_EQ(stage.Run("lclick 1 2"), 0);
  EXPECT_EQ(stage.frmData.clicked, (std::vector<int>{'l', 1, 2}));
  EXPECT_EQ(stage.Refusal("sheet 3"), "s:1: sheet: \"3\" is no whole number from 1 to 2\n");
  EXPECT_EQ(stage.Refusal("cells 1 2 3"), "s:1: say cells R1 C1 R2 C2 ..., four numbers a range\n");
}

TEST(ControlCommands, RaiseWhatTheUserWouldRaise) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"set frmTest.txtName \"a b\"", "Change a b\nLostFocus\n"},
      {"set FRMTEST.TXTNAME \"\"", "LostFocus\n"},
      {"set frmTest.chkMem 1", "checked\n"},
      {"set frmTest.chkMem 0", ""},
      {"set frmTest.cboType 1", "type 1\n"},
      {"set frmTest.cboType scatter", "type 1\n"},
      {"set frmTest.cboType 10", "type 2\n"},
      {"set frmTest.lstOne b", "one 1\n"},
      {"set frmTest.OptSelect Funds", "option 1\n"},
      {"click frmTest.OptSelect(0)", "option 0\n"},
      {"set frmTest.HScroll1 7", "scroll 7\n"},
      {"set frmTest.HScroll1 0", ""},
      {"click frmTest.mnuFileGo", "menu\n"},
      {"select frmTest.lstMany 2 1", "many 1 2\n"},
      {"select frmTest.lstMany =fid", "many 0 2\n"},
      {"select frmTest.lstMany \"=VANG \" 0", "many 0 1\n"},
      {"select frmTest.lstMany all", "many 0 1 2\n"},
      {"select frmTest.lstMany none", "many\n"},
  };
  for (const auto& [line, log] : cases) {
    ScriptStage stage;
    EXPECT_EQ(stage.Run(line), 0) << stage.err.str();
    EXPECT_EQ(stage.frmTest.log, log) << line;
  }
}

TEST(ControlCommands, RefusalsSayWhatIsWrong) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"set txtName 1", "\"txtName\" is no form.control or form.control(index)"},
      {"set frmTset.txtName 1", "there is no screen frmTset (did you mean frmTest?)"},
      {"set frmTest.txtNam 1", "frmTest has no control txtNam (did you mean txtName?)"},
      {"set frmTest.txtDays 1", "frmTest.txtDays is an array: say frmTest.txtDays(0) to (1)"},
      {"set frmTest.txtDays(2) 1", "frmTest.txtDays is an array: say frmTest.txtDays(0) to (1)"},
      {"set frmTest.txtName(0) 1", "frmTest.txtName has no index"},
      {"click frmTest.OptSelect(2)", "frmTest.OptSelect has the options 0 to 1"},
      {"set frmTest.chkMem 2", "frmTest.chkMem: \"2\" is no whole number from 0 to 1"},
      {"set frmTest.HScroll1 11", "frmTest.HScroll1: \"11\" is no whole number from 0 to 10"},
      {"set frmTest.cboType Lime",
       "frmTest.cboType has no entry \"Lime\"; its positions are 0 to 2 (did you mean Line?)"},
      {"set frmTest.lstOne -1", "frmTest.lstOne has no entry \"-1\"; its positions are 0 to 1"},
      {"set frmTest.lstMany 1", "frmTest.lstMany takes several entries: use select"},
      {"set frmTest.cmdGo 1", "frmTest.cmdGo is a Button: it holds no value to set"},
      {"set frmTest.chkMem", "say set NAME VALUE"},
      {"click frmTest.chkMem",
       "frmTest.chkMem is a CheckBox: click takes buttons and menu items; use set or select"},
      {"click frmTest.mnuFile", "frmTest.mnuFile is a menu: click one of its items"},
      {"select frmTest.lstMany =XX", "frmTest.lstMany has no entry that begins with \"XX\""},
      {"select frmTest.lstMany 3",
       "frmTest.lstMany: \"3\" is no position, =TEXT, all or none; its positions are 0 to 2"},
      {"select frmTest.lstOne 0", "frmTest.lstOne takes one entry: use set"},
      {"point frmTest.VtChart1 1 1", "frmTest.VtChart1 shows no points"},
      {"click frmAsk.cmdOK", "frmAsk.cmdOK cannot be used: frmAsk is not shown"},
      {"clik frmAsk.cmdOK", "there is no command \"clik\" (did you mean click?)"},
  };
  for (const auto& [line, error] : cases) {
    ScriptStage stage;
    EXPECT_EQ(stage.Refusal("# a comment\n" + line), "s:2: " + error + "\n");
  }
}

TEST(ControlCommands, HiddenAndDisabledControlsAreRefused) {
  ScriptStage stage;
  stage.frmTest.fraBox.SetVisible(false);
  EXPECT_EQ(stage.Refusal("set frmTest.txtName x"),
            "s:1: frmTest.txtName stands in fraBox, which is hidden\n");
  stage.frmTest.cmdGo.SetEnabled(false);
  EXPECT_EQ(stage.Refusal("click frmTest.cmdGo"), "s:1: frmTest.cmdGo is disabled\n");
  EXPECT_EQ(stage.Run("dump frmTest.txtName"), 0) << "looking is allowed";
}

TEST(ControlCommands, PointsAreCheckedAgainstTheChart) {
  ScriptStage stage;
  stage.frmTest.VtChart1.view.rowcount(3);
  stage.frmTest.VtChart1.view.ColumnCount(2);
  EXPECT_EQ(stage.Run("point frmTest.VtChart1 2 3"), 0);
  EXPECT_EQ(stage.frmTest.log, "point 2 3\n");
  EXPECT_EQ(stage.Refusal("point frmTest.VtChart1 3 1"),
            "s:1: SERIES: \"3\" is no whole number from 1 to 2\n");
}

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
}  // namespace vistaplot::test
