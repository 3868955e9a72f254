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

  std::string Ranges() const {
    std::string texts;
    for (const TextBox& box : frame.txtSigRange) texts += box.Text() + " ";
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
    CheckOutputs();
  }
  void CheckOutputs() {
    for (CheckBox* box :
         {&frame.chkSigSumFile, &frame.chkSigDetFile, &frame.chkCompSigFile, &frame.chkCompFile}) {
      box->SetChecked(true);
    }
  }
  std::string After(TextBox& box, const std::string& text) {
    Type(box, text);
    return box.Text() + " " + frame.lblSigNote.Caption();
  }
};

struct FrmCalcSignals : testing::Test, SignalWorld {};

TEST_F(FrmCalcSignals, AddKeepsTheSourceAndSetsTheUpperBounds) {
  EXPECT_EQ(frame.lstSigfiles.Entries(), (Texts{"LATE    ", "ONE     ", "TWO     "}));
  EXPECT_EQ(frame.lstSigFam.Entries(), (Texts{"ONE     ", "TWO     "}));
  EXPECT_EQ(Ranges(), "1 2 1 2 ");
  calc.CmdAddSig_Click();
  EXPECT_EQ(frame.lstSigFam.Count(), 4);
  frame.lstSigFam.Select({0, 1, 3});
  calc.cmdRemSig_Click();
  EXPECT_EQ(frame.lstSigFam.Entries(), (Texts{"ONE     "}));
  EXPECT_EQ(Ranges(), "1 1 1 1 ");
}

