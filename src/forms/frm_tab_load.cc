// The parameter screen's lists of families and issues, and the load of what is selected in them.

#include "forms/busy_scope.h"
#include "forms/frm_tab.h"
#include "forms/screens.h"
#include "import/family_summary.h"
#include "import/price_load.h"
#include "marketdata/issue_lists.h"

namespace vistaplot {

void FrmTab::ListFamilies() {
  lstIndex.Clear();
  lstIndex2.Clear();
  auto families = vistaplot::ListFamilies(context_.state.market.QuotelineDir,
                                          context_.state.roots,
                                          context_.dialogs,
                                          context_.screens.frmMain.progress);
  if (families) lstIndex.SetEntries(std::move(*families));
}

void FrmTab::ListAllIssues() {
  lstIndex.Clear();
  lstIndex.SetEntries(vistaplot::ListAllIssues(
      context_.quoteline, context_.state.market, context_.screens.frmMain.progress));
}

void FrmTab::OptSelect_Click(int /*index*/) {
  ResetTable(1);
  RefreshIssueList();
}

void FrmTab::optOneAll_Click(int index) {
  FrmMain& frmMain = context_.screens.frmMain;
  if (index == 1 && chkCorrelation.Checked()) {
    optOneAll.SetListIndex(0);  // correlation needs all funds
  } else if (index == 0 && chkMem.Checked()) {
    optOneAll.SetListIndex(1);  // the spectrum works on one fund at a time
  } else {
    frmMain.cmdNext.SetVisible(index == 1);
    frmMain.cmdPrev.SetVisible(index == 1);
  }
}

void FrmTab::txtIndex_Change() {
  const auto found = FindTyped(lstIndex.Entries(), lstIndex.ListIndex(), txtIndex.Text());
  if (found) lstIndex.MoveTo(*found);
}

std::vector<std::string> FrmTab::SelectedEntries() const {
  std::vector<std::string> entries;
  for (const int position : lstIndex.SelectedPositions()) {
    entries.push_back(lstIndex.Entries()[static_cast<std::size_t>(position)]);
  }
  return entries;
}

void FrmTab::cmdLoadData_Click() {
  const bool prices = ChosenDataType() == DataType::kPrices;
  {
    const BusyScope busy(*this, context_.screens.frmMain.progress, "Loading Data...");
    LoadSelection();
    if (context_.state.load.IssueColumnCount > 0) {
      SummariseLoad();
      return;
    }
  }
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
  BeginPriceLoad(services, state.load);
  if (FamiliesChosen()) {
    LoadSelectedFamilies(services, state.roots, state.load, SelectedEntries());
  } else {
    LoadSelectedIssues(services, state.load, SelectedEntries());
  }
}

void FrmTab::SummariseLoad() {
  SharedState& state = context_.state;
  FrmFam& frmFam = context_.screens.frmFam;
  const LoadServices services{context_.quoteline, state.market, state.table, context_.dialogs};
  FinishPriceSheet(services, state.load);
  frmFam.Load();
  const auto window = frmFam.Window();
  if (window) {
    const BusyScope busy(frmFam, context_.screens.frmMain.progress, "Calculating Family Info...");
    ComputeFamilySummary(services,
                         SummarySymbols(),
                         window.Value(),
                         state.family_records,
                         context_.screens.frmMain.progress);
  } else {
    context_.dialogs.Say("error: " + NumberedText(window.Error()));
  }
  frmFam.Unload();
  FinishPriceLoad(state.table);
  state.flags.ResultFileLoaded = true;
}

std::vector<std::string> FrmTab::SummarySymbols() const {
  if (FamiliesChosen()) return context_.state.load.family_symbols;
  std::vector<std::string> symbols;
  for (const std::string& entry : SelectedEntries()) symbols.push_back(SymbolOfEntry(entry));
  return symbols;
}

}  // namespace vistaplot
