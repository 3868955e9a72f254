#include "forms/frm_tab.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/screen_world.h"

namespace vistaplot {
namespace {

using test::ScreenWorld;
using Texts = std::vector<std::string>;

TEST(FrmTab, StartReadsSettingsAndSetsTheFirstDataTypeUp) {
  ScreenWorld world;
  world.settings.values = {
      {"zpdir", "C:\\ZEPHYR"}, {"pfrange2", "88.5"}, {"pfbox1", "much"}, {"pfrev", "3"}};
  world.screens.frmMain.Load();
  EXPECT_TRUE(world.dialogs.messages.empty());
  EXPECT_EQ(world.state.directories.ZephyrineDir, "C:\\ZEPHYR");
  EXPECT_EQ(world.settings.values["qldir"], world.folder.Path());
  EXPECT_EQ(world.state.point_and_figure.PfRange[0], 100.0F);
  EXPECT_EQ(world.state.point_and_figure.PfRange[1], 88.5F);
  EXPECT_EQ(world.state.point_and_figure.PfBox[0], 1.0F);
  EXPECT_EQ(world.state.point_and_figure.PfReversal, 2);
  EXPECT_EQ(world.state.market.calendar.MaxNumDays, test::kWorldDays);
  EXPECT_EQ(world.screens.frmTab.cboDataType.ListIndex(), 0);
  EXPECT_TRUE(world.screens.frmTab.cmdFileName.Visible());
  EXPECT_FALSE(world.screens.frmTab.lists.cmdLoadData.Visible());
  EXPECT_FALSE(world.screens.frmMain.periods.mnuTimePeriod[3].Usable());
}

TEST(FrmTab, ServiceThatDoesNotOpenEndsTheProgramAfterItsBox) {
  ScreenWorld world;
  world.quoteline.open_status = -1;
  world.screens.frmMain.Load();
  EXPECT_EQ(world.dialogs.Texts(),
            (Texts{"Unable to open Quoteline DLL\runable to open database file\r(error -1)"}));
  EXPECT_TRUE(world.dialogs.ended_fatally);
  EXPECT_EQ(world.screens.frmTab.cboDataType.Count(), 0);
}

TEST(FrmTab, SettingsThatCannotBeWrittenAreToldAndDoNotStopTheStart) {
  ScreenWorld world;
  world.settings.refuses = true;
  world.screens.frmMain.Load();
  EXPECT_EQ(world.dialogs.Texts(), (Texts{"Settings not saved: settings.ini: Disk full"}));
  EXPECT_EQ(world.screens.frmTab.cboDataType.Count(), 6);
}

TEST(FrmTab, PricesShowFamiliesAndTheirGraphTypes) {
  ScreenWorld world;
  world.Start();
  FrmTab& frmTab = world.screens.frmTab;
  ASSERT_EQ(frmTab.lists.lstIndex.Count(), 1);
  EXPECT_EQ(frmTab.lists.lstIndex.Entries()[0].substr(0, 20), "TRIO     Three funds");
  EXPECT_EQ(
      frmTab.cboGraphType.Entries(),
      (Texts{"XY Line", "Scatter", "Candlestick line", "Candlestick Bar", "Point and Figure"}));
  EXPECT_EQ(frmTab.cboXParm.CurrentText(), "Date");
  EXPECT_EQ(world.state.selection.TimePeriodIndex, 3);
  EXPECT_TRUE(world.screens.frmMain.periods.mnuTimePeriod[3].Checked());
  EXPECT_FALSE(world.screens.frmMain.periods.mnuTimePeriod[0].Checked());
  EXPECT_EQ(world.state.table.SheetCount(), 2);
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

TEST(FrmTab, LoadsAFamilyWithItsSummaryAndOneSpareSheetEveryTime) {
  ScreenWorld world;
  world.LoadTrio();
  world.screens.frmTab.lists.cmdLoadData.RaiseClick();
  const DataTable& table = world.state.table;
  EXPECT_TRUE(world.dialogs.messages.empty());
  ASSERT_EQ(table.SheetCount(), 3);
  EXPECT_EQ(table.ActiveSheet(), 1);
  EXPECT_EQ(table.SheetAt(1).SheetName, "TRIO");
  EXPECT_EQ(table.SheetAt(1).MaxRow, 301);
  EXPECT_EQ(table.SheetAt(1).MaxCol, 4);
  EXPECT_EQ(table.SheetAt(1).CellText(2, 1), "01/01/2001");
  EXPECT_EQ(table.SheetAt(1).CellText(100, 4), "-1");
  EXPECT_EQ(table.SheetAt(1).CellText(101, 4), "10");
  EXPECT_EQ(table.SheetAt(2).SheetName, "Summary");
  EXPECT_EQ(table.SheetAt(2).MaxRow, 4);
  EXPECT_EQ(table.SheetAt(2).CellText(1, 13), "50 day");
  EXPECT_TRUE(world.state.flags.ResultFileLoaded);
  EXPECT_FALSE(world.screens.frmFam.Loaded());
  EXPECT_EQ(world.screens.frmTab.Pointer(), MousePointer::kDefault);
  EXPECT_FALSE(world.screens.frmMain.pnlAction.Visible());
}

TEST(FrmTab, LoadWithoutASelectionSaysWhatToSelect) {
  ScreenWorld world;
  world.Start();
  world.screens.frmTab.lists.cmdLoadData.RaiseClick();
  world.screens.frmTab.lists.OptSelect.SetListIndex(1);
  world.screens.frmTab.lists.cmdLoadData.RaiseClick();
  EXPECT_EQ(world.dialogs.Texts(),
            (Texts{"Please select a Family", "Please select one or more funds or stocks"}));
  EXPECT_FALSE(world.state.flags.ResultFileLoaded);
}

TEST(FrmTab, OpenedFamilyAnalysisRulesOneLoadOnly) {
  ScreenWorld world;
  world.settings.values["gain6"] = "77";
  world.Start();
  world.screens.frmMain.mnuFamilySelect.RaiseClick();
  world.screens.frmFam.txtDays[5].SetText("20");
  world.screens.frmFam.cmdOK.RaiseClick();
  world.screens.frmTab.lists.lstIndex.Select({0});
  world.screens.frmTab.lists.cmdLoadData.RaiseClick();
  EXPECT_EQ(world.state.table.SheetAt(2).CellText(1, 13), "20 day");
  world.screens.frmTab.lists.cmdLoadData.RaiseClick();
  EXPECT_EQ(world.state.table.SheetAt(2).CellText(1, 13), "77 day");
}

TEST(FrmTab, DateTypedLastCountsAlsoWhenItsBoxWasNotLeft) {
  ScreenWorld world;
  world.Start();
  world.screens.frmMain.mnuFamilySelect.RaiseClick();
  world.screens.frmFam.txtEndDate.SetText("01/31/2001");
  world.screens.frmTab.lists.lstIndex.Select({0});
  world.screens.frmTab.lists.cmdLoadData.RaiseClick();
  // AAA rises by 1 a day from 100: 130 on 31 January, 129 the day before.
  EXPECT_EQ(world.state.table.SheetAt(2).CellText(2, 8), "0.775");
}

TEST(FrmTab, LoadWithoutASelectionLeavesNothingToGraph) {
  ScreenWorld world;
  world.LoadTrio();
  world.SelectColumns(2, 2);
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  world.screens.frmTab.lists.lstIndex.Select({});
  world.screens.frmTab.lists.cmdLoadData.RaiseClick();
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  ASSERT_EQ(world.dialogs.messages.size(), 2U);
  EXPECT_EQ(world.dialogs.messages[1].text.substr(0, 11), "Please load");
  EXPECT_EQ(world.state.table.SheetAt(1).MaxCol, 0);
}

TEST(FrmTab, TypingFindsTheEntryAndItIsLoaded) {
  ScreenWorld world;
  world.WriteFamily("QLDEF/ALPHA.FAM", {"BBB"});
  world.Start();
  world.screens.frmTab.lists.txtIndex.SetText("al");
  world.screens.frmTab.lists.cmdLoadData.RaiseClick();
  EXPECT_EQ(world.state.table.SheetAt(1).SheetName, "ALPHA");
}

TEST(FrmTab, LoadForgetsTheFundsOfTheChart) {
  ScreenWorld world;
  world.LoadTrio();
  world.SelectColumns(2, 3);
  world.screens.frmMain.mnuFileGraph.RaiseClick();
  world.SelectColumns(3, 3);
  world.screens.frmTab.lists.cmdLoadData.RaiseClick();
  EXPECT_EQ(world.state.selection.SelectedCount, 0);
  EXPECT_EQ(world.state.selection.CurrentFund, 0);
  EXPECT_TRUE(world.state.table.SheetAt(1).selection.empty());
  EXPECT_EQ(world.Chart().ColumnCount(), 2);  // the old picture stays, its points mean nothing
  PointSelection point{.Series = 1, .DataPoint = 3};
  world.screens.frmGraph.VtChart1.RaisePointSelected(point);
  EXPECT_TRUE(point.Cancel);
  EXPECT_TRUE(world.dialogs.messages.empty());
  EXPECT_TRUE(world.state.flags.ResultFileLoaded);
  world.screens.frmTab.lists.OptSelect.SetListIndex(1);
  EXPECT_FALSE(world.state.flags.ResultFileLoaded);
}

TEST(FrmTab, StatusLineTellsWhatIsLoadedAndWhatIsWrongWithIt) {
  ScreenWorld world;
  world.quoteline.AddIssue("CCC", {1, 0, 3});
  world.LoadTrio();
  const Panel& status = world.screens.frmMain.pnlStatus;
  EXPECT_EQ(status.Caption(),
            "TRIO: 3 issues, days 01/01/2001 to 10/27/2001; prices of 0 or below left figures of 1 "
            "issue undefined");
  world.quoteline.SetDays(SerialFromDate({2001, 1, 1}), 0);
  world.screens.frmTab.lists.cmdLoadData.RaiseClick();
  EXPECT_EQ(status.Caption(), "TRIO: 3 issues, no market days yet");
}

TEST(FrmTab, MenusOfPricesCannotBeUsedForResultFiles) {
  ScreenWorld world;
  world.Start();
  FrmMain& frmMain = world.screens.frmMain;
  for (const int type : {1, 0, 1, 2, 3, 1, 4, 5}) {
    world.screens.frmTab.cboDataType.SetListIndex(type);
    EXPECT_EQ(frmMain.periods.mnuTimePeriod[0].Usable(), type == 1) << type;
    EXPECT_EQ(frmMain.mnuFamilySelect.Usable(), type == 1) << type;
    EXPECT_FALSE(frmMain.mnuEditSort.Usable() || frmMain.tools.cmdSortAll.Usable()) << type;
  }
}

TEST(FrmTab, NothingLiesOverAnything) {
  ScreenWorld world;
  world.Start();
  FrmTab& frmTab = world.screens.frmTab;
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

TEST(FrmTab, TypingSelectsTheEntryFoundAlone) {
  ScreenWorld world;
  world.WriteFamily("QLDEF/ALPHA.FAM", {"BBB"});
  world.Start();
  ListBox& list = world.screens.frmTab.lists.lstIndex;
  list.Select({0, 1});
  world.screens.frmTab.lists.txtIndex.SetText("tr");
  EXPECT_EQ(list.SelectedPositions(), std::vector<int>{1});
}

TEST(FrmTab, OneAtATimeShowsTheFundButtons) {
  ScreenWorld world;
  world.Start();
  world.screens.frmTab.optOneAll.SetListIndex(1);
  EXPECT_TRUE(world.screens.frmMain.tools.cmdNext.Visible());
  world.screens.frmTab.optOneAll.SetListIndex(0);
  EXPECT_FALSE(world.screens.frmMain.tools.cmdPrev.Visible());
}

}  // namespace
}  // namespace vistaplot
