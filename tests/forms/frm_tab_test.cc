#include "forms/frm_tab.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/screen_world.h"

namespace vistaplot::test {
namespace {

using Texts = std::vector<std::string>;

struct ParameterScreen : testing::Test, ScreenWorld {};

struct LoadedParameterScreen : ParameterScreen {
  LoadedParameterScreen() { LoadTrio(); }
};

TEST_F(ParameterScreen, StartReadsSettingsAndSetsTheFirstDataTypeUp) {
  settings.values = {
      {"zpdir", "C:\\ZEPHYR"}, {"pfrange2", "88.5"}, {"pfbox1", "much"}, {"pfrev", "3"}};
  frmMain.Load();
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_EQ(state.directories.ZephyrineDir, "C:\\ZEPHYR");
  EXPECT_EQ(settings.values["qldir"], folder.Path());
  EXPECT_EQ(state.point_and_figure.PfRange[0], 100.0F);
  EXPECT_EQ(state.point_and_figure.PfRange[1], 88.5F);
  EXPECT_EQ(state.point_and_figure.PfBox[0], 1.0F);
  EXPECT_EQ(state.point_and_figure.PfReversal, 2);
  EXPECT_EQ(state.market.calendar.MaxNumDays, kWorldDays);
  EXPECT_EQ(frmTab.cboDataType.ListIndex(), 0);
  EXPECT_TRUE(frmTab.cmdFileName.Visible());
  EXPECT_FALSE(frmTab.lists.cmdLoadData.Visible());
  EXPECT_FALSE(frmMain.periods.mnuTimePeriod[3].Usable());
}

TEST_F(ParameterScreen, SettingsThatCannotBeWrittenAreToldAndDoNotStopTheStart) {
  settings.refuses = true;
  frmMain.Load();
  EXPECT_EQ(dialogs.Texts(), (Texts{"Settings not saved: settings.ini: Disk full"}));
  EXPECT_EQ(frmTab.cboDataType.Count(), 6);
}

TEST_F(ParameterScreen, PricesShowFamiliesAndTheirGraphTypes) {
  Start();
  ASSERT_EQ(frmTab.lists.lstIndex.Count(), 1);
  EXPECT_EQ(frmTab.lists.lstIndex.Entries()[0].substr(0, 20), "TRIO     Three funds");
  EXPECT_EQ(
      frmTab.cboGraphType.Entries(),
      (Texts{"XY Line", "Scatter", "Candlestick line", "Candlestick Bar", "Point and Figure"}));
  EXPECT_EQ(frmTab.cboXParm.CurrentText(), "Date");
  EXPECT_EQ(state.selection.TimePeriodIndex, 3);
  EXPECT_TRUE(frmMain.periods.mnuTimePeriod[3].Checked());
  EXPECT_FALSE(frmMain.periods.mnuTimePeriod[0].Checked());
  EXPECT_EQ(state.table.SheetCount(), 2);
  frmTab.cboGraphType.SetListIndex(4);
  EXPECT_FALSE(frmTab.optOneAll.Visible());
  frmTab.lists.OptSelect.SetListIndex(1);
  EXPECT_EQ(frmTab.lists.lstIndex.Entries()[2], "CCC   Name of CCC");
}

TEST(FrmTab, ResultTypesOfferTheirParameters) {
  struct Case {
    int type;
    int graph;
    Texts x;
    std::string last_y;
    std::size_t data;
  };
  const std::vector<Case> cases = {{0, 0, {"Buy Ranking Period"}, "Sell Ranking Period", 13},
                                   {0, 1, {"Test Case"}, "Strategy Alpha", 0},
                                   {4, 2, {"Test Case"}, "% Winners", 0},
                                   {4, 3, {"Buy Signals In"}, "Sell Signals In", 6},
                                   {2, 0, {}, "", 0},
                                   {3, 1, {}, "", 0},
                                   {5, 0, {}, "", 0}};
  ScreenWorld world;
  world.Start();
  FrmTab& frmTab = world.screens.frmTab;
  for (const Case& one : cases) {
    SCOPED_TRACE(std::to_string(one.type) + " " + std::to_string(one.graph));
    frmTab.cboDataType.SetListIndex(one.type);
    frmTab.cboGraphType.SetListIndex(one.graph);
    EXPECT_EQ(frmTab.cboXParm.Entries(), one.x);
    EXPECT_EQ(frmTab.cboYParm.Count() == 0 ? "" : frmTab.cboYParm.Entries().back(), one.last_y);
    EXPECT_EQ(frmTab.cboDataField.Entries().size(), one.data);
    EXPECT_EQ(frmTab.cboDataField.Visible(), one.type != 5 && (one.graph == 0 || one.graph == 3));
    EXPECT_EQ(world.state.table.SheetCount(), 1);
  }
}

TEST_F(LoadedParameterScreen, LoadsAFamilyWithItsSummaryAndOneSpareSheetEveryTime) {
  Load();
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_EQ(SheetNames(), "TRIO|Summary|Sheet3");
  EXPECT_EQ(state.table.ActiveSheet(), 1);
  EXPECT_EQ(SheetAt(1).MaxRow, 301);
  EXPECT_EQ(SheetAt(1).MaxCol, 4);
  EXPECT_EQ(Cell(1, 2, 1), "01/01/2001");
  EXPECT_EQ(Cell(1, 100, 4) + " " + Cell(1, 101, 4), "-1 10");
  EXPECT_EQ(SheetAt(2).MaxRow, 4);
  EXPECT_EQ(Cell(2, 1, 13), "50 day");
  EXPECT_TRUE(state.flags.ResultFileLoaded);
  EXPECT_FALSE(frmFam.Loaded());
  EXPECT_EQ(frmTab.Pointer(), MousePointer::kDefault);
  EXPECT_FALSE(frmMain.pnlAction.Visible());
}

TEST_F(ParameterScreen, OpenedFamilyAnalysisRulesOneLoadOnly) {
  settings.values["gain6"] = "77";
  Start();
  frmMain.mnuFamilySelect.RaiseClick();
  frmFam.txtDays[5].SetText("20");
  frmFam.cmdOK.RaiseClick();
  frmTab.lists.lstIndex.Select({0});
  Load();
  EXPECT_EQ(Cell(2, 1, 13), "20 day");
  Load();
  EXPECT_EQ(Cell(2, 1, 13), "77 day");
}

TEST_F(ParameterScreen, DateTypedLastCountsAlsoWhenItsBoxWasNotLeft) {
  Start();
  frmMain.mnuFamilySelect.RaiseClick();
  frmFam.txtEndDate.SetText("01/31/2001");
  frmTab.lists.lstIndex.Select({0});
  Load();
  // AAA rises by 1 a day from 100: 130 on 31 January, 129 the day before.
  EXPECT_EQ(Cell(2, 2, 8), "0.775");
}

TEST_F(LoadedParameterScreen, LoadWithoutASelectionSaysWhatToSelectAndLeavesNothingToGraph) {
  SelectColumns(2, 2);
  Graph();
  frmTab.lists.lstIndex.Select({});
  Load();
  Graph();
  ASSERT_EQ(dialogs.messages.size(), 2U);
  EXPECT_EQ(dialogs.messages[0].text, "Please select a Family");
  EXPECT_EQ(dialogs.messages[1].text.substr(0, 11), "Please load");
  EXPECT_EQ(SheetAt(1).MaxCol, 0);
  frmTab.lists.OptSelect.SetListIndex(1);
  Load();
  EXPECT_EQ(dialogs.messages.back().text, "Please select one or more funds or stocks");
  EXPECT_FALSE(state.flags.ResultFileLoaded);
}

TEST_F(ParameterScreen, TypingSelectsTheEntryFoundAloneAndItIsLoaded) {
  WriteFamily("QLDEF/ALPHA.FAM", {"BBB"});
  Start();
  ListBox& list = frmTab.lists.lstIndex;
  list.Select({0, 1});
  frmTab.lists.txtIndex.SetText("tr");
  EXPECT_EQ(list.SelectedPositions(), std::vector<int>{1});
  frmTab.lists.txtIndex.SetText("al");
  Load();
  EXPECT_EQ(SheetAt(1).SheetName, "ALPHA");
}

TEST_F(LoadedParameterScreen, LoadForgetsTheFundsOfTheChart) {
  SelectColumns(2, 3);
  Graph();
  SelectColumns(3, 3);
  Load();
  EXPECT_EQ(state.selection.SelectedCount, 0);
  EXPECT_EQ(state.selection.CurrentFund, 0);
  EXPECT_TRUE(SheetAt(1).selection.empty());
  EXPECT_EQ(Chart().ColumnCount(), 2);  // the old picture stays, its points mean nothing
  PointSelection point{.Series = 1, .DataPoint = 3};
  frmGraph.VtChart1.RaisePointSelected(point);
  EXPECT_TRUE(point.Cancel);
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_TRUE(state.flags.ResultFileLoaded);
  frmTab.lists.OptSelect.SetListIndex(1);
  EXPECT_FALSE(state.flags.ResultFileLoaded);
}

TEST_F(ParameterScreen, StatusLineTellsWhatIsLoadedAndWhatIsWrongWithIt) {
  quoteline.AddIssue("CCC", {1, 0, 3});
  LoadTrio();
  const Panel& status = frmMain.pnlStatus;
  EXPECT_EQ(status.Caption(),
            "TRIO: 3 issues, days 01/01/2001 to 10/27/2001; prices of 0 or below left figures of 1 "
            "issue undefined");
  quoteline.SetDays(SerialFromDate({2001, 1, 1}), 0);
  Load();
  EXPECT_EQ(status.Caption(), "TRIO: 3 issues, no market days yet");
  for (const char* name : {"A", "B", "C", "D"}) {
    WriteFamily("USERDEF/" + std::string(name) + ".FAM", {"AAA"});
  }
  frmTab.lists.OptSelect.SetListIndex(0);
  frmTab.lists.lstIndex.Select({0, 1, 2, 3, 4});
  Load();
  EXPECT_EQ(status.Caption(), "TRIO, A, B and 2 more: 7 issues, no market days yet");
}

TEST_F(ParameterScreen, MenusOfPricesCannotBeUsedForResultFiles) {
  Start();
  for (const int type : {1, 0, 1, 2, 3, 1, 4, 5}) {
    frmTab.cboDataType.SetListIndex(type);
    if (type == 1) frmTab.optOneAll.SetListIndex(1);
    EXPECT_EQ(frmMain.tools.cmdPrev.Visible(), type == 1) << type;
    EXPECT_TRUE(type == 1 || frmTab.cboPercent.ListIndex() == 0) << type;
    frmTab.cboPercent.SetListIndex(5);
    EXPECT_EQ(frmMain.periods.mnuTimePeriod[0].Usable(), type == 1) << type;
    EXPECT_EQ(frmMain.mnuFamilySelect.Usable(), type == 1) << type;
    EXPECT_FALSE(frmMain.mnuEditSort.Usable() || frmMain.tools.cmdSortAll.Usable()) << type;
  }
}

TEST_F(ParameterScreen, NothingLiesOverAnything) {
  Start();
  for (int type = 0; type < frmTab.cboDataType.Count(); ++type) {
    frmTab.cboDataType.SetListIndex(type);
    std::vector<const Control*> seen;
    for (const Control* control : frmTab.Controls()) {
      if (!control->Shown() || control->Kind() == ControlKind::kFrame) continue;
      const Place& it = control->Where();
      for (const Control* other : seen) {
        const Place& at = other->Where();
        EXPECT_TRUE(*it.Left + *it.Width <= *at.Left || *at.Left + *at.Width <= *it.Left ||
                    *it.Top + *it.Height <= *at.Top || *at.Top + *at.Height <= *it.Top)
            << type << ": " << control->Name() << " over " << other->Name();
      }
      seen.push_back(control);
    }
  }
}

}  // namespace
}  // namespace vistaplot::test
