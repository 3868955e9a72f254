#include "batch/batch.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "app/program.h"
#include "batch/script_dialogs.h"
#include "batch/script_runner.h"
#include "batch/state_dump.h"
#include "formats/family_file.h"
#include "support/fake_quoteline.h"
#include "support/memory_settings.h"
#include "support/recording_output.h"
#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

using test::TemporaryFolder;

constexpr int kDays = 60;

// The whole program over three issues of 60 days from 1 January 2001, one family "TRIO".
struct ScriptedProgram {
  TemporaryFolder folder;
  test::FakeQuoteline quoteline;
  test::MemorySettings settings;
  std::ostringstream out;
  std::ostringstream err;
  AnswerQueue answers;
  ScriptDialogs dialogs{answers, out};
  ScriptHost host{DisplayInTwips(kBatchDisplay)};
  test::RecordingOutput output;
  Program program{{.quoteline = quoteline,
                   .settings = settings,
                   .dialogs = dialogs,
                   .host = host,
                   .output = output,
                   .program_dir = "/opt/vistaplot",
                   .roots = {}}};
  ScriptWorld world{program.Forms(),
                    program.State().table,
                    host,
                    answers,
                    [this] { return StateJson(program.State()); },
                    {},
                    out,
                    err};

  ScriptedProgram() {
    quoteline.directory = folder.Path();
    quoteline.SetDays(SerialFromDate({2001, 1, 1}), kDays);
    const std::vector<std::string> symbols{"AAA", "BBB", "CCC"};
    for (const std::string& symbol : symbols) {
      quoteline.AddIssue(symbol, std::vector<float>(kDays, 10.0F));
    }
    for (const char* name : {"QLDEF", "QL4WIN/SQLDEF", "USERDEF"}) folder.MakeFolder(name);
    const FamilyHeader header{.name = "TRIO", .title = "Three", .count = 0, .rest = {}};
    folder.Write("USERDEF/TRIO.FAM", FamilyFileBytes(header, symbols).Value());
  }

  int Run(const std::string& lines) {
    out.str("");
    std::istringstream script(lines);
    return ScriptRunner(world, "s").Run(script, [this] { program.Start(); });
  }
};

TEST(Batch, AScriptLoadsAFamilyAndChartsTwoFunds) {
  ScriptedProgram batch;
  ASSERT_EQ(batch.Run("click FrmMain.mnuFileGraph\n"
                      "set frmTab.cboDataType \"Quoteline Funds, Stocks & FNU files\"\n"
                      "select frmTab.lstIndex =TRIO\n"
                      "click frmTab.cmdLoadData\n"
                      "sheet 1\n"
                      "cells 1 2 61 3\n"
                      "click frmMain.mnuFileGraph\n"
                      "dump state\n"
                      "dump sheet 1 -\n"),
            0)
      << batch.err.str();
  const std::string text = batch.out.str();
  EXPECT_TRUE(
      text.starts_with("{\"message\": {\"title\": \"\", \"text\": \"Please load a Zephyrine"))
      << text;
  EXPECT_NE(text.find("\r\n03/01/2001,10,10,10\r\n"), std::string::npos);
  const std::size_t state = text.find("{\"MaxDays\"");
  const auto parsed = nlohmann::json::parse(text.substr(state, text.find('\n', state) - state));
  EXPECT_EQ(parsed["MaxNumDays"], kDays);
  EXPECT_EQ(parsed["QuotelineDir"], batch.folder.Path());
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
  ScriptedProgram design;
  ScriptHost host(DisplayInTwips({640, 480}));
  Program program({design.quoteline, design.settings, design.dialogs, host, design.output, "", {}});
  program.Start();
  const Place& place = program.FindForm("frmTab")->Find("cboDataType")->Where();
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

}  // namespace
}  // namespace vistaplot
