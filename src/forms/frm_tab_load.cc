// The parameter screen's lists of families and issues, and the load of what is selected in them.

#include <algorithm>
#include <set>

#include "base/text.h"
#include "forms/busy_scope.h"
#include "forms/frm_tab.h"
#include "forms/screens.h"
#include "import/family_summary.h"
#include "import/price_load.h"
#include "marketdata/issue_lists.h"

namespace vistaplot {

namespace {

/// The families' names; of more than three the number of the others.
std::string FamilyNames(const std::vector<std::string>& entries) {
  constexpr std::size_t kNamed = 3;
  std::string names;
  for (std::size_t i = 0; i < std::min(entries.size(), kNamed); ++i) {
    names += (i == 0 ? "" : ", ") + FamilyNameOfEntry(entries[i]);
  }
  if (entries.size() <= kNamed) return names;
  return names + " and " + std::to_string(entries.size() - kNamed) + " more";
}

}  // namespace

void FrmTab::ListFamilies() {
  lists.lstIndex.Clear();
  lists.lstIndex2.Clear();
  auto families = vistaplot::ListFamilies(context_.state.market.QuotelineDir,
                                          context_.state.roots,
                                          context_.dialogs,
                                          context_.screens.frmMain.progress);
  if (families) lists.lstIndex.SetEntries(std::move(*families));
}

void FrmTab::ListAllIssues() {
  lists.lstIndex.Clear();
  lists.lstIndex.SetEntries(vistaplot::ListAllIssues(
      context_.quoteline, context_.state.market, context_.screens.frmMain.progress));
}

void FrmTab::RelistIssues() {
  if (ChosenDataType() != DataType::kPrices || FamiliesChosen()) return;
  std::set<std::string> symbols;
  for (const std::string& entry : SelectedEntries()) symbols.insert(SymbolOfEntry(entry));
  ListAllIssues();
  std::vector<int> positions;
  for (int i = 0; i < lists.lstIndex.Count(); ++i) {
    const std::string& entry = lists.lstIndex.Entries()[static_cast<std::size_t>(i)];
    if (symbols.contains(SymbolOfEntry(entry))) positions.push_back(i);
  }
  lists.lstIndex.Select(positions);
}

std::string FrmTab::FirstFamilyName() const {
  const bool shown = ChosenDataType() == DataType::kPrices && FamiliesChosen();
  return shown && lists.lstIndex.Count() > 0 ? FamilyNameOfEntry(lists.lstIndex.Entries().front())
                                             : std::string();
}

void FrmTab::OptSelect_Click(int /*index*/) {
  ResetTable(1);
  ForgetLoad();
  RefreshIssueList();
}

void FrmTab::optOneAll_Click(int index) {
  // Correlation needs all funds, the spectrum works on one at a time.
  if (index == 1 && indicators.chkCorrelation.Checked()) optOneAll.Preset(0);
  if (index == 0 && indicators.chkMem.Checked()) optOneAll.Preset(1);
  context_.screens.frmMain.tools.ShowFundSteps(OneAtATime());
}

void FrmTab::txtIndex_Change() {
  const auto found =
      FindTyped(lists.lstIndex.Entries(), lists.lstIndex.ListIndex(), lists.txtIndex.Text());
  if (found) lists.lstIndex.MoveTo(*found);
  ShowFindNote();
}

// The neighbour that is then selected looks like a find.
void FrmTab::ShowFindNote() {
  constexpr std::size_t kShown = 16;
  const std::string_view key = TrimBlanks(lists.txtIndex.Text());
  const auto& entries = lists.lstIndex.Entries();
  const bool found = std::any_of(entries.begin(), entries.end(), [key](const std::string& entry) {
    return StartsWithIgnoringCase(entry, key);
  });
  std::string note;
  if (!key.empty() && !found) {
    note = std::string(FamiliesChosen() ? "No family" : "No fund or stock") + " begins with \"" +
           std::string(LeftCharacters(key, kShown)) + '"';
  }
  lists.lblFindNote.SetCaption(note);
  lists.txtIndex.SetFault(note);
}

std::vector<std::string> FrmTab::SelectedEntries() const {
  std::vector<std::string> entries;
  for (const int position : lists.lstIndex.SelectedPositions()) {
    entries.push_back(lists.lstIndex.Entries()[static_cast<std::size_t>(position)]);
  }
  return entries;
}

void FrmTab::cmdLoadData_Click() {
  const bool prices = ChosenDataType() == DataType::kPrices;
  {
    const BusyScope busy(*this, context_.screens.frmMain.progress, "Loading Data...");
    if (prices) LoadSelection();
    if (context_.state.load.IssueColumnCount > 0) {
      SummariseLoad();
      return;
    }
  }
  ForgetLoad();
  if (FamiliesChosen()) {
    context_.dialogs.Say("Please select a Family");
  } else if (prices) {
    context_.dialogs.Say("Please select one or more funds or stocks");
  }
  Refresh();
}

void FrmTab::LoadSelection() {
  SharedState& state = context_.state;
  const LoadServices services{context_.quoteline, state.market, state.table, context_.dialogs};
  state.family_records.Resize(0, 0);
  BeginPriceLoad(services, state.load);
  if (FamiliesChosen()) {
    LoadSelectedFamilies(services, state.roots, state.load, SelectedEntries());
  } else {
    LoadSelectedIssues(services, state.load, SelectedEntries());
  }
}

void FrmTab::ForgetLoad() {
  SharedState& state = context_.state;
  Sheet& prices = state.table.SheetAt(kPriceSheet);
  prices.MaxRow = 0;
  prices.MaxCol = 0;
  ForgetSelection();
  state.flags.ResultFileLoaded = false;
  context_.screens.frmMain.pnlStatus.SetCaption("");
}

void FrmTab::ForgetSelection() {
  SharedState& state = context_.state;
  state.table.SheetAt(kPriceSheet).selection.clear();
  state.table.NotifyContent(kPriceSheet);
  state.selection.SelectedCount = 0;
  state.selection.CurrentFund = 0;
}

void FrmTab::SummariseLoad() {
  SharedState& state = context_.state;
  FrmFam& frmFam = context_.screens.frmFam;
  const LoadServices services{context_.quoteline, state.market, state.table, context_.dialogs};
  FinishPriceSheet(services, state.load);
  frmFam.Load();
  const FamilyWindow window = frmFam.Window();
  state.summary_days = frmFam.txtbegDate.Text() + " to " + frmFam.txtEndDate.Text();
  int undefined = 0;
  {
    const BusyScope busy(frmFam, context_.screens.frmMain.progress, "Calculating Family Info...");
    undefined = ComputeFamilySummary(services,
                                     SummarySymbols(),
                                     window,
                                     state.family_records,
                                     context_.screens.frmMain.progress);
  }
  frmFam.Unload();
  FinishPriceLoad(state.table);
  ForgetSelection();
  context_.screens.drawing.CalendarLoaded();
  state.flags.ResultFileLoaded = true;
  context_.screens.frmMain.pnlStatus.SetCaption(LoadedText(undefined));
}

std::string FrmTab::LoadedText(int undefined) const {
  const Sheet& prices = context_.state.table.SheetAt(kPriceSheet);
  const int issues = context_.state.load.IssueColumnCount;
  std::string text = FamiliesChosen() ? FamilyNames(SelectedEntries()) : prices.SheetName;
  text += ": " + std::to_string(issues) + (issues == 1 ? " issue, " : " issues, ");
  if (prices.MaxRow < 2) return text + "no market days yet";
  text += "days " + prices.CellText(2, 1) + " to " + prices.CellText(prices.MaxRow, 1);
  if (undefined == 0) return text;
  return text + "; prices of 0 or below left figures of " + std::to_string(undefined) +
         (undefined == 1 ? " issue undefined" : " issues undefined");
}

std::vector<std::string> FrmTab::SummarySymbols() const {
  if (FamiliesChosen()) return context_.state.load.family_symbols;
  std::vector<std::string> symbols;
  for (const std::string& entry : SelectedEntries()) symbols.push_back(SymbolOfEntry(entry));
  return symbols;
}

}  // namespace vistaplot
