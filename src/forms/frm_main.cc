#include "forms/frm_main.h"

#include <string>
#include <string_view>

#include "base/version.h"
#include "controls/scaling.h"
#include "forms/screens.h"
#include "forms/signal_names.h"

namespace vistaplot {

namespace {

constexpr std::array<std::string_view, 10> kPeriodNames = {"One Month",
                                                           "Two Months",
                                                           "Three Months",
                                                           "Six Months",
                                                           "Nine Months",
                                                           "One Year",
                                                           "Two Years",
                                                           "Three Years",
                                                           "Five Years",
                                                           "All"};

/// Tip texts by tip number - 1.
constexpr std::array<std::string_view, 12> kTips = {"Graph",
                                                    "Sort",
                                                    "Sort All",
                                                    "Previous Fund",
                                                    "Next Fund",
                                                    "Spectrum Backward",
                                                    "Spectrum Foreward",
                                                    "Clear Forecast",
                                                    "Main Screen",
                                                    "Data Screen",
                                                    "Graph Screen",
                                                    "Calculations Screen"};

constexpr int kTipInterval = 500;  ///< milliseconds

/// A tool button's place by its position in the bar, in twips.
Place ToolPlace(int position) {
  return At(60.0F + 420.0F * static_cast<float>(position), 30.0F, 390.0F, 390.0F);
}

}  // namespace

FrmMain::FrmMain(const Context& context)
    : Form("FrmMain", "Vistaplot", FormStyle::kFrame, context.host), context_(context) {
  DesignMenus();
  DesignToolBar();
  DesignPanels();
  ConnectMenus();
  ConnectTools();
}

void FrmMain::DesignMenus() {
  Add({{&mnuFile, "mnuFile", "&File", {}},
       {&mnuFileGraph, "mnuFileGraph", "&Graph", {}, &mnuFile},
       {&mnuFileSaveChart, "mnuFileSaveChart", "Save &Chart As...", {}, &mnuFile},
       {&mnuFileSaveSheet, "mnuFileSaveSheet", "Save S&heet As...", {}, &mnuFile},
       {&mnuFilePrint, "mnuFilePrint", "&Print...", {}, &mnuFile},
       {&mnuFileExit, "mnuFileExit", "E&xit", {}, &mnuFile},
       {&mnuEdit, "mnuEdit", "&Edit", {}},
       {&mnuEditCopy, "mnuEditCopy", "&Copy", {}, &mnuEdit},
       {&mnuEditSort, "mnuEditSort", "&Sort", {}, &mnuEdit},
       {&mnuEditSortAll, "mnuEditSortAll", "Sort &All", {}, &mnuEdit},
       {&mnuTime, "mnuTime", "&Time Period", {}}});
  for (std::size_t i = 0; i < mnuTimePeriod.size(); ++i) {
    Add({{&mnuTimePeriod[i], "mnuTimePeriod", kPeriodNames[i], {}, &mnuTime, static_cast<int>(i)}});
  }
  mnuTimePeriod[0].SetChecked(true);
  Add({{&mnuFamily, "mnuFamily", "F&und Analysis", {}},
       {&mnuFamilySelect, "mnuFamilySelect", "&Parameters", {}, &mnuFamily},
       {&mnuWindow, "mnuWindow", "Window", {}},
       {&mnuWindowCascade, "mnuWindowCascade", "&Cascade", {}, &mnuWindow},
       {&mnuwindowTile, "mnuwindowTile", "&Tile", {}, &mnuWindow},
       {&mnuWindowArrange, "mnuWindowArrange", "&Arrange Icons", {}, &mnuWindow},
       {&mnuWindowNext, "mnuWindowNext", "&Next Screen", {}, &mnuWindow},
       {&mnuWindowPrevious, "mnuWindowPrevious", "&Previous Screen", {}, &mnuWindow},
       {&mnuWindowFullScreen, "mnuWindowFullScreen", "&Full Screen", {}, &mnuWindow},
       {&mnuHelp, "mnuHelp", "Help", {}},
       {&mnuHelpKeys, "mnuHelpKeys", "&Keys", {}, &mnuHelp},
       {&mnuHelpAbout, "mnuHelpAbout", "About", {}, &mnuHelp}});
}

void FrmMain::DesignToolBar() {
  Add({{&pnlTool, "pnlTool", "", At(0, 0, 9600, 450)},
       {&cmdGraph, "cmdGraph", kTips[0], ToolPlace(0), &pnlTool},
       {&cmdSort, "cmdSort", kTips[1], ToolPlace(1), &pnlTool},
       {&cmdSortAll, "cmdSortAll", kTips[2], ToolPlace(2), &pnlTool},
       {&cmdPrev, "cmdPrev", kTips[3], ToolPlace(3), &pnlTool},
       {&cmdNext, "cmdNext", kTips[4], ToolPlace(4), &pnlTool},
       {&cmdSpectBack, "cmdSpectBack", kTips[5], ToolPlace(5), &pnlTool},
       {&cmdSpectFwd, "cmdSpectFwd", kTips[6], ToolPlace(6), &pnlTool},
       {&cmdClear, "cmdClear", kTips[7], ToolPlace(7), &pnlTool},
       {&cmdShowMain, "cmdShowMain", kTips[8], ToolPlace(9), &pnlTool},
       {&cmdShowData, "cmdShowData", kTips[9], ToolPlace(10), &pnlTool},
       {&cmdShowGraph, "cmdShowGraph", kTips[10], ToolPlace(11), &pnlTool},
       {&cmdShowCalc, "cmdShowCalc", kTips[11], ToolPlace(12), &pnlTool},
       {&TxtToolTip, "TxtToolTip", "", At(5640, 75, 2100, 300), &pnlTool},
       {&Timer1, "Timer1", "", {}}});
  Timer1.interval = kTipInterval;
  for (Button* button : {&cmdPrev, &cmdNext, &cmdSpectBack, &cmdSpectFwd, &cmdClear}) {
    button->SetVisible(false);
  }
  TxtToolTip.SetVisible(false);
}

void FrmMain::DesignPanels() {
  Add({{&pnlStatus, "pnlStatus", "", At(0, 6900, 4800, 300)},
       {&pnlAction, "pnlAction", "", At(4800, 6900, 3000, 300)},
       {&pnlMeter, "pnlMeter", "", At(7800, 6900, 1800, 300)}});
  pnlAction.SetVisible(false);
  pnlMeter.SetVisible(false);
}

void FrmMain::ConnectMenus() {
  mnuFileGraph.Click = [this] { mnuFileGraph_Click(); };
  mnuFileSaveChart.Click = [this] { mnuFileSaveChart_Click(); };
  mnuFileSaveSheet.Click = [this] { mnuFileSaveSheet_Click(); };
  mnuFilePrint.Click = [this] { mnuFilePrint_Click(); };
  mnuEditCopy.Click = [this] { mnuEditCopy_Click(); };
  mnuFileExit.Click = [this] { mnuFileExit_Click(); };
  for (std::size_t i = 0; i < mnuTimePeriod.size(); ++i) {
    mnuTimePeriod[i].Click = [this, i] { mnuTimePeriod_Click(static_cast<int>(i)); };
  }
  mnuFamilySelect.Click = [this] { mnuFamilySelect_Click(); };
  mnuWindowCascade.Click = [this] { Host().Arrange(WindowArrangement::kCascade); };
  mnuwindowTile.Click = [this] { Host().Arrange(WindowArrangement::kTile); };
  mnuWindowArrange.Click = [this] { Host().Arrange(WindowArrangement::kArrangeIcons); };
  mnuWindowNext.Click = [this] { Host().StepScreen(true); };
  mnuWindowPrevious.Click = [this] { Host().StepScreen(false); };
  mnuWindowFullScreen.Click = [this] { Host().SwitchFullScreen(); };
  mnuHelpKeys.Click = [this] { Host().ShowKeys(); };
  mnuHelpAbout.Click = [this] { mnuHelpAbout_Click(); };
}

void FrmMain::ConnectTools() {
  const std::array tools = {&cmdGraph,
                            &cmdSort,
                            &cmdSortAll,
                            &cmdPrev,
                            &cmdNext,
                            &cmdSpectBack,
                            &cmdSpectFwd,
                            &cmdClear,
                            &cmdShowMain,
                            &cmdShowData,
                            &cmdShowGraph,
                            &cmdShowCalc};
  for (std::size_t i = 0; i < tools.size(); ++i) {
    const auto number = static_cast<std::int16_t>(i + 1);
    tools[i]->tip_number = number;
    tools[i]->MouseMove = [this, number] {
      context_.state.TipIndex = number;
      ShowTip();
    };
  }
  cmdGraph.Click = [this] { mnuFileGraph_Click(); };
  cmdPrev.Click = [this] { cmdPrev_Click(); };
  cmdNext.Click = [this] { cmdNext_Click(); };
  cmdShowMain.Click = [this] { cmdShowMain_Click(); };
  cmdShowData.Click = [this] { cmdShowData_Click(); };
  cmdShowGraph.Click = [this] { cmdShowGraph_Click(); };
  cmdShowCalc.Click = [this] { cmdShowCalc_Click(); };
  Timer1.Tick = [this] { ShowTip(); };
}

void FrmMain::Form_Load() {
  ScaleControls(*this, kDesignWidth, kDesignHeight, Host().Display());
  context_.screens.frmTab.Load();
}

void FrmMain::ShowTip() {
  const int tip = context_.state.TipIndex;
  if (tip < 1 || tip > static_cast<int>(kTips.size())) return;
  TxtToolTip.SetText(kTips[static_cast<std::size_t>(tip - 1)]);
  TxtToolTip.SetVisible(true);
}

void FrmMain::HideTip() {
  context_.state.TipIndex = 0;
  TxtToolTip.SetVisible(false);
}

void FrmMain::EnableSorting(bool enabled) {
  mnuEditSort.SetEnabled(enabled);
  mnuEditSortAll.SetEnabled(enabled);
  cmdSort.SetEnabled(enabled);
  cmdSortAll.SetEnabled(enabled);
}

void FrmMain::cmdShowMain_Click() {
  context_.screens.frmTab.Show();
}

void FrmMain::cmdShowData_Click() {
  context_.screens.frmData.Show();
}

void FrmMain::cmdShowGraph_Click() {
  if (context_.screens.frmTab.AnalysisTicked()) {
    context_.screens.frmPer.Show();
  } else {
    context_.screens.frmGraph.Show();
  }
}

void FrmMain::cmdShowCalc_Click() {
  ListBox& files = context_.screens.frmTab.File1;
  files.SetEntries(ListSignalFiles(context_.state));
  context_.screens.frmCalc.lstSigfiles.SetEntries(SignalNames(files.Entries()));
  context_.screens.frmCalc.Show();
}

void FrmMain::mnuFamilySelect_Click() {
  context_.screens.frmFam.Show();
}

void FrmMain::mnuHelpAbout_Click() {
  context_.dialogs.Say(std::string("Vistaplot version ") + kVersion);
}

void FrmMain::mnuFileExit_Click() {
  Unload();
  context_.screens.frmTab.Unload();
  context_.dialogs.EndProgram(false);
}

}  // namespace vistaplot
