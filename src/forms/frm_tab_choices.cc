// The two choices that set the parameter screen up: kind of data, kind of graph.

#include <algorithm>
#include <array>
#include <string_view>

#include "forms/busy_scope.h"
#include "forms/frm_tab.h"
#include "forms/screens.h"

namespace vistaplot {

namespace {

constexpr std::array<std::string_view, 5> kPriceGraphs = {
    "XY Line", "Scatter", "Candlestick line", "Candlestick Bar", "Point and Figure"};
constexpr std::array<std::string_view, 4> kSummaryGraphs = {
    "Contour", "Scatter", "XY Line", "3D Surface"};
constexpr int kSixMonths = 3;  ///< time period that prices start with
constexpr int kKestrelixHeadingRow = 2;
constexpr int kKestrelixHeadings = 9;

std::vector<std::string> NamesOf(const std::vector<ChartField>& fields) {
  std::vector<std::string> names;
  names.reserve(fields.size());
  for (const ChartField& field : fields) names.push_back(field.name);
  return names;
}

/// Fills a list and chooses an entry, where it has any.
void Offer(ComboBox& list, const std::vector<ChartField>& fields, int chosen = 0) {
  list.SetEntries(NamesOf(fields));
  list.SetListIndex(fields.empty() ? -1 : chosen);
}

}  // namespace

void FrmTab::cboDataType_Click() {
  cboGraphType.Clear();
  ForgetLoad();
  context_.state.flags.KestrelixLoaded = false;
  context_.state.flags.ComputedSummaryShown = false;
  context_.screens.frmMain.EnableSorting(false);
  const DataType type = ChosenDataType();
  if (type == DataType::kPrices) {
    SetUpForPrices();
  } else {
    SetUpForResultFiles(type);
  }
  cboGraphType.SetListIndex(0);
}

void FrmTab::SetUpForResultFiles(DataType type) {
  ShowPriceControls(false);
  cboPercent.SetListIndex(0);
  lblFileName.SetCaption("");
  ResetTable(0);
  context_.state.flags.VornaxilKind.clear();
  if (type == DataType::kDetail) {
    cboGraphType.SetEntries({"None"});
  } else {
    cboGraphType.SetEntries({kSummaryGraphs.begin(), kSummaryGraphs.end()});
  }
}

void FrmTab::SetUpForPrices() {
  FrmMain& frmMain = context_.screens.frmMain;
  ShowPriceControls(true);
  lists.txtIndex.SetText("");
  frmMain.ChooseTimePeriod(kSixMonths);
  ResetTable(0);
  cboGraphType.SetEntries({kPriceGraphs.begin(), kPriceGraphs.end()});
  ShowParameterLists(false, false);  // they lie where the lists of issues are about to be filled
  LoadMarketCalendar(context_.quoteline, context_.state.market, context_.dialogs);
  context_.screens.drawing.CalendarLoaded();
  RefreshIssueList();
  context_.state.table.SetSheetCount(2);
}

void FrmTab::ShowPriceControls(bool prices) {
  for (Control* control : std::initializer_list<Control*>{&lists.cmdLoadData,
                                                          &lists.fraSelect,
                                                          &lists.lblIndex,
                                                          &lists.txtIndex,
                                                          &lists.lblFindNote,
                                                          &lists.OptSelect,
                                                          &lists.lstIndex}) {
    control->SetVisible(prices);
  }
  for (Control* control :
       std::initializer_list<Control*>{&cmdFileName, &lblFileName, &lblPercent, &cboPercent}) {
    control->SetVisible(!prices);
  }
  FrmMain& frmMain = context_.screens.frmMain;
  frmMain.periods.mnuTime.SetEnabled(prices);
  frmMain.mnuFamily.SetEnabled(prices);
  frmMain.tools.ShowFundSteps(prices && OneAtATime());
}

void FrmTab::ResetTable(int spare_sheets) {
  context_.state.table.Reset(spare_sheets);
}

void FrmTab::RefreshIssueList() {
  const HourglassScope hourglass(*this);
  if (FamiliesChosen()) {
    ListFamilies();
  } else {
    ListAllIssues();
  }
  ShowFindNote();
}

GraphType FrmTab::ChosenGraph() const {
  const bool prices = ChosenDataType() == DataType::kPrices;
  const auto first = static_cast<int>(prices ? GraphType::kLine : GraphType::kContour);
  const auto last = static_cast<int>(prices ? GraphType::kPointAndFigure : GraphType::kSurface);
  return static_cast<GraphType>(std::clamp(first + cboGraphType.ListIndex(), first, last));
}

void FrmTab::cboGraphType_Click() {
  HideGraphOptions();
  const DataType type = ChosenDataType();
  if (type != DataType::kPrices) {
    cboGraphType.SetHelpTopic("Result files");
    context_.screens.frmPer.Unload();
    FillParameterLists(type);
    return;
  }
  ShowParameterLists(false, false);
  Offer(cboXParm, {{"Date", 1}});
  Offer(cboYParm, {{"NAV", 2}});
  ShowGraphOptions(ChosenGraph());
}

void FrmTab::ShowGraphOptions(GraphType type) {
  const bool one_fund = type == GraphType::kPointAndFigure;
  const bool indicated = type == GraphType::kLine || type == GraphType::kScatter;
  cboGraphType.SetHelpTopic(one_fund ? "Point and figure" : indicated ? "Chart" : "Candles");
  fraOneAll.SetVisible(!one_fund);
  optOneAll.SetVisible(!one_fund);
  cmdPoint.SetVisible(one_fund);
  indicators.Show(indicated);
}

void FrmTab::HideGraphOptions() {
  for (ComboBox* list : {&cboXParm, &cboYParm, &cboDataField}) list->Clear();
  cmdPoint.SetVisible(false);
  optOneAll.SetVisible(false);
  fraOneAll.SetVisible(false);
  indicators.Show(false);
  indicators.ClearAll();
  context_.screens.frmMain.tools.ShowSpectrumTools(false);
}

void FrmTab::FillParameterLists(DataType type) {
  if (type == DataType::kDetail) {
    ShowParameterLists(false, false);
    return;
  }
  const std::string_view graph = cboGraphType.CurrentText();
  const bool cases = graph == "Scatter" || graph == "XY Line";
  const ChartFields fields = cases ? TestCaseFields(Fields()) : ParameterFields(Fields());
  ShowParameterLists(true, !cases);
  Offer(cboXParm, fields.x);
  Offer(cboYParm, fields.y);
  Offer(cboDataField, fields.data, fields.first_data);
}

void FrmTab::ShowParameterLists(bool shown, bool data_field) {
  for (Control* control :
       std::initializer_list<Control*>{&lblXParm, &cboXParm, &lblYParm, &cboYParm}) {
    control->SetVisible(shown);
  }
  lblDataField.SetVisible(data_field);
  cboDataField.SetVisible(data_field);
}

FieldSource FrmTab::Fields() const {
  const SharedState& state = context_.state;
  FieldSource source{.type = ChosenDataType(),
                     .VornaxilKind = state.flags.VornaxilKind,
                     .KestrelixLoaded = state.flags.KestrelixLoaded,
                     .kestrelix_names = {}};
  for (int col = 1; col <= kKestrelixHeadings; ++col) {
    source.kestrelix_names.push_back(state.table.Active().CellText(kKestrelixHeadingRow, col));
  }
  return source;
}

}  // namespace vistaplot
