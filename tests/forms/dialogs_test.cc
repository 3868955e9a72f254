#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/host_path.h"
#include "support/screen_world.h"

namespace vistaplot::test {
namespace {

using Texts = std::vector<std::string>;

struct DialogTest : testing::Test, ScreenWorld {};

struct LoadedTest : DialogTest {
  LoadedTest() { LoadTrio(); }
};

TEST_F(DialogTest, DatesFollowTypingAndAreSavedAsDays) {
  settings.values["begdate"] = "12";
  Start();
  frmFam.Show();
  EXPECT_EQ(frmFam.txtbegDate.Text(), "01/12/2001");
  EXPECT_EQ(frmFam.txtEndDate2.Text(), std::to_string(kWorldDays));
  Texts gains;
  for (const TextBox& box : frmFam.txtDays) gains.push_back(box.Text());
  EXPECT_EQ(gains, (Texts{"1", "5", "10", "15", "30", "50"}));
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
  const int saves_before = settings.saves;
  frmFam.cmdSave.RaiseClick();
  EXPECT_EQ(settings.saves, saves_before + 1);
  EXPECT_EQ(settings.values["begdate"], "20");
  EXPECT_EQ(settings.values["gain1"], "2");
  EXPECT_EQ(settings.values["gain6"], "50");
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

TEST_F(DialogTest, KeepsTheDirectoryOfADriveThatCannotBeRead) {
  Start();
  state.roots.drives_dir = folder.MakeFolder("drives");
  folder.MakeFolder("drives/d");
  FrmDir& frmDir = screens.frmDir;
  host.on_modal = [](Form&) {};
  frmDir.ShowModal();
  frmDir.cmdOK.RaiseClick();
  frmDir.Dir1.SetText("d:/none");
  frmDir.cmdOK.RaiseClick();
  EXPECT_EQ(dialogs.Texts(), (Texts{"Please choose a directory", "Please choose a directory"}));
  EXPECT_TRUE(frmDir.Shown());
  frmDir.Drive1.SetText("d:");
  frmDir.Drive1.SetText("e:");
  frmDir.cmdOK.RaiseClick();
  EXPECT_EQ(state.directories.ChosenDir, "d:/");
  EXPECT_FALSE(frmDir.Shown());
}

TEST_F(DialogTest, GivesThePositionOrCancel) {
  Start();
  FrmSheet& frmSheet = screens.frmSheet;
  frmSheet.cboSheet.SetEntries({"ONE", "TWO"});
  frmSheet.cboSheet.SetListIndex(1);
  frmSheet.cmdOK.RaiseClick();
  EXPECT_EQ(state.sheet_choice.SheetDialogResult, 1);
  EXPECT_EQ(state.sheet_choice.ChosenSheetIndex, 1);
  frmSheet.cmdCancel.RaiseClick();
  EXPECT_EQ(state.sheet_choice.SheetDialogResult, 2);
}

TEST_F(DialogTest, CalculationsScreenListsTheSignalFiles) {
  Start();
  frmMain.tools.cmdShowCalc.RaiseClick();
  EXPECT_EQ(screens.frmCalc.summary.lstSigfiles.Count(), 0);
  folder.Write("SIG/gold.sig", "");
  folder.Write("SIG/LongSignalName.v2.SIG", "");
  frmMain.tools.cmdShowCalc.RaiseClick();
  EXPECT_EQ(screens.frmCalc.summary.lstSigfiles.Entries(), (Texts{"GOLD    ", "LONGSIGN"}));
}

TEST_F(DialogTest, SavesPrintsAndCopiesWhatIsInFront) {
  Start();
  frmMain.mnuFileSaveChart.RaiseClick();
  frmMain.tools.cmdShowData.RaiseClick();
  frmMain.mnuFilePrint.RaiseClick();
  ASSERT_EQ(dialogs.messages.size(), 2U);
  LoadTrio();
  SelectColumns(2, 3);
  frmMain.mnuFilePrint.RaiseClick();
  SheetAt(1).Select({1, 2, 2, 3});
  frmMain.mnuEditCopy.RaiseClick();
  dialogs.save_answers = {folder.Path("sheet.csv"), "/pictures/chart.svg"};
  frmMain.mnuFileSaveSheet.RaiseClick();
  EXPECT_EQ(folder.Read("sheet.csv").substr(0, 36), ",AAA,BBB,CCC\r\n01/01/2001,100,50,-1\r\n");
  SheetAt(1).selection.clear();
  frmMain.mnuEditCopy.RaiseClick();
  EXPECT_EQ(dialogs.messages.back().text, "Select cells or columns to copy first");
  state.table.SetActiveSheet(2);
  frmMain.mnuFilePrint.RaiseClick();
  SelectColumns(2, 3);
  Graph();
  frmMain.mnuFileSaveChart.RaiseClick();
  frmMain.mnuEditCopy.RaiseClick();
  output.answer = MakeError(kErrorDiskFull, "/dev/printer");
  frmMain.mnuFilePrint.RaiseClick();
  EXPECT_EQ(output.calls,
            (Texts{"print TRIO as TRIO, 01/01/2001 to 10/27/2001",
                   "copy AAA\tBBB\n100\t50\n",
                   "print Summary as TRIO Summary, 01/01/2001 to 10/27/2001",
                   "save /pictures/chart.svg 640 454",
                   "copy chart",
                   "print chart"}));
  EXPECT_EQ(dialogs.messages.back().text, "The chart was not printed: /dev/printer: Disk full");
}

TEST_F(LoadedTest, SavingProposesANameAndAFolderAndIsAskedAgainAfterAFailure) {
  const std::string loaded = frmMain.pnlStatus.Caption();
  SelectColumns(2, 3);
  Graph();
  frmMain.mnuFileSaveChart.RaiseClick();
  const auto& asked = dialogs.save_requests;
  EXPECT_EQ(asked[0].file_name, "TRIO AAA BBB 2001-10-27.png");
  EXPECT_EQ(asked[0].initial_folder, DocumentsFolder());
  EXPECT_EQ(frmMain.pnlStatus.Caption(), loaded);

  state.table.SetActiveSheet(2);
  folder.MakeFolder("mine");
  dialogs.save_answers = {folder.Path("mine"), folder.Path("mine/b.csv")};
  frmMain.mnuFileSaveSheet.RaiseClick();
  ASSERT_EQ(asked.size(), 3U);
  EXPECT_EQ(asked[1].file_name, "TRIO Summary 2001-10-27.csv");
  EXPECT_EQ(asked[2].file_name, "mine");
  EXPECT_EQ(asked[2].initial_folder, folder.Path());
  EXPECT_EQ(dialogs.messages.back().text,
            "The sheet was not saved: " + folder.Path("mine") + ": Path/File access error");
  EXPECT_NE(folder.Read("mine/b.csv").find("\r\nAAA,Name of AAA,"), std::string::npos);
  EXPECT_EQ(frmMain.pnlStatus.Caption(), loaded + ". Saved " + folder.Path("mine/b.csv"));

  SheetAt(1).SheetName = "A/B";
  SheetAt(1).selection = {{1, 2, kWorldDays + 1, 4}, {1, 2, kWorldDays + 1, 2}};
  Graph();
  dialogs.save_answers = {folder.Path("mine/c.png")};
  frmMain.mnuFileSaveChart.RaiseClick();
  EXPECT_EQ(asked[3].initial_folder, folder.Path("mine"));
  EXPECT_EQ(asked[3].file_name, "A-B 4 funds 2001-10-27.png");
  EXPECT_EQ(frmMain.pnlStatus.Caption(), loaded + ". Saved " + folder.Path("mine/c.png"));
  frmTab.cboDataType.SetListIndex(2);
  EXPECT_EQ(frmMain.pnlStatus.Caption(), "") << "of data that are gone";
}

TEST_F(LoadedTest, AChartRefusedForItsSizeSaysSoInItsPlace) {
  SheetAt(1).selection.assign(20, {1, 2, kWorldDays + 1, 4});
  frmMain.periods.mnuTimePeriod[9].RaiseClick();
  Graph();
  EXPECT_EQ(Chart().WhyEmpty, "17,940 points; 12,000 is the most: fewer funds or a shorter period");
  EXPECT_EQ(Chart().ColumnCount(), 0);
  EXPECT_FALSE(frmGraph.Shown());
  SelectColumns(2, 2);
  Graph();
  EXPECT_EQ(Chart().WhyEmpty, "");
}

TEST_F(DialogTest, FindTellsWhenNoEntryBeginsSo) {
  Start();
  frmTab.lists.txtIndex.SetText("trix");
  EXPECT_EQ(frmTab.lists.lblFindNote.Caption(), "No family begins with \"trix\"");
  frmTab.lists.txtIndex.SetText("Tri ");
  EXPECT_EQ(frmTab.lists.lblFindNote.Caption(), "");
  EXPECT_EQ(frmTab.lists.txtIndex.Fault(), "");
  frmTab.lists.OptSelect.SetListIndex(1);
  EXPECT_EQ(frmTab.lists.txtIndex.Fault(), "No fund or stock begins with \"Tri\"");
}

TEST_F(DialogTest, EachOpeningStartsAfreshAndWhatWasChosenStays) {
  FrmDir& frmDir = screens.frmDir;
  frmDir.Show();
  frmDir.Dir1.SetText(folder.Path("QLDEF"));
  frmDir.cmdOK.RaiseClick();
  frmDir.Show();
  EXPECT_EQ(frmDir.Dir1.Text(), "");
  frmDir.Unload();
  EXPECT_EQ(state.directories.ChosenDir, folder.Path("QLDEF"));
}

TEST_F(DialogTest, AboutAndExit) {
  Start();
  frmMain.mnuHelpAbout.RaiseClick();
  frmMain.mnuFileExit.RaiseClick();
  EXPECT_EQ(dialogs.Texts(), (Texts{"Vistaplot version 3.4.1"}));
  EXPECT_TRUE(dialogs.ended && !dialogs.ended_fatally);
}

}  // namespace
}  // namespace vistaplot::test
