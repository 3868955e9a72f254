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

struct FrmCalc : testing::Test, CalcWorld {};

TEST_F(FrmCalc, StartsWithAllDaysAndTheSettingsOfTheExchangeLine) {
  EXPECT_EQ(calc.summary.txtStartDate.Text(), "01/01/2001");
  EXPECT_EQ(calc.summary.txtStartDate2.Text(), "1");
  EXPECT_EQ(calc.summary.txtEndDate.Text(), "10/27/2001");
  EXPECT_EQ(calc.summary.txtEndDate2.Text(), "300");
  EXPECT_EQ(calc.exchange.txtADFile.Text(), folder.Path() + "\\NYADL.FNU");
  EXPECT_EQ(calc.exchange.txtADTitle.Text(), "NYSE Advance/Decline Line");
  settings.values["ADSymbol"] = "MYADL";
  settings.values["ADTitle"] = "  ";
  calc.Unload();
  calc.Load();
  EXPECT_EQ(calc.exchange.txtADSymbol.Text(), "MYADL");
  EXPECT_EQ(calc.exchange.txtADTitle.Text(), "NYSE Advance/Decline Line");
}

TEST_F(FrmCalc, TheFnuChooserProposesWhatTheFileHolds) {
  folder.Write("OLD.FNU", "abc,rest\r\nOld title, cut\r\n");
  dialogs.save_answers = {Path("OLD.FNU")};
  dialogs.input_answers = {"New title"};
  calc.cmdFnuFile_Click();
  ASSERT_EQ(dialogs.inputs.size(), 2U);
  EXPECT_EQ(dialogs.inputs[0].proposed, "Old title");
  EXPECT_EQ(dialogs.inputs[1].proposed, "ABC");
  EXPECT_EQ(calc.beta.txtFnuTitle.Text(), "New title");
  EXPECT_EQ(calc.beta.txtFnuSymbol.Text(), "") << "a cancelled box gives no text";
  calc.beta.txtFnuSymbol.SetText("OLD");
  dialogs.save_answers = {Path("NEW.FNU")};
  calc.cmdFnuFile_Click();
  EXPECT_EQ(dialogs.inputs[2].proposed + dialogs.inputs[3].proposed, "")
      << "a new file has neither title nor symbol";
  dialogs.save_answers = {Path("OLD.FNU")};
  calc.cmdFnuFile_Click();
  EXPECT_EQ(calc.beta.txtFnuTitle.Text(), "") << "cancelled";
}

TEST_F(FrmCalc, GivingUpTheFnuChooserChangesNothing) {
  dialogs.answers = {Answer::kCancel, Answer::kOk};
  calc.cmdADFile_Click();
  EXPECT_EQ(NewMessages(), (Texts{kNoFile, kNoFile}));
  EXPECT_EQ(dialogs.save_requests.size(), 2U);
  EXPECT_EQ(calc.exchange.txtADSymbol.Text(), "NYADL");
}

TEST_F(FrmCalc, AnFnuFileThatEndsTooEarlyEndsTheProgramButNotFromTheCheckBox) {
  folder.Write("SHORT.FNU", "ABC\r\n");
  dialogs.save_answers = {Path("SHORT.FNU"), Path("SHORT.FNU")};
  calc.summary.chkCompFile.SetChecked(true);
  EXPECT_EQ(NewMessages(), (Texts{"error: 62 Input past end of file"}));
  EXPECT_FALSE(dialogs.ended);
  EXPECT_TRUE(calc.summary.chkCompFile.Checked());
  calc.cmdADFamFile_Click();
  EXPECT_EQ(NewMessages(), (Texts{"error: 62 Input past end of file"}));
  EXPECT_TRUE(dialogs.ended_fatally);
}

