#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/text.h"
#include "support/calc_world.h"
#include "table/sheet_text.h"

namespace vistaplot {
namespace {

using test::CalcWorld;
using test::kNoFile;
using test::kWorldDays;
using Texts = std::vector<std::string>;

/// Three signal files: ONE buys on day 11, TWO on day 21, both sell on day 31; LATE buys day 41.
struct SignalWorld : CalcWorld {
  SignalFrame& frame = calc.summary;

  SignalWorld() {
    folder.Write("SIG/ONE.SIG", "T\r\nS,01/01/2001\r\nB,01/11/2001\r\nS,01/31/2001\r\n");
    folder.Write("SIG/TWO.SIG", "T\r\nS,01/01/01\r\nB,01/21/01\r\nS,01/31/01\r\n");
    folder.Write("SIG/LATE.SIG", "T\r\nS,01/01/01\r\nB,02/10/01\r\n");
    screens.frmMain.cmdShowCalc_Click();
    frame.lstSigfiles.Select({1, 2});  // ONE and TWO; LATE is first
    calc.CmdAddSig_Click();
    frame.txtSigInFund.SetText("AAA");
    frame.txtSigOutFund.SetText("BBB");
  }

  Texts Ranges() const {
    Texts texts;
    for (const TextBox& box : frame.txtSigRange) texts.push_back(box.Text());
    return texts;
  }
  void Type(TextBox& box, const std::string& text) {
    box.SetText(text);
    box.RaiseLostFocus();
  }
  std::string Row(int sheet, int row) const {
    const Sheet& shown = state.table.SheetAt(sheet);
    std::string texts;
    for (int col = 1; col <= shown.MaxCol; ++col) texts.append(shown.CellText(row, col)) += '|';
    return texts;
  }
  /// Wants all four files, as the user would choose them.
  void WantFiles() {
    dialogs.save_answers = {Path("R.SSM"), Path("R.SDT"), Path("R.SIG"), Path("R.FNU")};
    dialogs.input_answers = {"Both", "BOTH"};
    for (CheckBox* box :
         {&frame.chkSigSumFile, &frame.chkSigDetFile, &frame.chkCompSigFile, &frame.chkCompFile}) {
      box->SetChecked(true);
    }
  }
};

TEST(FrmCalcSignals, AddKeepsTheSourceAndSetsTheUpperBounds) {
  SignalWorld world;
  EXPECT_EQ(world.frame.lstSigfiles.Entries(), (Texts{"LATE    ", "ONE     ", "TWO     "}));
  EXPECT_EQ(world.frame.lstSigFam.Entries(), (Texts{"ONE     ", "TWO     "}));
  EXPECT_EQ(world.Ranges(), (Texts{"1", "2", "1", "2"}));
  world.calc.CmdAddSig_Click();
  EXPECT_EQ(world.frame.lstSigFam.Count(), 4);
  world.frame.lstSigFam.Select({0, 1, 3});
  world.calc.cmdRemSig_Click();
  EXPECT_EQ(world.frame.lstSigFam.Entries(), (Texts{"ONE     "}));
  EXPECT_EQ(world.Ranges(), (Texts{"1", "1", "1", "1"}));
}

TEST(FrmCalcSignals, ThresholdsStayWithinTheChosenFiles) {
  SignalWorld world;
  auto& box = world.frame.txtSigRange;
  const auto typed = [&](std::size_t i, const std::string& text) {
    world.Type(box[i], text);
    return box[0].Text() + "-" + box[1].Text() + " " + box[2].Text() + "-" + box[3].Text() + " " +
           world.frame.lblSigNote.Caption();
  };
  EXPECT_EQ(typed(1, "12"), "1-2 1-2 \"12\" became 2: 2 signal files are combined");
  EXPECT_EQ(typed(0, "-3"), "0-2 1-2 \"-3\" became 0: a threshold is 0 or more");
  EXPECT_EQ(typed(1, "1"), "0-1 1-2 ");
  EXPECT_EQ(typed(0, "2"), "1-1 1-2 \"2\" became 1: the range ends there");
  EXPECT_EQ(typed(1, "0"), "0-0 1-2 \"1\" became 0: the buy range ends at 0");
  box[0].SetText("2");
  EXPECT_EQ(typed(1, "1"), "2-2 1-2 \"1\" became 2: the range begins there");
  EXPECT_EQ(typed(3, "9"), "2-2 1-2 \"9\" became 2: 2 signal files are combined");
  EXPECT_EQ(typed(2, "one"), "2-2 one-2 \"one\" counts as 0");
}

TEST(FrmCalcSignals, TheOtherBoxesAreCheckedAsTheyAreLeft) {
  SignalWorld world;
  world.frame.txtDelay.SetText("2");
  EXPECT_EQ(world.frame.txtDelay.Text(), "1");
  world.frame.txtDelay.SetText("-1");
  EXPECT_EQ(world.frame.txtDelay.Text(), "0");
  world.Type(world.frame.txtSigInFund, "ccc");
  EXPECT_EQ(world.frame.txtSigInFund.Text(), "CCC");
  world.Type(world.frame.txtSigInFund, "");
  world.Type(world.frame.txtSigOutFund, "zz");
  EXPECT_EQ(world.NewMessages(), (Texts{"Fund ZZ not found, please re-enter"}));
  world.Type(world.frame.txtStartDate, "2/1/01");
  EXPECT_EQ(world.frame.txtStartDate.Text(), "02/01/2001");
  EXPECT_EQ(world.frame.txtStartDate2.Text(), "32");
  world.Type(world.frame.txtStartDate, "someday");
  EXPECT_EQ(world.frame.txtStartDate.Text(), "10/27/2001");
  EXPECT_EQ(world.frame.lblSigNote.Caption(), "\"someday\" is no date");
  world.Type(world.frame.txtEndDate, "12/31/2005");
  EXPECT_EQ(world.frame.txtEndDate.Text(), "10/27/2001");
}

TEST(FrmCalcSignals, TheTwoDimensionalBoxShowsTheSellRange) {
  SignalWorld world;
  const auto shown = [&frame = world.frame] {
    std::string all = frame.lblSigRange[0].Caption();
    for (std::size_t i = 0; i < 4; ++i) {
      if (frame.lblSigRange[i].Visible()) all += " l" + std::to_string(i);
      if (frame.txtSigRange[i].Visible()) all += " t" + std::to_string(i);
    }
    return all;
  };
  const std::string one = "Buy and Sell Range l0 t0 l1 t1";
  EXPECT_EQ(shown(), one);
  world.frame.chkSigRange.SetChecked(true);
  EXPECT_EQ(shown(), "     Buy Range l0 t0 l1 t1 l2 t2 l3 t3");
  world.frame.chkSigRange.SetChecked(false);
  EXPECT_EQ(shown(), one);
}

TEST(FrmCalcSignals, EachChooserAsksForItsKindOfFile) {
  SignalWorld world;
  world.state.market.QuotelineDir = "Q";
  world.state.directories.ProgramDir = "P ";
  SignalFrame& frame = world.frame;
  for (CheckBox* box :
       {&frame.chkSigSumFile, &frame.chkSigDetFile, &frame.chkCompSigFile, &frame.chkCompFile}) {
    box->SetChecked(true);
  }
  world.calc.cmdSigFamFile_Click();
  world.calc.cmdSaveParms_Click();
  world.calc.cmdLoadParms_Click();
  Texts asked;
  std::vector<FileRequest> requests = world.dialogs.save_requests;
  requests.push_back(world.dialogs.open_requests.back());
  for (const FileRequest& request : requests) {
    asked.push_back(request.title + "; " + request.filter + " " + request.file_name + " " +
                    request.default_extension + " in " + request.initial_folder +
                    (request.overwrite_prompt ? " asks" : ""));
  }
  const std::string both = "Parameters (*.SPA)|*.SPA|All (*.*)|*.* *.SPA ";
  EXPECT_EQ(asked,
            (Texts{"Select Signal Summary File; SSM (*.SSM)|*.SSM| *.SSM *.SSM in P  asks",
                   "Select Signal Detail File; SDT (*.SDT)|*.SDT| *.SDT *.SDT in P  asks",
                   "Select Signal File; SIG (*.SIG)|*.SIG| *.SIG *.SIG in Q\\SIG asks",
                   "Select FNU File; FNU (*.FNU)|*.FNU| *.FNU *.FNU in Q asks",
                   "Select Signal Family File; SFM (*.SFM)|*.SFM| *.SFM *.SFM in P asks",
                   "Select Parameter Save File; " + both + "*.SPA in P asks",
                   "Select Parameter File; " + both + " in P"}));
}

TEST(FrmCalcSignals, ASignalFamilyLoadsBackAndAsksBeforeItOverlays) {
  SignalWorld world;
  world.frame.txtSigRange[1].SetText("1");
  world.calc.CmdSaveSigFam_Click();
  EXPECT_EQ(world.frame.txtSigRange[1].Text(), "1") << "nothing was loaded";
  EXPECT_EQ(world.NewMessages(),
            (Texts{kNoFile, "Please select a Signal Family File Name before saving"}));
  world.dialogs.save_answers = {world.Path("A.SFM")};
  world.calc.cmdSigFamFile_Click();
  EXPECT_EQ(world.frame.lblSigNote.Caption(),
            "The list stays: " + world.Path("A.SFM") + ": File not found");
  world.calc.CmdSaveSigFam_Click();
  EXPECT_EQ(world.frame.lblSigNote.Caption(), "2 signal files saved");
  EXPECT_EQ(world.File("A.SFM"), "\"ONE     \"\r\n\"TWO     \"\r\n");
  world.frame.lstSigFam.SetEntries({"LATE    "});
  world.dialogs.save_answers = {world.Path("A.SFM"), world.Path("A.SFM")};
  world.calc.cmdSigFamFile_Click();
  EXPECT_EQ(world.NewMessages(), (Texts{"Do you want to overlay the selected signal files?"}));
  EXPECT_EQ(world.frame.lstSigFam.Entries(), (Texts{"LATE    "})) << "No is the default";
  world.dialogs.answers = {Answer::kYes};
  world.calc.cmdSigFamFile_Click();
  EXPECT_EQ(world.frame.lstSigFam.Entries(), (Texts{"ONE     ", "TWO     "}));
  EXPECT_EQ(world.Ranges(), (Texts{"1", "2", "1", "2"}));
}

TEST(FrmCalcSignals, AnOutputBoxWithoutAFileIsClearedAgain) {
  SignalWorld world;
  world.dialogs.answers = {Answer::kCancel, Answer::kOk};
  world.frame.chkSigSumFile.SetChecked(true);
  EXPECT_EQ(world.NewMessages(), (Texts{kNoFile, kNoFile}));
  EXPECT_FALSE(world.frame.chkSigSumFile.Checked());
  world.frame.txtSigDetFile.SetText("named.sdt");
  world.frame.chkSigDetFile.SetChecked(true);
  EXPECT_EQ(world.dialogs.save_requests.size(), 2U) << "a file is named already";
  world.frame.chkSigDetFile.SetChecked(false);
  EXPECT_EQ(world.frame.txtSigDetFile.Text(), "");
}

TEST(FrmCalcSignals, ParametersRoundTrip) {
  SignalWorld world;
  world.WantFiles();
  world.frame.chkSigRange.SetChecked(true);
  world.Type(world.frame.txtStartDate, "02/01/2001");
  world.frame.txtDelay.SetText("0");
  world.dialogs.save_answers = {world.Path("A.SPA")};
  world.calc.cmdSaveParms_Click();
  ASSERT_EQ(world.File("A.SPA").size(), 327U);
  SignalWorld other;
  other.folder.Write("A.SPA", world.File("A.SPA"));
  other.dialogs.open_answers = {{other.Path("A.SPA")}};
  other.calc.cmdLoadParms_Click();
  EXPECT_TRUE(other.frame.chkCompFile.Checked());
  EXPECT_EQ(TrimBlanks(other.frame.txtSigSumFile.Text()), world.Path("R.SSM"));
  EXPECT_EQ(other.frame.txtCompTitle.Text().size(), 40U) << "texts as stored";
  EXPECT_EQ(other.frame.txtStartDate.Text(), "02/01/2001");
  EXPECT_EQ(other.frame.txtStartDate2.Text(), "32");
  EXPECT_EQ(other.frame.txtDelay.Text(), "0");
  EXPECT_EQ(other.Ranges(), (Texts{"1", "2", "1", "2"}));
  EXPECT_EQ(other.NewMessages(), Texts{}) << "the family's name is blank, no chooser opens";
}

TEST(FrmCalcSignals, ABoxThatParametersClearEmptiesWhatWasJustLoaded) {
  SignalWorld world;
  world.WantFiles();
  std::vector<std::string_view> too_long;
  const SignalParameters stored{
      .fnu_symbol = "SYM", .fnu_title = "Title", .detail_path = "d.sdt", .start_day = 0};
  const std::string bytes = ParameterBytes(stored, too_long);
  world.folder.Write("A.SPA", bytes.substr(0, 323));
  world.folder.Write("B.SPA", bytes.substr(0, 300));
  world.folder.Write("C.SPA", bytes);
  world.dialogs.open_answers = {
      {world.Path("A.SPA")}, {world.Path("B.SPA")}, {world.Path("C.SPA")}};
  world.Type(world.frame.txtStartDate, "02/01/2001");
  world.frame.txtDelay.SetText("0");
  world.calc.cmdLoadParms_Click();
  EXPECT_EQ(world.frame.txtCompSymbol.Text(), "");
  EXPECT_EQ(world.frame.txtSigDetFile.Text(), "");
  EXPECT_EQ(world.frame.txtStartDate2.Text(), "1") << "an older file starts on day 1";
  EXPECT_EQ(world.frame.txtDelay.Text(), "1");
  EXPECT_EQ(world.frame.lblSigNote.Caption(), "An older file: start day and delay are 1");
  world.calc.cmdLoadParms_Click();
  EXPECT_EQ(world.frame.lblSigNote.Caption(),
            "The file has 300 bytes, a parameter file 327: check what the boxes hold");
  world.calc.cmdLoadParms_Click();
  EXPECT_EQ(world.frame.lblSigNote.Caption(), "There is no market day 0: it became 1");
  world.calc.cmdLoadParms_Click();
  world.calc.cmdSaveParms_Click();
  world.frame.txtSigRange[0].SetText("40000");
  world.calc.cmdSaveParms_Click();
  EXPECT_EQ(world.NewMessages(),
            (Texts{"Parameter file not loaded", "Parameter file not saved", "error: 6 Overflow"}));
}

TEST(FrmCalcSignals, ARunWritesSheetsAndFilesThatAgree) {
  SignalWorld world;
  world.WantFiles();
  world.calc.cmdSigSum_Click();
  EXPECT_EQ(world.NewMessages(), Texts{});
  const DataTable& table = world.state.table;
  ASSERT_EQ(table.SheetCount(), 3);
  EXPECT_EQ(table.SheetAt(1).CellText(1, 4), "# IN");
  EXPECT_EQ(world.Row(1, 22), "01/21/2001|120|47.5|2|-4.762|");
  // Case 2 holds BBB from 49.875 (day 2). In AAA from 111 (day 12) to 131 (day 32) in case 1, from
  // 121 (day 22) in case 2.
  EXPECT_EQ(world.Row(3, 3), "1|1|01/02/01|01/12/01|-2.506|");
  EXPECT_EQ(world.Row(3, 4), "1|1|01/12/01|02/01/01|18.018|");
  EXPECT_EQ(world.Row(3, 6), "|||||") << "a row ahead of the second case";
  EXPECT_EQ(world.Row(3, 8), "2|2|01/22/01|02/01/01|8.264|");
  EXPECT_EQ(table.SheetAt(3).MaxRow, 9);
  EXPECT_EQ(world.Row(2, 3).substr(0, 6), "1|1|1|");
  EXPECT_EQ(table.SheetAt(2).MaxRow, 4);
  EXPECT_EQ(HeadingTip(table.SheetAt(2), 10), "Trades that gained x 100 / switches");
  EXPECT_EQ(table.SheetAt(2).selection.front(), (CellRange{4, 10, 4, 10}));
  EXPECT_EQ(table.ActiveSheet(), 2);
  EXPECT_EQ(world.File("R.SSM").size(), 2U * 77U);
  EXPECT_EQ(world.File("R.SSM").substr(0, 10), "1   \t1   \t");
  EXPECT_EQ(world.File("R.SDT").size(), 6U * 40U);
  EXPECT_EQ(world.File("R.SIG"),
            "\"314Vistaplot Composite Signal\"\r\nS,01/01/2001\r\nB,01/11/2001\r\nS,01/31/2001\r\n"
            "S,01/01/2001\r\nB,01/21/2001\r\nS,01/31/2001\r\n");
  EXPECT_EQ(world.Head("R.FNU", 3), "BOTH|Both|\"01/01/2001\",1,0");
  EXPECT_TRUE(world.state.flags.ComputedSummaryShown && world.state.flags.ResultFileLoaded &&
              world.state.flags.KestrelixLoaded);
  EXPECT_EQ(world.screens.frmTab.cboDataType.ListIndex(), 4);
  EXPECT_TRUE(world.screens.frmMain.mnuEditSort.Enabled());
  EXPECT_FALSE(world.screens.frmMain.pnlMeter.Visible());
}

TEST(FrmCalcSignals, ARunFollowsDaysDelayAndBothRangesOfItsBoxes) {
  SignalWorld world;
  world.Type(world.frame.txtStartDate, "01/05/2001");
  world.Type(world.frame.txtEndDate, "02/09/2001");
  world.frame.txtDelay.SetText("0");
  world.frame.chkSigRange.SetChecked(true);
  world.Type(world.frame.txtSigRange[2], "0");
  world.Type(world.frame.txtSigRange[3], "1");
  world.calc.cmdSigSum_Click();
  ASSERT_EQ(world.state.table.SheetCount(), 2);
  EXPECT_EQ(world.state.table.SheetAt(2).MaxRow, 6);
  EXPECT_EQ(world.Row(2, 4), "2|1|1|276.638|41.7|2.432|02/09/01|0.836|324.331|25.00|");
  EXPECT_EQ(world.Row(2, 5), "3|2|0|15.931|41.7|3.797|01/21/01|1.823|5.775|25.00|");
  world.state.table.SheetAt(2).Select({5, 1, 5, 10});
  world.screens.frmMain.mnuEditCase_Click();
  EXPECT_EQ(world.Row(3, 4), "2|0|01/21/01|01/31/01|8.333|01/06/2001|-0.253|");
  world.frame.txtSigRange[0].SetText("40000");
  world.calc.cmdSigSum_Click();
  EXPECT_EQ(world.NewMessages(), (Texts{"error: 6 Overflow: txtSigRange"}));
}

TEST(FrmCalcSignals, ARefusedRunTouchesNothing) {
  SignalWorld world;
  world.WantFiles();
  world.frame.txtSigInFund.SetText("   ");
  world.calc.cmdSigSum_Click();
  world.frame.txtSigInFund.SetText("CCC");
  world.frame.txtSigOutFund.SetText("");
  world.calc.cmdSigSum_Click();
  world.frame.txtSigOutFund.SetText("NONE");
  world.calc.cmdSigSum_Click();
  world.frame.txtSigOutFund.SetText("BBB");
  world.frame.lstSigFam.AddEntry("NOFILE  ");
  world.calc.cmdSigSum_Click();
  EXPECT_EQ(world.NewMessages(),
            (Texts{"Please enter an In Market Fund",
                   "Please enter an Out of Market Fund",
                   "No day on which both funds have a price",
                   "error: 53 File not found " + world.Path("SIG/NOFILE.SIG")}));
  EXPECT_EQ(world.state.table.SheetAt(1).SheetName, "TRIO");
  EXPECT_EQ(world.screens.frmTab.cboDataType.ListIndex(), 1);
  EXPECT_EQ(world.File("R.SSM"), "53 File not found");
}

TEST(FrmCalcSignals, AnOutputFileThatCannotBeMadeEndsTheRun) {
  SignalWorld world;
  world.WantFiles();
  const std::pair<TextBox*, std::string> outputs[] = {
      {&world.frame.txtSigSumFile, "Sig Summary"},
      {&world.frame.txtCompFile, "Sig Comp"},
      {&world.frame.txtSigDetFile, "Sig Detail"},
      {&world.frame.txtCompSigFile, "Composite Signal"}};
  for (const auto& [box, kind] : outputs) {
    const std::string named = box->Text();
    for (const std::string& wrong : {world.Path("no/R"), std::string()}) {
      box->SetText(wrong);
      world.calc.cmdSigSum_Click();
    }
    box->SetText(named);
    const std::string end =
        "DOS name (1-8 characters.1-3 characters).  For example, C:\\ZEPHYR\\TEST.DET";
    EXPECT_EQ(world.NewMessages(),
              (Texts{kind +
                         " path not found.  Please check detail file name path to make sure it is "
                         "a valid directory and " +
                         end,
                     kind +
                         " file not found.  Please check detail file name and path to make sure it "
                         "is a valid " +
                         end}));
    EXPECT_FALSE(world.state.flags.ResultFileLoaded);
  }
  EXPECT_EQ(world.File("R.SSM"), "") << "made before the other failed";
  world.folder.MakeFolder("F");
  world.frame.txtCompSigFile.SetText(world.Path("F"));
  world.calc.cmdSigSum_Click();
  EXPECT_EQ(world.NewMessages(),
            (Texts{"An error has occurred.  Error is: 75 Path/File access error"}));
  EXPECT_EQ(world.File("R.SSM").size(), 2U * 77U) << "the run goes on without that file";
  world.frame.txtCompSigFile.SetText(world.Path("R.SSM"));
  world.calc.cmdSigSum_Click();
  EXPECT_EQ(world.NewMessages(), (Texts{"An error has occurred.  Error is: 55 File already open"}));
  EXPECT_EQ(world.File("R.SSM").size(), 2U * 77U) << "the file opened first stays";
}

TEST(FrmCalcSignals, AStoppedRunKeepsItsFinishedCases) {
  SignalWorld world;
  world.WantFiles();
  world.host.stop_wanted = true;
  world.calc.cmdSigSum_Click();
  EXPECT_EQ(world.state.table.SheetAt(2).MaxRow, 3);
  EXPECT_EQ(world.File("R.SSM").size(), 77U);
  EXPECT_EQ(world.frame.lblSigNote.Caption(), "Stopped after 1 test case of 2");
  EXPECT_EQ(world.screens.frmMain.pnlMeter.Percent(), 50);
  EXPECT_TRUE(world.state.flags.ComputedSummaryShown);
}

TEST(FrmCalcSignals, PricesWithoutAResultStopTheRunOrShowZero) {
  struct Row {
    float price;  // of day 12, on which AAA is entered
    int last_day;
    Texts messages;
    std::string figures;  // of case 1
  };
  const Row rows[] = {
      {0.0F, 300, {"error: 11 Division by zero on 01/12/2001"}, "||||||||||"},
      {-0.4F, 300, {"error: 5 Invalid procedure call or argument on 10/27/2001"}, "||||||||||"},
      {1e-20F, 13, {}, "1|1|1|0.000|91.3|2.506|01/12/01|1.420|0.000|33.33|"},
  };
  for (const Row& row : rows) {
    SignalWorld world;
    world.quoteline.issues["AAA"].prices[11] = row.price;
    world.frame.txtEndDate2.SetText(std::to_string(row.last_day));
    world.calc.cmdSigSum_Click();
    EXPECT_EQ(world.NewMessages(), row.messages);
    EXPECT_EQ(world.Row(2, 3), row.figures);
  }
}

TEST(FrmCalcSignals, ACaseShowsItsTradesBehindTheSheetsOfTheRun) {
  SignalWorld world;
  world.screens.frmMain.mnuEditCase_Click();
  world.WantFiles();
  world.calc.cmdSigSum_Click();
  const std::string files = world.File("R.SDT") + world.File("R.FNU");
  world.state.table.SheetAt(2).Select({4, 1, 4, 10});
  world.screens.frmMain.mnuEditCase_Click();
  ASSERT_EQ(world.state.table.SheetCount(), 4);
  EXPECT_EQ(world.state.table.ActiveSheet(), 4);
  EXPECT_EQ(world.state.table.SheetAt(4).SheetName, "CASE 2");
  EXPECT_EQ(world.Row(4, 4), "2|2|01/22/01|02/01/01|8.264|01/02/2001|0.000|");
  EXPECT_EQ(world.Row(4, 302),
            "|||||10/27/2001|" + world.state.table.SheetAt(1).CellText(301, 5) + "|");
  EXPECT_TRUE(world.state.flags.ComputedSummaryShown);
  EXPECT_EQ(world.File("R.SDT") + world.File("R.FNU"), files);
  world.state.table.SheetAt(2).Select({1, 1, 1, 1});
  world.screens.frmMain.mnuEditCase_Click();
  EXPECT_EQ(
      world.NewMessages(),
      (Texts{"There is no signal summary yet: choose Calc Sig Sum on the calculations screen first",
             "Select the row of a test case on the sheet SUM first"}));
}

}  // namespace
}  // namespace vistaplot
