#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/text.h"
#include "support/calc_world.h"

namespace vistaplot {
namespace {

using test::CalcWorld;
using test::kNoFile;
using test::kWorldDays;
using Texts = std::vector<std::string>;

TEST(FrmCalc, StartsWithAllDaysAndTheSettingsOfTheExchangeLine) {
  CalcWorld world;
  EXPECT_EQ(world.calc.summary.txtStartDate.Text(), "01/01/2001");
  EXPECT_EQ(world.calc.summary.txtStartDate2.Text(), "1");
  EXPECT_EQ(world.calc.summary.txtEndDate.Text(), "10/27/2001");
  EXPECT_EQ(world.calc.summary.txtEndDate2.Text(), "300");
  EXPECT_EQ(world.calc.exchange.txtADFile.Text(), world.folder.Path() + "\\NYADL.FNU");
  EXPECT_EQ(world.calc.exchange.txtADTitle.Text(), "NYSE Advance/Decline Line");
  world.settings.values["ADSymbol"] = "MYADL";
  world.settings.values["ADTitle"] = "  ";
  world.calc.Unload();
  world.calc.Load();
  EXPECT_EQ(world.calc.exchange.txtADSymbol.Text(), "MYADL");
  EXPECT_EQ(world.calc.exchange.txtADTitle.Text(), "NYSE Advance/Decline Line");
}

TEST(FrmCalc, TheFnuChooserProposesWhatTheFileHolds) {
  CalcWorld world;
  world.folder.Write("OLD.FNU", "abc,rest\r\nOld title, cut\r\n");
  world.dialogs.save_answers = {world.Path("OLD.FNU")};
  world.dialogs.input_answers = {"New title"};
  world.calc.cmdFnuFile_Click();
  ASSERT_EQ(world.dialogs.inputs.size(), 2U);
  EXPECT_EQ(world.dialogs.inputs[0].proposed, "Old title");
  EXPECT_EQ(world.dialogs.inputs[1].proposed, "ABC");
  EXPECT_EQ(world.calc.beta.txtFnuTitle.Text(), "New title");
  EXPECT_EQ(world.calc.beta.txtFnuSymbol.Text(), "") << "a cancelled box gives no text";
  world.calc.beta.txtFnuSymbol.SetText("OLD");
  world.dialogs.save_answers = {world.Path("NEW.FNU")};
  world.calc.cmdFnuFile_Click();
  EXPECT_EQ(world.dialogs.inputs[2].proposed + world.dialogs.inputs[3].proposed, "")
      << "a new file has neither title nor symbol";
  world.dialogs.save_answers = {world.Path("OLD.FNU")};
  world.calc.cmdFnuFile_Click();
  EXPECT_EQ(world.calc.beta.txtFnuTitle.Text(), "") << "cancelled";
}

TEST(FrmCalc, GivingUpTheFnuChooserChangesNothing) {
  CalcWorld world;
  world.dialogs.answers = {Answer::kCancel, Answer::kOk};
  world.calc.cmdADFile_Click();
  EXPECT_EQ(world.NewMessages(), (Texts{kNoFile, kNoFile}));
  EXPECT_EQ(world.dialogs.save_requests.size(), 2U);
  EXPECT_EQ(world.calc.exchange.txtADSymbol.Text(), "NYADL");
}

TEST(FrmCalc, AnFnuFileThatEndsTooEarlyEndsTheProgramButNotFromTheCheckBox) {
  CalcWorld world;
  world.folder.Write("SHORT.FNU", "ABC\r\n");
  world.dialogs.save_answers = {world.Path("SHORT.FNU"), world.Path("SHORT.FNU")};
  world.calc.summary.chkCompFile.SetChecked(true);
  EXPECT_EQ(world.NewMessages(), (Texts{"error: 62 Input past end of file"}));
  EXPECT_FALSE(world.dialogs.ended);
  EXPECT_TRUE(world.calc.summary.chkCompFile.Checked());
  world.calc.cmdADFamFile_Click();
  EXPECT_EQ(world.NewMessages(), (Texts{"error: 62 Input past end of file"}));
  EXPECT_TRUE(world.dialogs.ended_fatally);
}

TEST(FrmCalc, TheExchangeLineAddsAdvancersLessDecliners) {
  CalcWorld world;
  world.quoteline.AddIssue("$NADV", std::vector<float>(kWorldDays - 4, 7.0F), 5);
  world.quoteline.AddIssue("$DECL", std::vector<float>(kWorldDays - 2, 5.0F), 3);
  world.calc.cmdAD_Click();
  EXPECT_EQ(world.NewMessages(), Texts{});
  EXPECT_EQ(world.Head("NYADL.FNU", 7),
            "NYADL|NYSE Advance/Decline Line|\"01/01/2001\",0,0|\"01/02/2001\",0,0|"
            "\"01/03/2001\",-6,0|\"01/04/2001\",-12,0|\"01/05/2001\",-10,0");
  EXPECT_EQ(world.screens.frmMain.pnlAction.Caption(), "");
  EXPECT_EQ(world.calc.exchange.lblADNote.Caption(), "300 days written outside the service");
  // The database's issue of a symbol wins over the file's.
  for (const auto& [newest, told] :
       {std::pair(580.0F, ""), std::pair(581.0F, ", hidden by another issue NYADL")}) {
    world.quoteline.AddIssue("NYADL", {newest}, kWorldDays);
    world.calc.cmdAD_Click();
    EXPECT_EQ(world.calc.exchange.lblADNote.Caption(), std::string("300 days written") + told);
  }
  world.calc.exchange.txtADFile.SetText(world.Path("no/x.fnu"));
  world.calc.cmdAD_Click();
  EXPECT_EQ(world.NewMessages(), (Texts{"error: 76 Path not found"}));
  EXPECT_EQ(world.calc.exchange.lblADNote.Caption(), "Not written: " + world.Path("no/x.fnu"));
}

TEST(FrmCalc, AMissingBreadthIssueStopsBeforeTheFile) {
  CalcWorld world;
  world.calc.cmdAD_Click();
  world.quoteline.AddIssue("$NADV", {7.0F}, 5);
  world.calc.cmdAD_Click();
  EXPECT_EQ(world.NewMessages(), (Texts{"Fund $NADV not found", "Fund $DECL not found"}));
  EXPECT_EQ(world.File("NYADL.FNU"), "53 File not found");
  EXPECT_EQ(world.calc.Pointer(), MousePointer::kDefault);
}

TEST(FrmCalc, AFamilyMakesALineAndTwoSideFiles) {
  CalcWorld world;
  world.calc.family.txtADFamFam.SetText(world.Path("QLDEF/TRIO.FAM"));
  world.calc.family.txtADFamFile.SetText("c:\\ql\\trio.fnu");
  world.calc.family.txtADFamTitle.SetText("Trio");
  world.calc.family.txtADFamSymbol.SetText("TOO LONG");
  world.calc.cmdADFam_Click();
  EXPECT_EQ(world.NewMessages(),
            (Texts{"The market-data service takes symbols of 1 to 5 characters without blanks and "
                   "commas: \"TOO LONG\" is written, but it is no issue"}));
  // AAA rises, BBB falls, CCC rises from day 101 on
  EXPECT_EQ(world.Head("trio.fnu", 3), "TOO LONG|Trio|\"01/01/2001\",0,0");
  EXPECT_TRUE(world.File("trio.fnu").ends_with("\"10/27/2001\",200,0\r\n"));
  EXPECT_EQ(world.Head("f_adv.fnu", 3),
            "f_adv|Advancing issues calculated By Vistaplot|\"01/02/2001\",1,0");
  EXPECT_TRUE(world.File("f_dec.fnu").ends_with("\"10/27/2001\",1,0\r\n"));
  EXPECT_EQ(world.state.table.SheetAt(1).SheetName, std::string(LeftCharacters(world.Path(""), 8)));
}

TEST(FrmCalc, AMissingFamilyIsTriedOnceUnderTheFirstListedName) {
  CalcWorld world;
  world.calc.cmdADFam_Click();
  EXPECT_EQ(world.NewMessages(), (Texts{"Please select a family"}));
  world.calc.family.txtADFamFam.SetText("c:\\ql\\none.fam");
  world.calc.family.txtADFamFile.SetText(world.Path("a.fnu"));
  world.calc.cmdADFam_Click();
  EXPECT_EQ(
      world.NewMessages(),
      (Texts{"Error AD family: 53 File not found " + world.folder.Path() + "\\USERDEF\\TRIO.FAM"}));
  EXPECT_EQ(world.state.table.SheetAt(1).SheetName, "c:\\ql\\no") << "named before it is read";
  world.WriteFamily("USERDEF/TRIO.FAM", {});
  world.calc.family.txtADFamSymbol.SetText("AD");
  world.calc.cmdADFam_Click();
  EXPECT_EQ(world.NewMessages(), Texts{});
  EXPECT_TRUE(world.File("a.fnu").ends_with("\"10/27/2001\",0,0\r\n"));
  world.screens.frmTab.lists.OptSelect.SetListIndex(1);
  world.calc.cmdADFam_Click();
  world.screens.frmTab.lists.OptSelect.SetListIndex(0);
  world.calc.family.txtADFamFam.SetText("c:\\ql\\none\\none.fam");
  world.calc.cmdADFam_Click();
  EXPECT_EQ(world.NewMessages(),
            (Texts{"Error AD family: 53 File not found", "Error AD family: 76 Path not found"}));
}

TEST(FrmCalc, ASideFileThatCannotBeMadeLeavesTheFilesAsFarAsTheyGot) {
  CalcWorld world;
  world.folder.MakeFolder("f_dec.fnu");
  world.calc.family.txtADFamFam.SetText(world.Path("QLDEF/TRIO.FAM"));
  world.calc.family.txtADFamFile.SetText(world.Path("trio.fnu"));
  world.calc.family.txtADFamSymbol.SetText("TRIO");
  world.calc.cmdADFam_Click();
  EXPECT_EQ(world.NewMessages(), (Texts{"advdec err: 75 Path/File access error dec 123"}));
  EXPECT_EQ(world.File("trio.fnu"), "TRIO\r\n\r\n");
  EXPECT_EQ(world.File("f_adv.fnu"), "f_adv\r\nAdvancing issues calculated By Vistaplot\r\n");
  world.calc.family.txtADFamFile.SetText(world.Path("no/trio.fnu"));
  world.calc.cmdADFam_Click();
  EXPECT_EQ(world.NewMessages(), (Texts{"Error AD family: 76 Path not found"}));
  EXPECT_EQ(world.calc.family.lblADFamNote.Caption(), "Not written: " + world.Path("no/trio.fnu"));
  world.calc.family.txtADFamFile.SetText("c:\\ql\\f_adv.fnu");
  world.calc.cmdADFam_Click();
  EXPECT_EQ(world.NewMessages(), (Texts{"advdec err: 55 File already open adv 123"}));
}

TEST(FrmCalc, ABetaSeriesIsAFileAndAColumn) {
  CalcWorld world;
  world.SelectColumns(4, 4);  // CCC, from day 100 on: 10, 10.5, 11
  world.calc.beta.txtFnuFile.SetText(world.Path("b.fnu"));
  world.calc.beta.txtFnuSymbol.SetText("TWICE");
  world.calc.beta.txtBeta.SetText("2");
  world.calc.CmdBetaFnu_Click();
  EXPECT_EQ(world.NewMessages(), Texts{});
  const Sheet& sheet = world.state.table.SheetAt(1);
  EXPECT_EQ(sheet.MaxCol, 5);
  EXPECT_EQ(sheet.CellText(1, 5), "TWICE");
  EXPECT_EQ(sheet.CellText(101, 5), "100");
  EXPECT_EQ(sheet.CellText(102, 5), "110");
  EXPECT_EQ(world.Head("b.fnu", 3), "TWICE||\"01/01/2001\",100,0");
  EXPECT_EQ(world.state.selection.SelectedColumns, (std::vector<std::int16_t>{4}));
  world.SelectColumns(2, 2);
  world.calc.CmdBetaFnu_Click();
  EXPECT_EQ(world.state.selection.SelectedColumns, (std::vector<std::int16_t>{2}));
}

TEST(FrmCalc, ARefusedBetaSeriesLeavesTheTableAsItWas) {
  CalcWorld world;
  Sheet& sheet = world.state.table.SheetAt(1);
  world.calc.CmdBetaFnu_Click();
  world.calc.beta.txtFnuFile.SetText(world.Path("no/b.fnu"));
  sheet.selection.clear();
  world.calc.CmdBetaFnu_Click();
  world.SelectColumns(2, 2);
  world.calc.CmdBetaFnu_Click();
  world.calc.beta.txtFnuFile.SetText(world.Path("b.fnu"));
  sheet.SetCellText(3, 2, "n/a");
  world.calc.CmdBetaFnu_Click();
  EXPECT_EQ(world.NewMessages(),
            (Texts{"Please enter a FNU file",
                   "Please select a fund on the Graph Data tab",
                   "error: 76 Path not found",
                   "error: 13 Type mismatch: row 3, column 2"}));
  EXPECT_EQ(sheet.MaxCol, 4);
  EXPECT_EQ(sheet.CellText(1, 5), "");
  EXPECT_EQ(world.File("b.fnu"), "53 File not found");
  EXPECT_EQ(world.screens.frmMain.pnlAction.Caption(), "");
  EXPECT_EQ(world.calc.Pointer(), MousePointer::kDefault);
}

TEST(FrmCalc, BetaStaysWithinFive) {
  CalcWorld world;
  BetaFrame& beta = world.calc.beta;
  for (const auto& [typed, told] : std::vector<std::pair<std::string, std::string>>{
           {"7", "5 \"7\": beta lies between -5 and 5"},
           {"-5.1", "-5 \"-5.1\": beta lies between -5 and 5"},
           {"-5", "-5 "},
           {"2x", "2x \"2x\" counts as 2"},
           {"0.5", "0.5 "}}) {
    beta.txtBeta.SetText(typed);
    beta.txtBeta.RaiseLostFocus();
    EXPECT_EQ(beta.txtBeta.Text() + " " + beta.lblFnuNote.Caption(), told);
  }
  beta.txtFnuNav.SetText("");
  beta.txtFnuNav.RaiseLostFocus();
  EXPECT_EQ(beta.lblFnuNote.Caption(), "\"\" counts as 0");
}

TEST(FrmCalc, ANewSeriesIsListedAndTheSelectionStays) {
  CalcWorld world;
  FrmTab& frmTab = world.screens.frmTab;
  frmTab.lists.OptSelect.SetListIndex(1);
  frmTab.lists.lstIndex.Select({1, 2});
  world.quoteline.AddIssue("$DECL", {1.0F});
  world.quoteline.AddIssue("$NADV", {1.0F});
  world.quoteline.AddIssue("AB", {1.0F});
  world.calc.cmdAD_Click();
  EXPECT_EQ(frmTab.lists.lstIndex.Count(), 6);
  EXPECT_EQ(frmTab.lists.lstIndex.SelectedPositions(), (std::vector<int>{4, 5}));
}

}  // namespace
}  // namespace vistaplot
