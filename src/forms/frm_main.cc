#include "forms/frm_main.h"

#include <string>
#include <string_view>

#include "base/version.h"
#include "controls/form.h"
#include "forms/date_boxes.h"
#include "forms/screens.h"

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

/// The place of tool `number` - 1 in twips; a gap parts those that show screens from the others.
Place ToolPlace(std::size_t tool) {
  constexpr std::size_t kFirstScreenTool = 8;
  const std::size_t position = tool < kFirstScreenTool ? tool : tool + 1;
  return At(60.0F + 420.0F * static_cast<float>(position), 30.0F, 390.0F, 390.0F);
}

}  // namespace

void TimePeriodMenu::Check(int index) {
  for (MenuItem& period : mnuTimePeriod) period.SetChecked(false);
  mnuTimePeriod[static_cast<std::size_t>(index)].SetChecked(true);
}

std::array<Button*, 12> ToolBar::Buttons() {
  return {&cmdGraph,
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
}

void ToolBar::ShowFundSteps(bool shown) {
  cmdPrev.SetVisible(shown);
  cmdNext.SetVisible(shown);
}

void ToolBar::ShowSpectrumTools(bool shown) {
  for (Button* button : {&cmdSpectBack, &cmdSpectFwd, &cmdClear}) button->SetVisible(shown);
}

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
       {&mnuEditCopy, "mnuEditCopy", "Cop&y", {}, &mnuEdit},
       {&mnuEditSort, "mnuEditSort", "&Sort", {}, &mnuEdit},
       {&mnuEditSortAll, "mnuEditSortAll", "Sort &All", {}, &mnuEdit},
       {&mnuEditCase, "mnuEditCase", "Trades of This &Case", {}, &mnuEdit},
       {&periods.mnuTime, "mnuTime", "&Time Period", {}}});
  for (std::size_t i = 0; i < kPeriodNames.size(); ++i) {
    Add({{&periods.mnuTimePeriod[i],
          "mnuTimePeriod",
          kPeriodNames[i],
          {},
          &periods.mnuTime,
          static_cast<int>(i)}});
  }
  periods.Check(0);
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
       {&mnuHelpManual, "mnuHelpManual", "&Manual", {}, &mnuHelp},
       {&mnuHelpKeys, "mnuHelpKeys", "&Keys", {}, &mnuHelp},
       {&mnuHelpAbout, "mnuHelpAbout", "About", {}, &mnuHelp}});
}

void FrmMain::DesignToolBar() {
  constexpr std::array<std::string_view, 12> kNames = {"cmdGraph",
                                                       "cmdSort",
                                                       "cmdSortAll",
                                                       "cmdPrev",
                                                       "cmdNext",
                                                       "cmdSpectBack",
                                                       "cmdSpectFwd",
                                                       "cmdClear",
                                                       "cmdShowMain",
                                                       "cmdShowData",
                                                       "cmdShowGraph",
                                                       "cmdShowCalc"};
  Add({{&tools.pnlTool, "pnlTool", "", At(0, 0, 9600, 450)}});
  const std::array<Button*, 12> buttons = tools.Buttons();
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    Add({{buttons[i], kNames[i], kTips[i], ToolPlace(i), &tools.pnlTool}});
  }
  Add({{&tools.TxtToolTip, "TxtToolTip", "", At(5640, 75, 2100, 300), &tools.pnlTool},
       {&tools.Timer1, "Timer1", "", {}}});
  tools.Timer1.interval = kTipInterval;
  tools.ShowFundSteps(false);
  tools.ShowSpectrumTools(false);
  tools.TxtToolTip.SetVisible(false);
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
  mnuEditSort.Click = [this] { mnuEditSort_Click(); };
  mnuEditSortAll.Click = [this] { mnuEditSortAll_Click(); };
  mnuEditCase.Click = [this] { mnuEditCase_Click(); };
  mnuFileExit.Click = [this] { mnuFileExit_Click(); };
  for (std::size_t i = 0; i < periods.mnuTimePeriod.size(); ++i) {
    periods.mnuTimePeriod[i].Click = [this, i] { mnuTimePeriod_Click(static_cast<int>(i)); };
  }
  mnuFamilySelect.Click = [this] { mnuFamilySelect_Click(); };
  mnuWindowCascade.Click = [this] { Host().Arrange(WindowArrangement::kCascade); };
  mnuwindowTile.Click = [this] { Host().Arrange(WindowArrangement::kTile); };
  mnuWindowArrange.Click = [this] { Host().Arrange(WindowArrangement::kArrangeIcons); };
  mnuWindowNext.Click = [this] { Host().StepScreen(true); };
  mnuWindowPrevious.Click = [this] { Host().StepScreen(false); };
  mnuWindowFullScreen.Click = [this] { Host().SwitchFullScreen(); };
  mnuHelpManual.Click = [this] { Host().ShowManual(); };
  mnuHelpKeys.Click = [this] { Host().ShowKeys(); };
  mnuHelpAbout.Click = [this] { mnuHelpAbout_Click(); };
}

void FrmMain::ConnectTools() {
  const std::array<Button*, 12> buttons = tools.Buttons();
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    const auto number = static_cast<std::int16_t>(i + 1);
    buttons[i]->tip_number = number;
    buttons[i]->MouseMove = [this, number] {
      context_.state.TipIndex = number;
      ShowTip();
    };
  }
  tools.cmdGraph.Click = [this] { mnuFileGraph_Click(); };
  tools.cmdSort.Click = [this] { cmdSort_Click(); };
  tools.cmdSortAll.Click = [this] { cmdSortAll_Click(); };
  tools.cmdPrev.Click = [this] { cmdPrev_Click(); };
  tools.cmdNext.Click = [this] { cmdNext_Click(); };
  tools.cmdSpectBack.Click = [this] { cmdSpectBack_Click(); };
  tools.cmdSpectFwd.Click = [this] { cmdSpectFwd_Click(); };
  tools.cmdClear.Click = [this] { cmdClear_Click(); };
  tools.cmdShowMain.Click = [this] { cmdShowMain_Click(); };
  tools.cmdShowData.Click = [this] { cmdShowData_Click(); };
  tools.cmdShowGraph.Click = [this] { cmdShowGraph_Click(); };
  tools.cmdShowCalc.Click = [this] { cmdShowCalc_Click(); };
  tools.Timer1.Tick = [this] { ShowTip(); };
}

void FrmMain::Form_Load() {
  ScaleControls(*this, kDesignWidth, kDesignHeight, Host().Display());
  context_.screens.frmTab.Load();
}

void FrmMain::ShowTip() {
  const int tip = context_.state.TipIndex;
  if (tip < 1 || tip > static_cast<int>(kTips.size())) return;
  tools.TxtToolTip.SetText(kTips[static_cast<std::size_t>(tip - 1)]);
  tools.TxtToolTip.SetVisible(true);
}

void FrmMain::HideTip() {
  context_.state.TipIndex = 0;
  tools.TxtToolTip.SetVisible(false);
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
  ListBox& files = context_.screens.frmTab.lists.File1;
  files.SetEntries(ListSignalFiles(context_.state));
  context_.screens.frmCalc.summary.lstSigfiles.SetEntries(SignalNames(files.Entries()));
  context_.screens.frmCalc.Show();
}

void FrmMain::mnuEditCase_Click() {
  context_.screens.frmCalc.ShowCase();
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