TEST_F(FrmCalc, TheExchangeLineAddsAdvancersLessDecliners) {
  quoteline.AddIssue("$NADV", std::vector<float>(kWorldDays - 4, 7.0F), 5);
  quoteline.AddIssue("$DECL", std::vector<float>(kWorldDays - 2, 5.0F), 3);
  calc.cmdAD_Click();
  EXPECT_EQ(NewMessages(), Texts{});
  EXPECT_EQ(Head("NYADL.FNU", 7),
            "NYADL|NYSE Advance/Decline Line|\"01/01/2001\",0,0|\"01/02/2001\",0,0|"
            "\"01/03/2001\",-6,0|\"01/04/2001\",-12,0|\"01/05/2001\",-10,0");
  EXPECT_EQ(screens.frmMain.pnlAction.Caption(), "");
  EXPECT_EQ(calc.exchange.lblADNote.Caption(), "300 days written outside the service");
  // The database's issue of a symbol wins over the file's.
  for (const auto& [newest, told] :
       {std::pair(580.0F, ""), std::pair(581.0F, ", hidden by another issue NYADL")}) {
    quoteline.AddIssue("NYADL", {newest}, kWorldDays);
    calc.cmdAD_Click();
    EXPECT_EQ(calc.exchange.lblADNote.Caption(), std::string("300 days written") + told);
  }
  calc.exchange.txtADFile.SetText(Path("no/x.fnu"));
  calc.cmdAD_Click();
  EXPECT_EQ(NewMessages(), (Texts{"error: 76 Path not found"}));
  EXPECT_EQ(calc.exchange.lblADNote.Caption(), "Not written: " + Path("no/x.fnu"));
}

TEST_F(FrmCalc, AMissingBreadthIssueStopsBeforeTheFile) {
  calc.cmdAD_Click();
  quoteline.AddIssue("$NADV", {7.0F}, 5);
  calc.cmdAD_Click();
  EXPECT_EQ(NewMessages(), (Texts{"Fund $NADV not found", "Fund $DECL not found"}));
  EXPECT_EQ(File("NYADL.FNU"), "53 File not found");
  EXPECT_EQ(calc.Pointer(), MousePointer::kDefault);
}

TEST_F(FrmCalc, AFamilyMakesALineAndTwoSideFiles) {
  calc.family.txtADFamFam.SetText(Path("QLDEF/TRIO.FAM"));
  calc.family.txtADFamFile.SetText("c:\\ql\\trio.fnu");
  calc.family.txtADFamTitle.SetText("Trio");
  calc.family.txtADFamSymbol.SetText("TOO LONG");
  calc.cmdADFam_Click();
  EXPECT_EQ(NewMessages(),
            (Texts{"The market-data service takes symbols of 1 to 5 characters without blanks and "
                   "commas: \"TOO LONG\" is written, but it is no issue"}));
  // AAA rises, BBB falls, CCC rises from day 101 on
  EXPECT_EQ(Head("trio.fnu", 3), "TOO LONG|Trio|\"01/01/2001\",0,0");
  EXPECT_TRUE(File("trio.fnu").ends_with("\"10/27/2001\",200,0\r\n"));
  EXPECT_EQ(Head("f_adv.fnu", 3),
            "f_adv|Advancing issues calculated By Vistaplot|\"01/02/2001\",1,0");
  EXPECT_TRUE(File("f_dec.fnu").ends_with("\"10/27/2001\",1,0\r\n"));
  EXPECT_EQ(state.table.SheetAt(1).SheetName, std::string(LeftCharacters(Path(""), 8)));
}

TEST_F(FrmCalc, AMissingFamilyIsTriedOnceUnderTheFirstListedName) {
  calc.cmdADFam_Click();
  EXPECT_EQ(NewMessages(), (Texts{"Please select a family"}));
  calc.family.txtADFamFam.SetText("c:\\ql\\none.fam");
  calc.family.txtADFamFile.SetText(Path("a.fnu"));
  calc.cmdADFam_Click();
  EXPECT_EQ(NewMessages(),
            (Texts{"Error AD family: 53 File not found " + folder.Path() + "\\USERDEF\\TRIO.FAM"}));
  EXPECT_EQ(state.table.SheetAt(1).SheetName, "c:\\ql\\no") << "named before it is read";
  WriteFamily("USERDEF/TRIO.FAM", {});
  calc.family.txtADFamSymbol.SetText("AD");
  calc.cmdADFam_Click();
  EXPECT_EQ(NewMessages(), Texts{});
  EXPECT_TRUE(File("a.fnu").ends_with("\"10/27/2001\",0,0\r\n"));
  screens.frmTab.lists.OptSelect.SetListIndex(1);
  calc.cmdADFam_Click();
  screens.frmTab.lists.OptSelect.SetListIndex(0);
  calc.family.txtADFamFam.SetText("c:\\ql\\none\\none.fam");
  calc.cmdADFam_Click();
  EXPECT_EQ(NewMessages(),
            (Texts{"Error AD family: 53 File not found", "Error AD family: 76 Path not found"}));
}

