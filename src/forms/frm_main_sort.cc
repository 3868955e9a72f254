// The sort commands of the main window: the active sheet, or all that are loaded.

#include "forms/frm_main.h"
#include "forms/screens.h"

namespace vistaplot {

namespace {

constexpr std::int16_t kComputedSummarySheet = 2;

}  // namespace

void FrmMain::mnuEditSort_Click() {
  SortSheets& sheets = context_.state.sort_sheets;
  sheets.SortFirstSheet = static_cast<std::int16_t>(context_.state.table.ActiveSheet());
  sheets.SortLastSheet = sheets.SortFirstSheet;
  context_.screens.frmSort.ShowSortDialog();
}

void FrmMain::mnuEditSortAll_Click() {
  SortSheets& sheets = context_.state.sort_sheets;
  sheets.SortFirstSheet = 1;
  sheets.SortLastSheet = static_cast<std::int16_t>(context_.state.table.SheetCount() - 1);
  const bool summary = context_.screens.frmTab.ChosenDataType() == DataType::kSummary;
  if (summary && context_.state.flags.ComputedSummaryShown) {
    sheets = {.SortFirstSheet = kComputedSummarySheet, .SortLastSheet = kComputedSummarySheet};
  }
  context_.screens.frmSort.ShowSortDialog();
}

void FrmMain::cmdSort_Click() {
  mnuEditSort_Click();
}

void FrmMain::cmdSortAll_Click() {
  mnuEditSortAll_Click();
}

void FrmMain::EnableSorting(bool enabled) {
  mnuEditSort.SetEnabled(enabled);
  mnuEditSortAll.SetEnabled(enabled);
  tools.cmdSort.SetEnabled(enabled);
  tools.cmdSortAll.SetEnabled(enabled);
}

}  // namespace vistaplot
