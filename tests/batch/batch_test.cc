#include "batch/batch.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "app/program.h"
#include "batch/script_commands.h"
#include "batch/script_dialogs.h"
#include "batch/script_runner.h"
#include "batch/state_dump.h"
#include "support/screen_world.h"

namespace vistaplot::test {
namespace {

// The whole program under scripts, over the service of the test world.
struct ScriptedProgram {
  ScreenWorld world;
  std::ostringstream out;
  std::ostringstream err;
  AnswerQueue answers;
  ScriptDialogs dialogs{answers, out};
  ScriptHost host{DisplayInTwips(kBatchDisplay)};
  Program program{{.quoteline = world.quoteline,
                   .settings = world.settings,
                   .dialogs = dialogs,
                   .host = host,
                   .output = world.output,
                   .program_dir = "/opt/vistaplot",
                   .roots = {}}};
  ScriptWorld script_world{program.Forms(),
                           program.State().table,
                           host,
                           answers,
                           [this] { return StateJson(program.State()); },
                           {},
                           out,
                           err};

  int Run(const std::string& lines) {
    out.str("");
    std::istringstream script(lines);
    return ScriptRunner(script_world, "s").Run(script, [this] { program.Start(); });
  }
};

TEST(Batch, AScriptLoadsAFamilyAndChartsTwoFunds) {
  ScriptedProgram batch;
  ASSERT_EQ(batch.Run("click FrmMain.mnuFileGraph\n"
                      "set frmTab.cboDataType \"Quoteline Funds, Stocks & FNU files\"\n"
                      "select frmTab.lstIndex =TRIO\n"
                      "click frmTab.cmdLoadData\n"
                      "sheet 1\n"
                      "cells 1 2 301 3\n"
                      "click frmMain.mnuFileGraph\n"
                      "dump state\n"
                      "dump sheet 1 -\n"),
            0)
      << batch.err.str();
  const std::string text = batch.out.str();
  EXPECT_TRUE(
      text.starts_with("{\"message\": {\"title\": \"\", \"text\": \"Please load a Zephyrine"))
      << text;
  EXPECT_NE(text.find("\r\n10/27/2001,399,12.625,110\r\n"), std::string::npos);
  const std::size_t state = text.find("{\"MaxDays\"");
  const auto parsed = nlohmann::json::parse(text.substr(state, text.find('\n', state) - state));
  EXPECT_EQ(parsed["MaxNumDays"], kWorldDays);
  EXPECT_EQ(parsed["QuotelineDir"], batch.world.folder.Path());
  ASSERT_EQ(parsed["SelectedColumns"].size(), 2U);
  EXPECT_EQ(parsed["SelectedColumns"][1], 3);
  EXPECT_EQ(parsed["ResultFileLoaded"], true);
  EXPECT_EQ(parsed["IssueColumnCount"], 3);
}

TEST(Batch, WhatAUserCannotReachAScriptCannotEither) {
  ScriptedProgram batch;
  EXPECT_EQ(batch.Run("set frmTab.cboDataType 0\nclick frmTab.cmdLoadData\n"), 1);
  EXPECT_EQ(batch.err.str(), "s:2: frmTab.cmdLoadData is hidden\n");
}

TEST(Batch, ScreensFillTheDisplayOfTheRun) {
  ScriptedProgram batch;
  ASSERT_EQ(batch.Run("dump frmTab.cboDataType"), 0);
  const auto half = nlohmann::json::parse(batch.out.str());
  ScreenWorld design;
  design.Start();
  const Place& place = design.screens.frmTab.cboDataType.Where();
  EXPECT_EQ(half["left"].get<double>(), static_cast<double>(2.0F * *place.Left));
  EXPECT_EQ(half["width"].get<double>(), static_cast<double>(2.0F * *place.Width));
}

TEST(Batch, AServiceThatIsNotThereEndsTheRunWithStatus3) {
  const TemporaryFolder folder;
  Options options;
  options.quoteline_dir = folder.Path("none");
  options.settings_file = folder.Path("settings.ini");
  options.batch_script = folder.Write("s.txt", "dump state\n");
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  EXPECT_EQ(RunBatch(options, {}, {in, out, err}), 3);
  EXPECT_EQ(out.str(),
            "{\"message\": {\"title\": \"Error\", \"text\": \"Unable to open Quoteline "
            "DLL\\runable to open database file\\r(error -1)\", \"buttons\": \"ok\", "
            "\"answer\": \"ok\"}}\n");
  EXPECT_EQ(
      err.str(),
      "vistaplot: ended by a fatal error; the service directory was " + folder.Path("none") + "\n");

  err.str("");
  options.batch_script = folder.Path("no.txt");
  EXPECT_EQ(RunBatch(options, {}, {in, out, err}), 2);
  EXPECT_EQ(err.str(),
            "vistaplot: cannot read the script " + folder.Path("no.txt") + ": File not found\n");
}

/// The desktop's side is recorded; the script is in a file.
struct DesktopWorld {
  ScreenWorld world;
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  int lines = 0;                ///< that were told to be done
  int last_line = 0;            ///< the desktop wants no more after it; 0: all
  std::vector<bool> esc_stops;  ///< a run: after each line, and once the script is over
  BatchStreams streams{.in = in, .out = out, .err = err};

