// The commands that let charts and sheets out: save, print, copy.

#include <cmath>
#include <string>

#include "base/files.h"
#include "base/host_path.h"
#include "forms/busy_scope.h"
#include "forms/frm_main.h"
#include "forms/screens.h"
#include "table/sheet_text.h"

namespace vistaplot {

namespace {

constexpr const char* kNoChart = "There is no chart yet: load data, select funds and choose Graph";
constexpr const char* kNoSheet = "There is no data yet: load data first";

int Pixels(const std::optional<float>& twips) {
  return static_cast<int>(std::lround(twips.value_or(0.0F) / kTwipsPerPixel));
}

bool HasChart(const ChartBox& chart) {
  return chart.view.ColumnCount() > 0;
}

bool HasCells(const Sheet& sheet) {
  return sheet.MaxRow > 0 && sheet.MaxCol > 0;
}

}  // namespace

ChartBox& FrmMain::ShownChart() const {
  Screens& screens = context_.screens;
  const bool three_charts = Host().FrontScreen() == &screens.frmPer ||
                            (!screens.frmGraph.Shown() && screens.frmPer.Shown());
  return three_charts ? screens.frmPer.VtChart1 : screens.frmGraph.VtChart1;
}

bool FrmMain::DataInFront() const {
  return Host().FrontScreen() == &context_.screens.frmData;
}

const MenuItem& FrmMain::SaveCommand() const {
  return DataInFront() ? mnuFileSaveSheet : mnuFileSaveChart;
}

void FrmMain::Tell(const Status& status, std::string_view what) {
  if (!status) context_.dialogs.Say(std::string(what) + ": " + PlainText(status.Error()));
}

void FrmMain::mnuFileSaveChart_Click() {
  const ChartBox& chart = ShownChart();
  if (!HasChart(chart)) return context_.dialogs.Say(kNoChart);
  const auto path = context_.dialogs.ChooseFileToSave(
      {.title = "Save Chart As",
       .filter = "PNG picture (*.png)|*.png|SVG drawing (*.svg)|*.svg|PDF page (*.pdf)|*.pdf",
       .file_name = "chart.png",
       .default_extension = "png",
       .initial_folder = {},
       .overwrite_prompt = true});
  if (!path) return;
  const Place& place = chart.Where();
  Tell(context_.output.SaveChart(chart.view,
                                 HostPath(*path, context_.state.roots),
                                 Pixels(place.Width),
                                 Pixels(place.Height)),
       "The chart was not saved");
}

void FrmMain::mnuFileSaveSheet_Click() {
  const Sheet& sheet = context_.state.table.Active();
  if (!HasCells(sheet)) return context_.dialogs.Say(kNoSheet);
  const auto path = context_.dialogs.ChooseFileToSave({.title = "Save Sheet As",
                                                       .filter = "CSV (*.csv)|*.csv|All (*.*)|*.*",
                                                       .file_name = sheet.SheetName + ".csv",
                                                       .default_extension = "csv",
                                                       .initial_folder = {},
                                                       .overwrite_prompt = true});
  if (!path) return;
  Tell(WriteFileAtomically(HostPath(*path, context_.state.roots), SheetCsv(sheet)),
       "The sheet was not saved");
}

void FrmMain::mnuFilePrint_Click() {
  const bool data = DataInFront();
  const Sheet& sheet = context_.state.table.Active();
  const ChartBox& chart = ShownChart();
  if (data && !HasCells(sheet)) return context_.dialogs.Say(kNoSheet);
  if (!data && !HasChart(chart)) return context_.dialogs.Say(kNoChart);
  Status printed = Done{};
  {
    const BusyScope busy(*this, progress, "Printing...");
    printed =
        data ? context_.output.PrintSheet(sheet, progress) : context_.output.PrintChart(chart.view);
  }
  Tell(printed, data ? "The sheet was not printed" : "The chart was not printed");
}

void FrmMain::mnuEditCopy_Click() {
  const ChartBox& chart = ShownChart();
  if (DataInFront()) {
    const Sheet& sheet = context_.state.table.Active();
    const std::string text = TabbedText(sheet, sheet.selection);
    if (text.empty()) return context_.dialogs.Say("Select cells or columns to copy first");
    Tell(context_.output.CopyText(text), "Nothing was copied");
  } else {
    if (!HasChart(chart)) return context_.dialogs.Say(kNoChart);
    const Place& place = chart.Where();
    Tell(context_.output.CopyChart(chart.view, Pixels(place.Width), Pixels(place.Height)),
         "Nothing was copied");
  }
}

}  // namespace vistaplot
