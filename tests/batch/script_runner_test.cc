#include "batch/script_runner.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>

#include "batch/script_dialogs.h"
#include "batch/script_line.h"
#include "support/script_screen.h"

namespace vistaplot {
namespace {

using test::ScriptStage;

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

  EXPECT_EQ(stage.Run("click frmTest.cmdGo\nset frmTest.chkMem 0\n"), 1);
  EXPECT_EQ(stage.err.str(),
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

TEST(ScriptRunner, TheEndInsideAModalFormIsAnError) {
  ScriptStage stage;
  stage.frmTest.cmdGo.Click = [&stage] { stage.frmAsk.ShowModal(); };
  EXPECT_EQ(stage.Run("click frmTest.cmdGo\nset frmAsk.txtAnswer x\n"), 1);
  EXPECT_EQ(stage.err.str(), "s:2: the script ends while frmAsk is open\n");
}

TEST(ScriptRunner, LeftOverAnswersAreAnErrorOfTheirLine) {
  ScriptStage stage;
  EXPECT_EQ(stage.Run("\nanswer open a.SUM b.SUM\nanswer ok\n"), 1);
  EXPECT_EQ(stage.err.str(),
            "s:2: nothing asked for this answer: open \"a.SUM\", nor for 1 more\n");
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

TEST(ScriptRunner, AFailureInsideTheProgramNamesItsLine) {
  ScriptStage stage;
  stage.frmTest.cmdGo.Click = [] { throw std::runtime_error("no memory"); };
  EXPECT_EQ(stage.Run("set frmTest.chkMem 1\nclick frmTest.cmdGo\n"), 1);
  EXPECT_EQ(stage.err.str(), "s:2: the program failed: no memory\n");
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
  EXPECT_EQ(stage.Run("sheet 3"), 1);
  EXPECT_EQ(stage.err.str(), "s:1: sheet: \"3\" is no whole number from 1 to 2\n");
  EXPECT_EQ(stage.Run("cells 1 2 3"), 1);
  EXPECT_EQ(stage.err.str(), "s:1: say cells R1 C1 R2 C2 ..., four numbers a range\n");
}

}  // namespace
}  // namespace vistaplot