TEST_F(FrmCalc, ASideFileThatCannotBeMadeLeavesTheFilesAsFarAsTheyGot) {
  folder.MakeFolder("f_dec.fnu");
  calc.family.txtADFamFam.SetText(Path("QLDEF/TRIO.FAM"));
  calc.family.txtADFamFile.SetText(Path("trio.fnu"));
  calc.family.txtADFamSymbol.SetText("TRIO");
  calc.cmdADFam_Click();
  EXPECT_EQ(NewMessages(), (Texts{"advdec err: 75 Path/File access error dec 123"}));
  EXPECT_EQ(File("trio.fnu"), "TRIO\r\n\r\n");
  EXPECT_EQ(File("f_adv.fnu"), "f_adv\r\nAdvancing issues calculated By Vistaplot\r\n");
  calc.family.txtADFamFile.SetText(Path("no/trio.fnu"));
  calc.cmdADFam_Click();
  EXPECT_EQ(NewMessages(), (Texts{"Error AD family: 76 Path not found"}));
  EXPECT_EQ(calc.family.lblADFamNote.Caption(), "Not written: " + Path("no/trio.fnu"));
  calc.family.txtADFamFile.SetText("c:\\ql\\f_adv.fnu");
  calc.cmdADFam_Click();
  EXPECT_EQ(NewMessages(), (Texts{"advdec err: 55 File already open adv 123"}));
}

TEST_F(FrmCalc, ABetaSeriesIsAFileAndAColumn) {
  SelectColumns(4, 4);  // CCC, from day 100 on: 10, 10.5, 11
  calc.beta.txtFnuFile.SetText(Path("b.fnu"));
  calc.beta.txtFnuSymbol.SetText("TWICE");
  calc.beta.txtBeta.SetText("2");
  calc.CmdBetaFnu_Click();
  EXPECT_EQ(NewMessages(), Texts{});
  const Sheet& sheet = state.table.SheetAt(1);
  EXPECT_EQ(sheet.MaxCol, 5);
  EXPECT_EQ(sheet.CellText(1, 5), "TWICE");
  EXPECT_EQ(sheet.CellText(101, 5), "100");
  EXPECT_EQ(sheet.CellText(102, 5), "110");
  EXPECT_EQ(Head("b.fnu", 3), "TWICE||\"01/01/2001\",100,0");
  EXPECT_EQ(state.selection.SelectedColumns, (std::vector<std::int16_t>{4}));
  SelectColumns(2, 2);
  calc.CmdBetaFnu_Click();
  EXPECT_EQ(state.selection.SelectedColumns, (std::vector<std::int16_t>{2}));
}

TEST_F(FrmCalc, ARefusedBetaSeriesLeavesTheTableAsItWas) {
  Sheet& sheet = state.table.SheetAt(1);
  calc.CmdBetaFnu_Click();
  calc.beta.txtFnuFile.SetText(Path("no/b.fnu"));
  sheet.selection.clear();
  calc.CmdBetaFnu_Click();
  SelectColumns(2, 2);
  calc.CmdBetaFnu_Click();
  calc.beta.txtFnuFile.SetText(Path("b.fnu"));
  sheet.SetCellText(3, 2, "n/a");
  calc.CmdBetaFnu_Click();
  EXPECT_EQ(NewMessages(),
            (Texts{"Please enter a FNU file",
                   "Please select a fund on the Graph Data tab",
                   "error: 76 Path not found",
                   "error: 13 Type mismatch: row 3, column 2"}));
  EXPECT_EQ(sheet.MaxCol, 4);
  EXPECT_EQ(sheet.CellText(1, 5), "");
  EXPECT_EQ(File("b.fnu"), "53 File not found");
  EXPECT_EQ(screens.frmMain.pnlAction.Caption(), "");
  EXPECT_EQ(calc.Pointer(), MousePointer::kDefault);
}

TEST_F(FrmCalc, BetaStaysWithinFive) {
  BetaFrame& beta = calc.beta;
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

TEST_F(FrmCalc, ANewSeriesIsListedAndTheSelectionStays) {
  frmTab.lists.OptSelect.SetListIndex(1);
  frmTab.lists.lstIndex.Select({1, 2});
  quoteline.AddIssue("$DECL", {1.0F});
  quoteline.AddIssue("$NADV", {1.0F});
  quoteline.AddIssue("AB", {1.0F});
  calc.cmdAD_Click();
  EXPECT_EQ(frmTab.lists.lstIndex.Count(), 6);
  EXPECT_EQ(frmTab.lists.lstIndex.SelectedPositions(), (std::vector<int>{4, 5}));
}

}  // namespace
}  // namespace vistaplot
