#include "forms/frm_tab.h"

#include <cstddef>
#include <string_view>

#include "controls/form.h"
#include "forms/screens.h"
#include "marketdata/service.h"

namespace vistaplot {

namespace {

/// By position: the numbers that the program tests data types by.
constexpr std::array<std::string_view, 6> kDataTypes = {"Zephyrine Summary File",
                                                        "Quoteline Funds, Stocks & FNU files",
                                                        "Vornaxil Fixed File",
                                                        "Kestrelix File",
                                                        "Vistaplot Summary File",
                                                        "Vistaplot Detail File"};

constexpr std::array<std::string_view, 10> kPercents = {
    "100%", "  90%", "  80%", "  70%", "  60%", "  50%", "  40%", "  30%", "  20%", "  10%"};

template <std::size_t N>
std::vector<std::string> Texts(const std::array<std::string_view, N>& texts) {
  return {texts.begin(), texts.end()};
}

}  // namespace

FrmTab::FrmTab(const Context& context)
    : Form("frmTab", "Parameters", FormStyle::kScreen, context.host), context_(context) {
  DesignChoices();
  DesignSelections();
  Add(indicators.Designs());
  indicators.SetDefaults();
  SetHelpTopics();
  indicators.Show(false);
  Connect();
}

void FrmTab::DesignChoices() {
  Add({{&lblDataType, "lblDataType", "Data Type:", At(180, 195, 1740, 255)},
       {&cboDataType, "cboDataType", "", At(1950, 150, 3720, 330)},
       {&lblGraphType, "lblGraphType", "Graph Type:", At(180, 615, 1740, 255)},
       {&cboGraphType, "cboGraphType", "", At(1950, 570, 3720, 330)},
       {&lblXParm, "lblXParm", "X Parameter:", At(180, 1035, 1740, 255)},
       {&cboXParm, "cboXParm", "", At(1950, 990, 3720, 330)},
       {&lblYParm, "lblYParm", "Y Parameter:", At(180, 1455, 1740, 255)},
       {&cboYParm, "cboYParm", "", At(1950, 1410, 3720, 330)},
       {&lblDataField, "lblDataField", "Data Field:", At(180, 1875, 1740, 255)},
       {&cboDataField, "cboDataField", "", At(1950, 1830, 3720, 330)},
       {&lblPercent, "lblPercent", "% of data to graph", At(180, 2295, 1740, 255)},
       {&cboPercent, "cboPercent", "", At(1950, 2250, 1200, 330)},
       {&cmdFileName, "cmdFileName", "File Name", At(180, 2760, 1500, 420)},
       {&lblFileName, "lblFileName", "", At(1950, 2850, 7470, 255)}});
  cboPercent.SetEntries(Texts(kPercents));
}

void FrmTab::DesignSelections() {
  Add({{&lists.fraSelect, "fraSelect", "Selections", At(180, 1050, 2640, 1170)},
       {&lists.OptSelect, "OptSelect", "", At(330, 1350, 2340, 780), &lists.fraSelect},
       {&fraOneAll, "fraOneAll", "Graph", At(3030, 1050, 2640, 1170)},
       {&optOneAll, "optOneAll", "", At(3180, 1350, 2340, 780), &fraOneAll},
       {&cmdPoint, "cmdPoint", "Point and Figure Parameters", At(3030, 1170, 2640, 420)},
       {&lists.lblIndex, "lblIndex", "Fi&nd:", At(180, 2430, 600, 255)},
       {&lists.txtIndex, "txtIndex", "", At(840, 2385, 2760, 330)},
       {&lists.cmdLoadData, "cmdLoadData", "&Load Data", At(3780, 2340, 1890, 420)},
       {&lists.lblFindNote, "lblFindNote", "", At(840, 2760, 4830, 240)},
       {&lists.lstIndex, "lstIndex", "", At(180, 3000, 9240, 4050)},
       {&lists.lstIndex2, "lstIndex2", "", At(180, 3000, 9240, 4050)},
       {&lists.File1, "File1", "", At(180, 3000, 2400, 900)}});
  lists.OptSelect.SetEntries({"Families", "Funds"});
  lists.OptSelect.Preset(0);
  optOneAll.SetEntries({"All Funds", "One at a time"});
  optOneAll.Preset(0);
  lists.lstIndex.multi_select = true;
  lists.lstIndex.fixed_pitch = true;
  lists.lstIndex.SetDescription("Families or funds");
  lists.txtIndex.searched = &lists.lstIndex;
  lists.lstIndex2.SetVisible(false);
  lists.File1.SetVisible(false);
}

void FrmTab::SetHelpTopics() {
  for (Control* control : Controls()) control->SetHelpTopic("Load");
  for (Control* control : std::initializer_list<Control*>{
           &cboXParm, &cboYParm, &cboDataField, &cboPercent, &cmdFileName}) {
    control->SetHelpTopic("Result files");
  }
  optOneAll.SetHelpTopic("Chart");
  cmdPoint.SetHelpTopic("Point and figure");
  indicators.SetHelpTopics();
}

void FrmTab::Connect() {
  cboDataType.Click = [this] { cboDataType_Click(); };
  cboGraphType.Click = [this] { cboGraphType_Click(); };
  lists.OptSelect.Click = [this](int index) { OptSelect_Click(index); };
  optOneAll.Click = [this](int index) { optOneAll_Click(index); };
  lists.txtIndex.Change = [this] { txtIndex_Change(); };
  cmdFileName.Click = [this] { cmdFileName_Click(); };
  lists.cmdLoadData.Click = [this] { cmdLoadData_Click(); };
  cmdPoint.Click = [this] { cmdPoint_Click(); };
  lists.lstIndex.DblClick = [this] { cmdLoadData_Click(); };
  ConnectIndicators();
}

void FrmTab::Form_Load() {
  SharedState& state = context_.state;
  ScaleControls(*this, kDesignWidth, kDesignHeight, Host().Display());
  if (!OpenQuoteline(context_.quoteline, state.market, context_.dialogs)) return;
  state.directories.ZephyrineDir = context_.settings.Get("zpdir");
  state.directories.VornaxilDir = context_.settings.Get("vxdir");
  state.directories.KestrelixDir = context_.settings.Get("kestrldir");
  ReadQuotelineDir(context_.quoteline, state.market, context_.dialogs);
  state.roots.QuotelineDir = state.market.QuotelineDir;
  // Kept for other programs; a settings file that cannot be written must not stop the start.
  const Status kept = context_.settings.Save("qldir", state.market.QuotelineDir);
  if (!kept) context_.dialogs.Say("Settings not saved: " + PlainText(kept.Error()));
  LoadMarketCalendar(context_.quoteline, state.market, context_.dialogs);
  context_.screens.drawing.CalendarLoaded();
  cboDataType.SetEntries(Texts(kDataTypes));
  cboDataType.SetListIndex(0);
  state.point_and_figure = ReadPointAndFigureSettings(context_.settings);
}

// The parameter screen's indicators, of which not all can be drawn together, and the button of the
// point-and-figure parameters.

void FrmTab::ConnectIndicators() {
  indicators.chkMoveAvg.Click = [this] { chkMoveAvg_Click(); };
  indicators.chkAMA.Click = [this] { chkAMA_Click(); };
  indicators.chkParabolic.Click = [this] { chkParabolic_Click(); };
  indicators.chkBollinger.Click = [this] { chkBollinger_Click(); };
  indicators.chkHurst.Click = [this] { chkHurst_Click(); };
  indicators.chkCorrelation.Click = [this] { chkCorrelation_Click(); };
  indicators.chkMem.Click = [this] { chkMem_Click(); };
}

void FrmTab::cmdPoint_Click() {
  context_.screens.frmpfp.ShowParameters();
  context_.screens.frmpfp.ShowModal();
}

void FrmTab::chkMoveAvg_Click() {
  OverlayTicked(indicators.chkMoveAvg);
}

void FrmTab::chkAMA_Click() {
  OverlayTicked(indicators.chkAMA);
}

void FrmTab::chkParabolic_Click() {
  OverlayTicked(indicators.chkParabolic);
}

void FrmTab::chkBollinger_Click() {
  OverlayTicked(indicators.chkBollinger);
}

void FrmTab::OverlayTicked(const CheckBox& box) {
  if (!box.Checked()) return;
  indicators.chkMem.SetChecked(false);
  indicators.chkHurst.SetChecked(false);
  indicators.chkCorrelation.SetChecked(false);
  context_.screens.frmMain.tools.ShowSpectrumTools(false);
}

void FrmTab::chkHurst_Click() {
  if (!indicators.chkHurst.Checked()) return;
  indicators.ClearOverlays();
  indicators.chkMem.SetChecked(false);
  indicators.chkCorrelation.SetChecked(false);
  context_.screens.frmMain.tools.ShowSpectrumTools(false);
}

void FrmTab::chkCorrelation_Click() {
  if (!indicators.chkCorrelation.Checked()) return;
  indicators.ClearOverlays();
  indicators.chkMem.SetChecked(false);
  indicators.chkHurst.SetChecked(false);
  optOneAll.SetListIndex(0);
  context_.screens.frmMain.tools.ShowSpectrumTools(false);
}

void FrmTab::chkMem_Click() {
  if (!indicators.chkMem.Checked()) return;
  indicators.ClearOverlays();
  indicators.chkHurst.SetChecked(false);
  indicators.chkCorrelation.SetChecked(false);
  optOneAll.SetListIndex(1);
  context_.screens.frmGraph.Unload();
  context_.screens.frmMain.tools.ShowSpectrumTools(false);
}

}  // namespace vistaplot
