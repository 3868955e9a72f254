// The charts of result files as the front door asks for them.

#include <cstddef>
#include <string>
#include <vector>

#include "charts/builders/summary_chart.h"
#include "charts/builders/summary_parameters.h"
#include "forms/chart_drawers.h"
#include "forms/screens.h"

namespace vistaplot {

namespace {

// The sheet column behind the chosen entry of a list; 0 without a choice.
int ChosenColumn(const ComboBox& list, const std::vector<ChartField>& fields) {
  const int index = list.ListIndex();
  if (index < 0 || index >= static_cast<int>(fields.size())) return 0;
  return fields[static_cast<std::size_t>(index)].column;
}

ParameterColumn ChosenField(const ComboBox& list, const std::vector<ChartField>& fields) {
  return {std::string(list.CurrentText()), ChosenColumn(list, fields)};
}

}  // namespace

Outcome DrawTestCaseChart(const Context& context, const DrawRequest& request) {
  SharedState& state = context.state;
  const FrmTab& frmTab = context.screens.frmTab;
  FrmGraph& frmGraph = context.screens.frmGraph;
  frmGraph.HScroll1.SetVisible(false);
  const ChartFields fields = TestCaseFields(frmTab.Fields());
  const bool computed =
      frmTab.ChosenDataType() == DataType::kSummary && state.flags.ComputedSummaryShown;
  const TestCaseRequest wanted{.sheets = TestCaseSheets(state.table, computed),
                               .statistic = std::string(frmTab.cboYParm.CurrentText()),
                               .statistic_column = ChosenColumn(frmTab.cboYParm, fields.y),
                               .GraphFraction = state.flags.GraphFraction,
                               .scatter = request.type == GraphType::kCaseScatter,
                               .display = DisplayOf(context)};
  Outcome outcome = BuildTestCaseChart(wanted, state.table, frmGraph.VtChart1.view);
  outcome.end_day = request.end_day;
  return outcome;
}

Outcome DrawParameterChart(const Context& context, const DrawRequest& request) {
  SharedState& state = context.state;
  const FrmTab& frmTab = context.screens.frmTab;
  FrmGraph& frmGraph = context.screens.frmGraph;
  frmGraph.HScroll1.SetVisible(false);
  const ChartFields fields = ParameterFields(frmTab.Fields());
  const ParameterRequest wanted{.x = ChosenField(frmTab.cboXParm, fields.x),
                                .y = ChosenField(frmTab.cboYParm, fields.y),
                                .data = ChosenField(frmTab.cboDataField, fields.data),
                                .GraphFraction = state.flags.GraphFraction,
                                .surface = request.type == GraphType::kSurface,
                                .lower_is_better = LowerIsBetter(frmTab.cboDataField.CurrentText()),
                                .display = DisplayOf(context)};
  Outcome outcome = BuildParameterChart(wanted, state.table, frmGraph.VtChart1.view);
  outcome.end_day = request.end_day;
  return outcome;
}

}  // namespace vistaplot
