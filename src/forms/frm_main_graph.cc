// The commands that draw: graph, time period, next and previous fund.

#include <array>
#include <cstddef>

#include "forms/busy_scope.h"
#include "forms/frm_main.h"
#include "forms/screens.h"

namespace vistaplot {

void FrmMain::mnuFileGraph_Click() {
  FrmTab& frmTab = context_.screens.frmTab;
  SharedState& state = context_.state;
  if (frmTab.ChosenDataType() == DataType::kDetail) return;
  if (!state.flags.ResultFileLoaded) {
    context_.dialogs.Say(
        "Please load a Zephyrine Summary file, Vornaxil file, Kestrelix file, Vistaplot Summary "
        "File or Quoteline family");
    return;
  }
  {
    const BusyScope busy(frmTab, progress, kGraphingAction);
    state.table.SetActiveSheet(kPriceSheet);
    context_.screens.price_graph.Graph();
  }
  // A refused chart has had its message; the user stays where it can be mended.
  if (!context_.screens.price_graph.Drawn()) return;
  if (!frmTab.AnalysisTicked()) context_.screens.frmGraph.lblboxdate.SetCaption("");
  cmdShowGraph_Click();
}

void FrmMain::mnuTimePeriod_Click(int index) {
  FrmTab& frmTab = context_.screens.frmTab;
  {
    const BusyScope busy(frmTab, progress, kGraphingAction);
    context_.state.table.SetActiveSheet(kPriceSheet);
    for (MenuItem& period : mnuTimePeriod) period.SetChecked(false);
    mnuTimePeriod[static_cast<std::size_t>(index)].SetChecked(true);
    context_.state.selection.TimePeriodIndex = static_cast<std::int16_t>(index);
    context_.screens.price_graph.Redraw();
    frmTab.Refresh();
  }
}

void FrmMain::cmdNext_Click() {
  StepFund(1);
}

void FrmMain::cmdPrev_Click() {
  StepFund(-1);
}

void FrmMain::StepFund(int step) {
  const ProgressScope action(progress, kGraphingAction);
  context_.state.table.SetActiveSheet(kPriceSheet);
  GraphSelection& selection = context_.state.selection;
  selection.CurrentFund = SteppedFund(selection, step);
  context_.screens.price_graph.Redraw();
}

}  // namespace vistaplot