  // Plays `script` to its end in a program of its own; null when its file cannot be read.
  void Play(const std::string& script) {
    world.folder.Write("script.vps", script);
    auto player = MakeWindowScript(world.folder.Path("script.vps"), {}, streams);
    ASSERT_TRUE(player);
    FormHost& host = player.Value()->Over(world.host);
    Program program({.quoteline = world.quoteline,
                     .settings = world.settings,
                     .dialogs = player.Value()->Over(world.dialogs),
                     .host = host,
                     .output = player.Value()->Over(world.output),
                     .program_dir = world.folder.Path(),
                     .roots = {}});
    program.Start();
    world.host.stop_wanted = true;
    player.Value()->Play(program, [&] {
      esc_stops.push_back(host.StopWanted());
      return ++lines != last_line;
    });
    esc_stops.push_back(host.StopWanted());
    program.AllScreens().frmMain.mnuHelpAbout_Click();  // by now the boxes are the desktop's
  }
};

struct WindowScript : testing::Test, DesktopWorld {};

TEST_F(WindowScript, AnErrorIsToldInABoxAndTheProgramGoesOn) {
  Play("click FrmMain.mnuHelpAbout\nset frmTab.cboDataType\n");
  const std::vector<std::string> texts = world.dialogs.Texts();
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_NE(texts[0].find("script.vps:2: "), std::string::npos) << texts[0];
  EXPECT_EQ(err.str(), texts[0] + "\n");
  EXPECT_NE(out.str().find("Vistaplot version 3.4.1"), std::string::npos);
  EXPECT_EQ(texts[1], "Vistaplot version 3.4.1");
}

TEST_F(WindowScript, PrintsNothingWhileItPlays) {
  Play(
      "set frmTab.cboDataType 1\n"
      "select frmTab.lstIndex 0\n"
      "click frmTab.cmdLoadData\n"
      "click FrmMain.cmdShowData\n"
      "click FrmMain.mnuFilePrint\n");
  EXPECT_EQ(lines, 5);
  EXPECT_TRUE(world.output.calls.empty());
  EXPECT_NE(out.str().find("The sheet was not printed: a script has no printer"), std::string::npos)
      << out.str() << err.str();
}

TEST_F(WindowScript, StopsWithoutAWordAboutWhatIsLeft) {
  last_line = 2;
  Play("answer ok\nclick FrmMain.cmdShowData\nclick FrmMain.cmdShowGraph\n");
  EXPECT_EQ(lines, 2);
  EXPECT_EQ(esc_stops, (std::vector<bool>{false, false, true}));
  EXPECT_EQ(err.str(), "");
  EXPECT_EQ(world.dialogs.Texts(), std::vector<std::string>{"Vistaplot version 3.4.1"});
}

TEST_F(WindowScript, AFileThatCannotBeReadIsRefusedAtOnce) {
  const auto player = MakeWindowScript(world.folder.Path("none.vps"), {}, streams);
  ASSERT_FALSE(player);
  EXPECT_NE(PlainText(player.Error()).find("none.vps: File not found"), std::string::npos);
}

}  // namespace
}  // namespace vistaplot::test