TEST_F(FrmCalcSignals, ThresholdsStayWithinTheChosenFiles) {
  auto& box = frame.txtSigRange;
  const auto typed = [&](std::size_t i, const std::string& text) {
    Type(box[i], text);
    return box[0].Text() + "-" + box[1].Text() + " " + box[2].Text() + "-" + box[3].Text() + " " +
           frame.lblSigNote.Caption();
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

TEST_F(FrmCalcSignals, TheOtherBoxesAreCheckedAsTheyAreLeft) {
  frame.txtDelay.SetText("2");
  EXPECT_EQ(frame.txtDelay.Text(), "1");
  frame.txtDelay.SetText("-1");
  EXPECT_EQ(frame.txtDelay.Text(), "0");
  Type(frame.txtSigInFund, "ccc");
  EXPECT_EQ(frame.txtSigInFund.Text(), "CCC");
  Type(frame.txtSigInFund, "");
  Type(frame.txtSigOutFund, "zz");
  EXPECT_EQ(NewMessages(), (Texts{"Fund ZZ not found, please re-enter"}));
  EXPECT_EQ(After(frame.txtStartDate, "2/1/01"), "02/01/2001 ");
  EXPECT_EQ(frame.txtStartDate2.Text(), "32");
  EXPECT_EQ(After(frame.txtStartDate, "someday"), "10/27/2001 \"someday\" is no date");
  EXPECT_EQ(After(frame.txtEndDate, "12/31/2005").substr(0, 10), "10/27/2001");
}

TEST_F(FrmCalcSignals, TheTwoDimensionalBoxShowsTheSellRange) {
  const auto shown = [this] {
    std::string all = frame.lblSigRange[0].Caption();
    for (std::size_t i = 0; i < 4; ++i) {
      if (frame.lblSigRange[i].Visible()) all += " l" + std::to_string(i);
      if (frame.txtSigRange[i].Visible()) all += " t" + std::to_string(i);
    }
    return all;
  };
  const std::string one = "Buy and Sell Range l0 t0 l1 t1";
  EXPECT_EQ(shown(), one);
  frame.chkSigRange.SetChecked(true);
  EXPECT_EQ(shown(), "     Buy Range l0 t0 l1 t1 l2 t2 l3 t3");
  frame.chkSigRange.SetChecked(false);
  EXPECT_EQ(shown(), one);
}

TEST_F(FrmCalcSignals, EachChooserAsksForItsKindOfFile) {
  state.market.QuotelineDir = "Q";
  state.directories.ProgramDir = "P ";
  CheckOutputs();
  calc.cmdSigFamFile_Click();
  calc.cmdSaveParms_Click();
  calc.cmdLoadParms_Click();
  Texts asked;
  std::vector<FileRequest> requests = dialogs.save_requests;
  requests.push_back(dialogs.open_requests.back());
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

TEST_F(FrmCalcSignals, ASignalFamilyLoadsBackAndAsksBeforeItOverlays) {
  frame.txtSigRange[1].SetText("1");
  calc.CmdSaveSigFam_Click();
  EXPECT_EQ(frame.txtSigRange[1].Text(), "1") << "nothing was loaded";
  EXPECT_EQ(NewMessages(),
            (Texts{kNoFile, "Please select a Signal Family File Name before saving"}));
  dialogs.save_answers = {Path("A.SFM")};
  calc.cmdSigFamFile_Click();
  EXPECT_EQ(frame.lblSigNote.Caption(), "The list stays: " + Path("A.SFM") + ": File not found");
  calc.CmdSaveSigFam_Click();
  EXPECT_EQ(frame.lblSigNote.Caption(), "2 signal files saved");
  EXPECT_EQ(File("A.SFM"), "\"ONE     \"\r\n\"TWO     \"\r\n");
  frame.lstSigFam.SetEntries({"LATE    "});
  dialogs.save_answers = {Path("A.SFM"), Path("A.SFM")};
  calc.cmdSigFamFile_Click();
  EXPECT_EQ(NewMessages(), (Texts{"Do you want to overlay the selected signal files?"}));
  EXPECT_EQ(frame.lstSigFam.Entries(), (Texts{"LATE    "})) << "No is the default";
  dialogs.answers = {Answer::kYes};
  calc.cmdSigFamFile_Click();
  EXPECT_EQ(frame.lstSigFam.Entries(), (Texts{"ONE     ", "TWO     "}));
  EXPECT_EQ(Ranges(), "1 2 1 2 ");
}

TEST_F(FrmCalcSignals, AnOutputBoxWithoutAFileIsClearedAgain) {
  dialogs.answers = {Answer::kCancel, Answer::kOk};
  frame.chkSigSumFile.SetChecked(true);
  EXPECT_EQ(NewMessages(), (Texts{kNoFile, kNoFile}));
  EXPECT_FALSE(frame.chkSigSumFile.Checked());
  frame.txtSigDetFile.SetText("named.sdt");
  frame.chkSigDetFile.SetChecked(true);
  EXPECT_EQ(dialogs.save_requests.size(), 2U) << "a file is named already";
  frame.chkSigDetFile.SetChecked(false);
  EXPECT_EQ(frame.txtSigDetFile.Text(), "");
}

TEST_F(FrmCalcSignals, ParametersRoundTrip) {
  WantFiles();
  frame.chkSigRange.SetChecked(true);
  Type(frame.txtStartDate, "02/01/2001");
  frame.txtDelay.SetText("0");
  dialogs.save_answers = {Path("A.SPA")};
  calc.cmdSaveParms_Click();
  ASSERT_EQ(File("A.SPA").size(), 327U);
  SignalWorld other;
  other.folder.Write("A.SPA", File("A.SPA"));
  other.dialogs.open_answers = {{other.Path("A.SPA")}};
  other.calc.cmdLoadParms_Click();
  const SignalFrame& loaded = other.frame;
  EXPECT_TRUE(loaded.chkCompFile.Checked());
  EXPECT_EQ(TrimBlanks(loaded.txtSigSumFile.Text()), Path("R.SSM"));
  EXPECT_EQ(loaded.txtCompTitle.Text().size(), 40U) << "texts as stored";
  EXPECT_EQ(loaded.txtStartDate.Text() + " " + loaded.txtStartDate2.Text() + " " +
                loaded.txtDelay.Text() + " " + other.Ranges(),
            "02/01/2001 32 0 1 2 1 2 ");
  EXPECT_EQ(other.NewMessages(), Texts{}) << "the family's name is blank, no chooser opens";
}

TEST_F(FrmCalcSignals, ABoxThatParametersClearEmptiesWhatWasJustLoaded) {
  WantFiles();
  std::vector<std::string_view> too_long;
  const SignalParameters stored{
      .fnu_symbol = "SYM", .fnu_title = "Title", .detail_path = "d.sdt", .start_day = 0};
  const std::string bytes = ParameterBytes(stored, too_long);
  folder.Write("A.SPA", bytes.substr(0, 323));
  folder.Write("B.SPA", bytes.substr(0, 300));
  folder.Write("C.SPA", bytes);
  dialogs.open_answers = {{Path("A.SPA")}, {Path("B.SPA")}, {Path("C.SPA")}};
  Type(frame.txtStartDate, "02/01/2001");
  frame.txtDelay.SetText("0");
  calc.cmdLoadParms_Click();
  EXPECT_EQ(frame.txtCompSymbol.Text(), "");
  EXPECT_EQ(frame.txtSigDetFile.Text(), "");
  EXPECT_EQ(frame.txtStartDate2.Text(), "1") << "an older file starts on day 1";
  EXPECT_EQ(frame.txtDelay.Text(), "1");
  EXPECT_EQ(frame.lblSigNote.Caption(), "An older file: start day and delay are 1");
  calc.cmdLoadParms_Click();
  EXPECT_EQ(frame.lblSigNote.Caption(),
            "The file has 300 bytes, a parameter file 327: check what the boxes hold");
  calc.cmdLoadParms_Click();
  EXPECT_EQ(frame.lblSigNote.Caption(), "There is no market day 0: it became 1");
  calc.cmdLoadParms_Click();
  calc.cmdSaveParms_Click();
  frame.txtSigRange[0].SetText("40000");
  calc.cmdSaveParms_Click();
  EXPECT_EQ(NewMessages(),
            (Texts{"Parameter file not loaded", "Parameter file not saved", "error: 6 Overflow"}));
}

TEST_F(FrmCalcSignals, ARunWritesSheetsAndFilesThatAgree) {
  WantFiles();
  calc.cmdSigSum_Click();
  EXPECT_EQ(NewMessages(), Texts{});
  const DataTable& table = state.table;
  ASSERT_EQ(table.SheetCount(), 3);
  EXPECT_EQ(table.SheetAt(1).CellText(1, 4), "# IN");
  EXPECT_EQ(Row(1, 22), "01/21/2001|120|47.5|2|-4.762|");
  // Case 2 holds BBB from 49.875 (day 2). In AAA from 111 (day 12) to 131 (day 32) in case 1, from
  // 121 (day 22) in case 2.
  EXPECT_EQ(Row(3, 3), "1|1|01/02/01|01/12/01|-2.506|");
  EXPECT_EQ(Row(3, 4), "1|1|01/12/01|02/01/01|18.018|");
  EXPECT_EQ(Row(3, 6), "|||||") << "a row ahead of the second case";
  EXPECT_EQ(Row(3, 8), "2|2|01/22/01|02/01/01|8.264|");
  EXPECT_EQ(table.SheetAt(3).MaxRow, 9);
  EXPECT_EQ(Row(2, 3).substr(0, 6), "1|1|1|");
  EXPECT_EQ(table.SheetAt(2).MaxRow, 4);
  EXPECT_EQ(HeadingTip(table.SheetAt(2), 10), "Trades that gained x 100 / switches");
  EXPECT_EQ(table.SheetAt(2).selection.front(), (CellRange{4, 10, 4, 10}));
  EXPECT_EQ(table.ActiveSheet(), 2);
  EXPECT_EQ(File("R.SSM").size(), 2U * 77U);
  EXPECT_EQ(File("R.SSM").substr(0, 10), "1   \t1   \t");
  EXPECT_EQ(File("R.SDT").size(), 6U * 40U);
  EXPECT_EQ(File("R.SIG"),
            "\"314Vistaplot Composite Signal\"\r\nS,01/01/2001\r\nB,01/11/2001\r\nS,01/31/2001\r\n"
            "S,01/01/2001\r\nB,01/21/2001\r\nS,01/31/2001\r\n");
  EXPECT_EQ(Head("R.FNU", 3), "BOTH|Both|\"01/01/2001\",1,0");
  EXPECT_TRUE(state.flags.ComputedSummaryShown && state.flags.ResultFileLoaded &&
              state.flags.KestrelixLoaded);
  EXPECT_EQ(screens.frmTab.cboDataType.ListIndex(), 4);
  EXPECT_TRUE(screens.frmMain.mnuEditSort.Enabled());
  EXPECT_FALSE(screens.frmMain.pnlMeter.Visible());
}

TEST_F(FrmCalcSignals, ARunFollowsDaysDelayAndBothRangesOfItsBoxes) {
  Type(frame.txtStartDate, "01/05/2001");
  Type(frame.txtEndDate, "02/09/2001");
  frame.txtDelay.SetText("0");
  frame.chkSigRange.SetChecked(true);
  Type(frame.txtSigRange[2], "0");
  Type(frame.txtSigRange[3], "1");
  calc.cmdSigSum_Click();
  ASSERT_EQ(state.table.SheetCount(), 2);
  EXPECT_EQ(state.table.SheetAt(2).MaxRow, 6);
  EXPECT_EQ(Row(2, 4), "2|1|1|276.638|41.7|2.432|02/09/01|0.836|324.331|25.00|");
  EXPECT_EQ(Row(2, 5), "3|2|0|15.931|41.7|3.797|01/21/01|1.823|5.775|25.00|");
  state.table.SheetAt(2).Select({5, 1, 5, 10});
  screens.frmMain.mnuEditCase_Click();
  EXPECT_EQ(Row(3, 4), "2|0|01/21/01|01/31/01|8.333|01/06/2001|-0.253|");
  frame.txtSigRange[0].SetText("40000");
  calc.cmdSigSum_Click();
  EXPECT_EQ(NewMessages(), (Texts{"error: 6 Overflow: txtSigRange"}));
}

TEST_F(FrmCalcSignals, ARefusedRunTouchesNothing) {
  WantFiles();
  for (const auto& [in, out] : {std::pair("   ", "BBB"), {"CCC", ""}, {"CCC", "NONE"}}) {
    frame.txtSigInFund.SetText(in);
    frame.txtSigOutFund.SetText(out);
    calc.cmdSigSum_Click();
  }
  frame.txtSigOutFund.SetText("BBB");
  frame.lstSigFam.AddEntry("NOFILE  ");
  calc.cmdSigSum_Click();
  EXPECT_EQ(NewMessages(),
            (Texts{"Please enter an In Market Fund",
                   "Please enter an Out of Market Fund",
                   "No day on which both funds have a price",
                   "error: 53 File not found " + Path("SIG/NOFILE.SIG")}));
  EXPECT_EQ(state.table.SheetAt(1).SheetName, "TRIO");
  EXPECT_EQ(screens.frmTab.cboDataType.ListIndex(), 1);
  EXPECT_EQ(File("R.SSM"), "53 File not found");
}

TEST_F(FrmCalcSignals, AnOutputFileThatCannotBeMadeEndsTheRun) {
  WantFiles();
  const std::pair<TextBox*, std::string> outputs[] = {{&frame.txtSigSumFile, "Sig Summary"},
                                                      {&frame.txtCompFile, "Sig Comp"},
                                                      {&frame.txtSigDetFile, "Sig Detail"},
                                                      {&frame.txtCompSigFile, "Composite Signal"}};
  for (const auto& [box, kind] : outputs) {
    const std::string named = box->Text();
    for (const std::string& wrong : {Path("no/R"), std::string()}) {
      box->SetText(wrong);
      calc.cmdSigSum_Click();
    }
    box->SetText(named);
    const std::string valid = "file name and path to make sure it is a valid ";
    const std::string end =
        "DOS name (1-8 characters.1-3 characters).  For example, C:\\ZEPHYR\\TEST.DET";
    EXPECT_EQ(NewMessages(),
              (Texts{kind +
                         " path not found.  Please check detail file name path to make sure it "
                         "is a valid directory and " +
                         end,
                     kind + " file not found.  Please check detail " + valid + end}));
    EXPECT_FALSE(state.flags.ResultFileLoaded);
  }
  EXPECT_EQ(File("R.SSM"), "") << "made before the other failed";
  folder.MakeFolder("F");
  frame.txtCompSigFile.SetText(Path("F"));
  calc.cmdSigSum_Click();
  EXPECT_EQ(NewMessages(), (Texts{"An error has occurred.  Error is: 75 Path/File access error"}));
  EXPECT_EQ(File("R.SSM").size(), 2U * 77U) << "the run goes on without that file";
  frame.txtCompSigFile.SetText(Path("R.SSM"));
  calc.cmdSigSum_Click();
  EXPECT_EQ(NewMessages(), (Texts{"An error has occurred.  Error is: 55 File already open"}));
  EXPECT_EQ(File("R.SSM").size(), 2U * 77U) << "the file opened first stays";
}

TEST_F(FrmCalcSignals, AStoppedRunKeepsItsFinishedCases) {
  WantFiles();
  host.stop_wanted = true;
  calc.cmdSigSum_Click();
  EXPECT_EQ(state.table.SheetAt(2).MaxRow, 3);
  EXPECT_EQ(File("R.SSM").size(), 77U);
  EXPECT_EQ(frame.lblSigNote.Caption(), "Stopped after 1 test case of 2");
  EXPECT_EQ(screens.frmMain.pnlMeter.Percent(), 50);
  EXPECT_TRUE(state.flags.ComputedSummaryShown);
}

TEST_F(FrmCalcSignals, PricesWithoutAResultStopTheRunOrShowZero) {
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

TEST_F(FrmCalcSignals, ACaseShowsItsTradesBehindTheSheetsOfTheRun) {
  screens.frmMain.mnuEditCase_Click();
  WantFiles();
  calc.cmdSigSum_Click();
  const std::string files = File("R.SDT") + File("R.FNU");
  state.table.SheetAt(2).Select({4, 1, 4, 10});
  screens.frmMain.mnuEditCase_Click();
  ASSERT_EQ(state.table.SheetCount(), 4);
  EXPECT_EQ(state.table.ActiveSheet(), 4);
  EXPECT_EQ(state.table.SheetAt(4).SheetName, "CASE 2");
  EXPECT_EQ(Row(4, 4), "2|2|01/22/01|02/01/01|8.264|01/02/2001|0.000|");
  EXPECT_EQ(Row(4, 302), "|||||10/27/2001|" + state.table.SheetAt(1).CellText(301, 5) + "|");
  EXPECT_TRUE(state.flags.ComputedSummaryShown);
  EXPECT_EQ(File("R.SDT") + File("R.FNU"), files);
  state.table.SheetAt(2).Select({1, 1, 1, 1});
  screens.frmMain.mnuEditCase_Click();
  EXPECT_EQ(
      NewMessages(),
      (Texts{"There is no signal summary yet: choose Calc Sig Sum on the calculations screen first",
             "Select the row of a test case on the sheet SUM first"}));
}

}  // namespace
}  // namespace vistaplot
