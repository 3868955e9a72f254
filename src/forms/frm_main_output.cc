// The commands that let charts and sheets out: save, print, copy.

#include <cmath>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "base/files.h"
#include "base/host_path.h"
#include "base/text.h"
#include "forms/frm_main.h"
#include "forms/screens.h"
#include "table/sheet_text.h"

namespace vistaplot {

namespace {

constexpr int kFundsNamed = 3;  ///< in a proposed file name
constexpr const char* kNoChart = "There is no chart yet: load data, select funds and choose Graph";
constexpr const char* kNoSheet = "There is no data yet: load data first";

int Pixels(const std::optional<float>& twips) {
  return static_cast<int>(std::lround(twips.value_or(0.0F) / kTwipsPerPixel));
}

bool HasChart(const ChartBox& chart) {
  return chart.view.ColumnCount() > 0;
}

/// "2023-12-29" of "12/29/2023"; empty where that is no date.
std::string IsoDay(const std::string& date) {
  const auto serial = ParseDate(date);
  return serial ? DateText(*serial, DatePattern::kIso) : std::string();
}

/// The words as a file's name, with "-" for what a name cannot hold.
std::string FileNameOf(const std::vector<std::string>& words) {
  std::string name;
  for (const std::string& word : words) {
    const std::string_view text = TrimBlanks(word);
    if (text.empty()) continue;
    if (!name.empty()) name += ' ';
    name += text;
  }
  for (char& character : name) {
    if (std::string_view("/\\:*?\"<>|").find(character) != std::string_view::npos) character = '-';
  }
  return name;
}

bool HasCells(const Sheet& sheet) {
  return sheet.MaxRow > 0 && sheet.MaxCol > 0;
}

}  // namespace

bool FrmMain::PricesLoaded() const {
  return context_.state.flags.ResultFileLoaded &&
         context_.screens.frmTab.ChosenDataType() == DataType::kPrices;
}

// Family, "Summary" for the summary, last day; of a result file the sheet's name.
std::vector<std::string> FrmMain::SheetWords() const {
  const DataTable& table = context_.state.table;
  if (!PricesLoaded()) return {table.Active().SheetName};
  const Sheet& prices = table.SheetAt(kPriceSheet);
  return {prices.SheetName,
          table.ActiveSheet() == kSummarySheet ? table.Active().SheetName : std::string(),
          IsoDay(prices.CellText(prices.MaxRow, 1))};
}

// Family, the funds drawn, the last day drawn.
std::vector<std::string> FrmMain::ChartWords() const {
  const DataTable& table = context_.state.table;
  if (!PricesLoaded()) return {table.Active().SheetName};
  const GraphSelection& drawn = context_.state.selection;
  const Sheet& prices = table.SheetAt(kPriceSheet);
  std::vector<std::string> words{prices.SheetName};
  const int funds = drawn.LastFund - drawn.FirstFund + 1;
  if (funds > kFundsNamed) words.push_back(std::to_string(funds) + " funds");
  for (int fund = drawn.FirstFund; funds <= kFundsNamed && fund <= drawn.LastFund; ++fund) {
    words.push_back(prices.CellText(1, drawn.ColumnOf(fund)));
  }
  words.push_back(IsoDay(prices.CellText(drawn.FirstDay + drawn.ChartDays, 1)));
  return words;
}

// What of the sheet is printed: family and days, or its name.
std::string FrmMain::PrintTitle() const {
  const DataTable& table = context_.state.table;
  if (!PricesLoaded()) return table.Active().SheetName;
  const Sheet& prices = table.SheetAt(kPriceSheet);
  if (table.ActiveSheet() == kSummarySheet) {
    return prices.SheetName + " " + table.Active().SheetName + ", " + context_.state.summary_days;
  }
  return prices.SheetName + ", " + prices.CellText(2, 1) + " to " +
         prices.CellText(prices.MaxRow, 1);
}

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

// Asks again after a failure, with what was chosen, until it is saved or given up.
void FrmMain::SaveAs(FileRequest request,
                     std::string_view failure,
                     const std::function<Status(const std::string& path)>& save) {
  std::string& last = context_.state.directories.SaveDir;
  request.initial_folder = last.empty() ? DocumentsFolder() : last;
  while (const auto path = context_.dialogs.ChooseFileToSave(request)) {
    const std::filesystem::path file = HostPath(*path, context_.state.roots);
    const std::string folder = file.parent_path().string();
    const Status saved = save(file.string());
    if (saved) {
      last = folder;
      TellSaved(file.string());
      return;
    }
    Tell(saved, failure);
    if (FolderExists(folder)) request.initial_folder = folder;
    request.file_name = file.filename().string();
  }
}

void FrmMain::TellSaved(const std::string& what) {
  constexpr std::string_view kSaved = "Saved ";
  constexpr std::string_view kBehind = ". Saved ";
  const std::string& shown = pnlStatus.Caption();
  if (shown.empty() || shown.starts_with(kSaved)) {
    pnlStatus.SetCaption(std::string(kSaved) + what);
  } else {
    pnlStatus.SetCaption(shown.substr(0, shown.find(kBehind)) + std::string(kBehind) + what);
  }
}

void FrmMain::mnuFileSaveChart_Click() {
  const ChartBox& chart = ShownChart();
  if (!HasChart(chart)) return context_.dialogs.Say(kNoChart);
  SaveAs({.title = "Save Chart As",
          .filter = "PNG picture (*.png)|*.png|SVG drawing (*.svg)|*.svg|PDF page (*.pdf)|*.pdf",
          .file_name = FileNameOf(ChartWords()) + ".png",
          .default_extension = "png",
          .initial_folder = {},
          .overwrite_prompt = true},
         "The chart was not saved",
         [&](const std::string& path) {
           const Place& place = chart.Where();
           return context_.output.SaveChart(
               chart.view, path, Pixels(place.Width), Pixels(place.Height));
         });
}

void FrmMain::mnuFileSaveSheet_Click() {
  const Sheet& sheet = context_.state.table.Active();
  if (!HasCells(sheet)) return context_.dialogs.Say(kNoSheet);
  SaveAs({.title = "Save Sheet As",
          .filter = "CSV (*.csv)|*.csv|All (*.*)|*.*",
          .file_name = FileNameOf(SheetWords()) + ".csv",
          .default_extension = "csv",
          .initial_folder = {},
          .overwrite_prompt = true},
         "The sheet was not saved",
         [&sheet](const std::string& path) {
           return WriteFileAtomically(path, SheetCsv(sheet, CellEnds::kTrimmed));
         });
}

void FrmMain::mnuFilePrint_Click() {
  const bool data = DataInFront();
  const Sheet& sheet = context_.state.table.Active();
  const ChartBox& chart = ShownChart();
  if (data && !HasCells(sheet)) return context_.dialogs.Say(kNoSheet);
  if (!data && !HasChart(chart)) return context_.dialogs.Say(kNoChart);
  const Status printed = data ? context_.output.PrintSheet(sheet, PrintTitle(), progress)
                              : context_.output.PrintChart(chart.view, progress);
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
