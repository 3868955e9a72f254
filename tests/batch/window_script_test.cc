// A script over windows: what it takes over while it plays, and what it leaves to the desktop.
#include <gtest/gtest.h>

#include <sstream>

#include "app/program.h"
#include "batch/script_commands.h"
#include "support/screen_world.h"

namespace vistaplot {
namespace {

using namespace test;

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

TEST(WindowScript, AnErrorIsToldInABoxAndTheProgramGoesOn) {
  DesktopWorld desktop;
  desktop.Play("click FrmMain.mnuHelpAbout\nset frmTab.cboDataType\n");
  const std::vector<std::string> texts = desktop.world.dialogs.Texts();
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_NE(texts[0].find("script.vps:2: "), std::string::npos) << texts[0];
  EXPECT_EQ(desktop.err.str(), texts[0] + "\n");
  EXPECT_NE(desktop.out.str().find("Vistaplot version 3.4.1"), std::string::npos);
  EXPECT_EQ(texts[1], "Vistaplot version 3.4.1");
}

TEST(WindowScript, PrintsNothingWhileItPlays) {
  DesktopWorld desktop;
  desktop.Play(
      "set frmTab.cboDataType 1\n"
      "select frmTab.lstIndex 0\n"
      "click frmTab.cmdLoadData\n"
      "click FrmMain.cmdShowData\n"
      "click FrmMain.mnuFilePrint\n");
  EXPECT_EQ(desktop.lines, 5);
  EXPECT_TRUE(desktop.world.output.calls.empty());
  EXPECT_NE(desktop.out.str().find("The sheet was not printed: a script has no printer"),
            std::string::npos)
      << desktop.out.str() << desktop.err.str();
}

TEST(WindowScript, StopsWithoutAWordAboutWhatIsLeft) {
  DesktopWorld desktop;
  desktop.last_line = 2;
  desktop.Play("answer ok\nclick FrmMain.cmdShowData\nclick FrmMain.cmdShowGraph\n");
  EXPECT_EQ(desktop.lines, 2);
  EXPECT_EQ(desktop.esc_stops, (std::vector<bool>{false, false, true}));
  EXPECT_EQ(desktop.err.str(), "");
  EXPECT_EQ(desktop.world.dialogs.Texts(), std::vector<std::string>{"Vistaplot version 3.4.1"});
}

TEST(WindowScript, AFileThatCannotBeReadIsRefusedAtOnce) {
  DesktopWorld desktop;
  const auto player = MakeWindowScript(desktop.world.folder.Path("none.vps"), {}, desktop.streams);
  ASSERT_FALSE(player);
  EXPECT_NE(PlainText(player.Error()).find("none.vps: File not found"), std::string::npos);
}

}  // namespace
}  // namespace vistaplot
