#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/host_path.h"
#include "support/screen_world.h"

namespace vistaplot {
namespace {

using test::kWorldDays;
using test::ScreenWorld;
using Texts = std::vector<std::string>;

TEST(FrmFam, DatesFollowTypingAndAreSavedAsDays) {
  ScreenWorld world;
  world.settings.values["begdate"] = "12";
  world.Start();
  FrmFam& frmFam = world.screens.frmFam;
  frmFam.Show();
  EXPECT_EQ(frmFam.txtbegDate.Text(), "01/12/2001");
  EXPECT_EQ(frmFam.txtEndDate2.Text(), std::to_string(kWorldDays));
  struct Case {
    std::string typed;
    std::string date;
    std::string day;
  };
  const std::vector<Case> cases = {{"1/20/2001", "1/20/2001", "20"},
                                   {"12/31/1999", "01/01/2001", "1"},
                                   {"10/27/2001", "10/27/2001", "300"},
                                   {"5/5/2020", "10/27/2001", "300"}};
  for (const Case& one : cases) {
    frmFam.txtbegDate.SetText(one.typed);
    frmFam.txtbegDate.RaiseLostFocus();
    EXPECT_EQ(frmFam.txtbegDate.Text(), one.date) << one.typed;
    EXPECT_EQ(frmFam.txtBegDate2.Text(), one.day) << one.typed;
  }
  frmFam.txtbegDate.SetText("someday soon enough");
  frmFam.txtbegDate.RaiseLostFocus();
  EXPECT_EQ(frmFam.lblBegNote.Caption(), "\"someday soon eno...\" is no date");
  EXPECT_EQ(frmFam.txtBegDate2.Text(), "300");  // sorts behind all dates
  frmFam.txtbegDate.SetText("20-Jan-2001");
  frmFam.txtbegDate.RaiseLostFocus();
  EXPECT_EQ(frmFam.lblBegNote.Caption(), "");
  EXPECT_EQ(frmFam.txtbegDate.Text() + " " + frmFam.txtBegDate2.Text(), "20-Jan-2001 20");
  frmFam.txtDays[0].SetText("2");
  const int saves_before = world.settings.saves;
  frmFam.cmdSave.RaiseClick();
  EXPECT_EQ(world.settings.saves, saves_before + 1);
  EXPECT_EQ(world.settings.values["begdate"], "20");
  EXPECT_EQ(world.settings.values["gain1"], "2");
  EXPECT_EQ(world.settings.values["gain6"], "50");
  EXPECT_TRUE(frmFam.Shown());
}

TEST(FrmFam, ABeginDateStoredInAnyFormIsADayAgain) {
  const std::vector<std::pair<std::string, std::string>> cases = {{"  12 ", "12"},
                                                                  {"12.6", "13"},
                                                                  {"1e1", "10"},
                                                                  {"-5", "1"},
                                                                  {"abc", "1"},
                                                                  {"", "1"},
                                                                  {"99999999999", "300"},
                                                                  {"1/20/2001", "20"},
                                                                  {"2001-01-20", "20"}};
  for (const auto& [stored, day] : cases) {
    ScreenWorld world;
    world.settings.values["begdate"] = stored;
    world.Start();
    world.screens.frmFam.Show();
    EXPECT_EQ(world.screens.frmFam.txtBegDate2.Text(), day) << stored;
    world.screens.frmFam.cmdSave.RaiseClick();
    EXPECT_EQ(world.settings.values["begdate"], day) << stored;
  }
}

TEST(FrmDir, KeepsTheDirectoryOfADriveThatCannotBeRead) {
  ScreenWorld world;
  world.Start();
  world.state.roots.drives_dir = world.folder.MakeFolder("drives");
  world.folder.MakeFolder("drives/d");
  FrmDir& frmDir = world.screens.frmDir;
  world.host.on_modal = [](Form&) {};
  frmDir.ShowModal();
  frmDir.cmdOK.RaiseClick();
  EXPECT_EQ(world.dialogs.Texts(), (Texts{"Please choose a directory"}));
  EXPECT_TRUE(frmDir.Shown());
  frmDir.Drive1.SetText("d:");
  frmDir.Drive1.SetText("e:");
  frmDir.cmdOK.RaiseClick();
  EXPECT_EQ(world.state.directories.ChosenDir, "d:/");
  EXPECT_FALSE(frmDir.Shown());
}

TEST(FrmSheet, GivesThePositionOrCancel) {
  ScreenWorld world;
  world.Start();
  FrmSheet& frmSheet = world.screens.frmSheet;
  frmSheet.cboSheet.SetEntries({"ONE", "TWO"});
  frmSheet.cboSheet.SetListIndex(1);
  frmSheet.cmdOK.RaiseClick();
  EXPECT_EQ(world.state.sheet_choice.SheetDialogResult, 1);
  EXPECT_EQ(world.state.sheet_choice.ChosenSheetIndex, 1);
  frmSheet.cmdCancel.RaiseClick();
  EXPECT_EQ(world.state.sheet_choice.SheetDialogResult, 2);
}

TEST(FrmMain, CalculationsScreenListsTheSignalFiles) {
  ScreenWorld world;
  world.Start();
  world.screens.frmMain.tools.cmdShowCalc.RaiseClick();
  EXPECT_EQ(world.screens.frmCalc.summary.lstSigfiles.Count(), 0);
  world.folder.Write("SIG/gold.sig", "");
  world.folder.Write("SIG/LongSignalName.v2.SIG", "");
  world.screens.frmMain.tools.cmdShowCalc.RaiseClick();
  EXPECT_EQ(world.screens.frmCalc.summary.lstSigfiles.Entries(), (Texts{"GOLD    ", "LONGSIGN"}));
}

TEST(FrmMain, SavesPrintsAndCopiesWhatIsInFront) {
  ScreenWorld world;
  world.Start();
  FrmMain& frmMain = world.screens.frmMain;
  frmMain.mnuFileSaveChart.RaiseClick();
  frmMain.tools.cmdShowData.RaiseClick();
  frmMain.mnuFilePrint.RaiseClick();
  ASSERT_EQ(world.dialogs.messages.size(), 2U);
  world.LoadTrio();
  world.SelectColumns(2, 3);
  frmMain.mnuFilePrint.RaiseClick();
  world.state.table.SheetAt(1).Select({1, 2, 2, 3});
  frmMain.mnuEditCopy.RaiseClick();
  world.dialogs.save_answers = {world.folder.Path("sheet.csv"), "/pictures/chart.svg"};
  frmMain.mnuFileSaveSheet.RaiseClick();
  EXPECT_EQ(world.folder.Read("sheet.csv").substr(0, 36),
            ",AAA,BBB,CCC\r\n01/01/2001,100,50,-1\r\n");
  frmMain.mnuFileGraph.RaiseClick();
  frmMain.mnuFileSaveChart.RaiseClick();
  frmMain.mnuEditCopy.RaiseClick();
  world.output.answer = MakeError(kErrorDiskFull, "/dev/printer");
  frmMain.mnuFilePrint.RaiseClick();
  EXPECT_EQ(world.output.calls,
            (Texts{"print TRIO as TRIO, 01/01/2001 to 10/27/2001",
                   "copy AAA\tBBB\n100\t50\n",
                   "save /pictures/chart.svg 640 454",
                   "copy chart",
                   "print chart"}));
  EXPECT_EQ(world.dialogs.messages.back().text,
            "The chart was not printed: /dev/printer: Disk full");
}

TEST(FrmMain, SavingProposesANameAndAFolderAndIsAskedAgainAfterAFailure) {
  ScreenWorld world;
  world.LoadTrio();
  FrmMain& frmMain = world.screens.frmMain;
  const std::string loaded = frmMain.pnlStatus.Caption();
  world.SelectColumns(2, 3);
  frmMain.mnuFileGraph.RaiseClick();
  frmMain.mnuFileSaveChart.RaiseClick();
  const auto& asked = world.dialogs.save_requests;
  EXPECT_EQ(asked[0].file_name, "TRIO AAA BBB 2001-10-27.png");
  EXPECT_EQ(asked[0].initial_folder, DocumentsFolder());
  EXPECT_EQ(frmMain.pnlStatus.Caption(), loaded);

  world.state.table.SetActiveSheet(2);
  world.folder.MakeFolder("mine");
  world.dialogs.save_answers = {world.folder.Path("none/a.csv"), world.folder.Path("mine/b.csv")};
  frmMain.mnuFileSaveSheet.RaiseClick();
  ASSERT_EQ(asked.size(), 3U);
  EXPECT_EQ(asked[1].file_name, "TRIO Summary 2001-10-27.csv");
  EXPECT_EQ(asked[2].file_name, "a.csv");
  EXPECT_EQ(world.dialogs.messages.back().text,
            "The sheet was not saved: " + world.folder.Path("none/a.csv") + ": Path not found");
  EXPECT_EQ(world.folder.Read("mine/b.csv").substr(0, 12), "Symbol,Name,");
  EXPECT_EQ(frmMain.pnlStatus.Caption(), loaded + ". Saved " + world.folder.Path("mine/b.csv"));

  frmMain.mnuFileSaveSheet.RaiseClick();
  EXPECT_EQ(asked[3].initial_folder, world.folder.Path("mine"));
  world.screens.frmTab.cboDataType.SetListIndex(2);
  EXPECT_EQ(frmMain.pnlStatus.Caption(), "") << "of data that are gone";
}

TEST(FrmMain, AChartRefusedForItsSizeSaysSoInItsPlace) {
  ScreenWorld world;
  world.LoadTrio();
  world.state.table.SheetAt(1).selection.assign(20, {1, 2, test::kWorldDays + 1, 4});
  FrmMain& frmMain = world.screens.frmMain;
  frmMain.periods.mnuTimePeriod[9].RaiseClick();
  frmMain.mnuFileGraph.RaiseClick();
  EXPECT_EQ(world.Chart().WhyEmpty,
            "17,940 points; 12,000 is the most: fewer funds or a shorter period");
  EXPECT_EQ(world.Chart().ColumnCount(), 0);
  EXPECT_FALSE(world.screens.frmGraph.Shown());
  world.SelectColumns(2, 2);
  frmMain.mnuFileGraph.RaiseClick();
  EXPECT_EQ(world.Chart().WhyEmpty, "");
}

TEST(FrmTab, FindTellsWhenNoEntryBeginsSo) {
  ScreenWorld world;
  world.Start();
  FrmTab& frmTab = world.screens.frmTab;
  frmTab.lists.txtIndex.SetText("trix");
  EXPECT_EQ(frmTab.lists.lblFindNote.Caption(), "No family begins with \"trix\"");
  frmTab.lists.txtIndex.SetText("Tri ");
  EXPECT_EQ(frmTab.lists.lblFindNote.Caption(), "");
  EXPECT_EQ(frmTab.lists.txtIndex.Fault(), "");
  frmTab.lists.OptSelect.SetListIndex(1);
  EXPECT_EQ(frmTab.lists.txtIndex.Fault(), "No fund or stock begins with \"Tri\"");
}

TEST(FrmDir, EachOpeningStartsAfreshAndWhatWasChosenStays) {
  ScreenWorld world;
  FrmDir& frmDir = world.screens.frmDir;
  frmDir.Show();
  frmDir.Dir1.SetText(world.folder.Path("QLDEF"));
  frmDir.cmdOK.RaiseClick();
  frmDir.Show();
  EXPECT_EQ(frmDir.Dir1.Text(), "");
  frmDir.Unload();
  EXPECT_EQ(world.state.directories.ChosenDir, world.folder.Path("QLDEF"));
}

TEST(FrmMain, TipsAboutAndExit) {
  ScreenWorld world;
  world.Start();
  FrmMain& frmMain = world.screens.frmMain;
  frmMain.tools.cmdShowCalc.MouseMove();
  EXPECT_EQ(frmMain.tools.TxtToolTip.Text(), "Calculations Screen");
  EXPECT_TRUE(frmMain.tools.TxtToolTip.Visible());
  frmMain.mnuHelpAbout.RaiseClick();
  frmMain.mnuFileExit.RaiseClick();
  EXPECT_EQ(world.dialogs.Texts(), (Texts{"Vistaplot version 3.4.1"}));
  EXPECT_TRUE(world.dialogs.ended);
  EXPECT_FALSE(world.dialogs.ended_fatally);
}

}  // namespace
}  // namespace vistaplot
