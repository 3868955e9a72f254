// The commands that draw: graph, time period, next and previous fund, and the tools of the
// maximum-entropy screen.

#include <algorithm>
#include <array>
#include <cstddef>

#include "forms/busy_scope.h"
#include "forms/chart_drawers.h"
#include "forms/frm_main.h"
#include "forms/screens.h"

namespace vistaplot {

void FrmMain::mnuFileGraph_Click() {
  FrmTab& frmTab = context_.screens.frmTab;
  const DataType type = frmTab.ChosenDataType();
  if (type == DataType::kDetail) return;
  if (!context_.state.flags.ResultFileLoaded) {
    context_.dialogs.Say(
        "Please load a Zephyrine Summary file, Vornaxil file, Kestrelix file, Vistaplot Summary "
        "File or Quoteline family");
    return;
  }
  Outcome outcome;
  {
    const BusyScope busy(frmTab, progress, kGraphingAction);
    PrepareSheet(type);
    outcome = context_.screens.drawing.Graph();
  }
  // A refused chart has had its message; the user stays where it can be mended.
  if (outcome.drawn) cmdShowGraph_Click();
}

// The sheet that the chart is about, and how much of a result file is charted.
void FrmMain::PrepareSheet(DataType type) {
  SharedState& state = context_.state;
  if (type == DataType::kPrices) {
    state.table.SetActiveSheet(kPriceSheet);
    return;
  }
  if (type == DataType::kSummary && state.flags.ComputedSummaryShown) {
    state.table.SetActiveSheet(kSummarySheet);
  }
  constexpr std::array<float, 10> kFractions = {
      1.0F, 0.9F, 0.8F, 0.7F, 0.6F, 0.5F, 0.4F, 0.3F, 0.2F, 0.1F};
  const int chosen = context_.screens.frmTab.cboPercent.ListIndex();
  state.flags.GraphFraction = kFractions[static_cast<std::size_t>(std::max(chosen, 0))];
}

void FrmMain::ChooseTimePeriod(int index) {
  periods.Check(index);
  context_.state.selection.TimePeriodIndex = static_cast<std::int16_t>(index);
}

void FrmMain::ChangeTimePeriod(int steps) {
  const int now = context_.state.selection.TimePeriodIndex;
  const int wanted = std::clamp(now + steps, 0, kTimePeriods - 1);
  MenuItem& period = periods.mnuTimePeriod[static_cast<std::size_t>(wanted)];
  if (wanted != now && period.Usable()) period.RaiseClick();
}

void FrmMain::mnuTimePeriod_Click(int index) {
  FrmTab& frmTab = context_.screens.frmTab;
  const BusyScope busy(frmTab, progress, kGraphingAction);
  context_.state.table.SetActiveSheet(kPriceSheet);
  ChooseTimePeriod(index);
  context_.screens.drawing.Redraw();
  frmTab.Refresh();
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
  context_.screens.drawing.Redraw();
}

void FrmMain::cmdSpectBack_Click() {
  StepSpectrumDay(-1);
}

void FrmMain::cmdSpectFwd_Click() {
  StepSpectrumDay(1);
}

void FrmMain::StepSpectrumDay(int step) {
  const std::string refusal =
      StepSpectrum(step, DisplayOf(context_), context_.state.spectrum, ThreeChartsOf(context_));
  if (!refusal.empty()) context_.dialogs.Say(refusal);
}

void FrmMain::cmdClear_Click() {
  ClearForecasts(context_.screens.frmPer.VtChart1.view);
}

}  // namespace vistaplot
