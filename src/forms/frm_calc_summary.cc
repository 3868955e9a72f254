// The signal summary: from the boxes to the run, and what the screens show of its results.

#include <algorithm>
#include <string>

#include "base/host_path.h"
#include "base/number_text.h"
#include "base/text.h"
#include "calc/signal_cases.h"
#include "calc/signal_run.h"
#include "calc/signal_sheets.h"
#include "charts/builders/summary_parameters.h"
#include "formats/detail_file.h"
#include "formats/summary_file.h"
#include "forms/busy_scope.h"
#include "forms/frm_calc.h"
#include "forms/screens.h"

namespace vistaplot {

namespace {

constexpr int kHeadingRows = 2;
constexpr std::string_view kInUse =
    " file in use, please close other application or choose another file name, then press execute "
    "again";
constexpr std::string_view kNoFile =
    " file not found.  Please check detail file name and path to make sure it is a valid DOS name "
    "(1-8 characters.1-3 characters).  For example, C:\\ZEPHYR\\TEST.DET";
constexpr std::string_view kNoFolder =
    " path not found.  Please check detail file name path to make sure it is a valid directory and "
    "DOS name (1-8 characters.1-3 characters).  For example, C:\\ZEPHYR\\TEST.DET";

/// The fixed text of an error that ends a run when its file is opened; empty for others.
std::string_view TextOfOpenError(int number) {
  if (number == kErrorPermissionDenied) return kInUse;
  if (number == kErrorFileNotFound) return kNoFile;
  return number == kErrorPathNotFound ? kNoFolder : std::string_view{};
}

std::string Trimmed(const TextBox& box) {
  return std::string(TrimBlanks(box.Text()));
}

/// Reads whole numbers of boxes as 16 bits; the first failure stays.
class BoxIntegers {
 public:
  int Read(const TextBox& box) {
    const auto number = ToInt16(LeadingNumber(box.Text()), box.Name());
    if (!number && !failure_) failure_ = number.Error();
    return number ? number.Value() : 0;
  }
  const std::optional<RuntimeError>& Failure() const { return failure_; }

 private:
  std::optional<RuntimeError> failure_;
};

/// An empty sheet of that name with its two rows of headings.
void PrepareSheet(DataTable& table, int number, std::string_view name, FixedFields fields) {
  Sheet& sheet = table.SheetAt(number);
  table.SetActiveSheet(number);
  sheet.ClearAll();
  sheet.SheetName = name;
  TextSheet(fields).Write(sheet);
  table.NotifySheets();
}

}  // namespace

Result<SignalTest> FrmCalc::ReadTest() const {
  BoxIntegers boxes;
  const int days = std::max<int>(context_.state.market.calendar.MaxNumDays, 1);
  SignalTest test{.delay = boxes.Read(summary.txtDelay),
                  .two_dimensional = summary.chkSigRange.Checked(),
                  .buy_from = boxes.Read(summary.txtSigRange[0]),
                  .buy_to = boxes.Read(summary.txtSigRange[1]),
                  .sell_from = boxes.Read(summary.txtSigRange[2]),
                  .sell_to = boxes.Read(summary.txtSigRange[3])};
  test.end_day = std::clamp(boxes.Read(summary.txtEndDate2), 1, days);
  test.start_day = std::clamp(boxes.Read(summary.txtStartDate2), 1, days);
  if (boxes.Failure()) return *boxes.Failure();
  return test;
}

std::vector<std::string> FrmCalc::SignalPaths() const {
  std::vector<std::string> paths;
  for (const std::string& name : summary.lstSigFam.Entries()) {
    paths.push_back(HostPath(
        context_.state.market.QuotelineDir + "\\SIG\\" + std::string(TrimBlanks(name)) + ".SIG",
        context_.state.roots));
  }
  return paths;
}

SignalOutputs FrmCalc::ReadOutputs() const {
  const auto path = [this](const CheckBox& check, const TextBox& box) {
    return check.Checked() ? std::optional(HostPathOf(box)) : std::nullopt;
  };
  return {.summary = path(summary.chkSigSumFile, summary.txtSigSumFile),
          .composite = path(summary.chkCompSigFile, summary.txtCompSigFile),
          .fnu = path(summary.chkCompFile, summary.txtCompFile),
          .detail = path(summary.chkSigDetFile, summary.txtSigDetFile),
          .fnu_symbol = Trimmed(summary.txtCompSymbol),
          .fnu_title = Trimmed(summary.txtCompTitle)};
}

void FrmCalc::cmdSigSum_Click() {
  if (Trimmed(summary.txtSigInFund).empty()) {
    return context_.dialogs.Say("Please enter an In Market Fund");
  }
  if (Trimmed(summary.txtSigOutFund).empty()) {
    return context_.dialogs.Say("Please enter an Out of Market Fund");
  }
  const Result<SignalTest> test = ReadTest();
  if (!test) {
    return context_.dialogs.Say("error: " + NumberedText(test.Error()) + ": " +
                                test.Error().subject);
  }
  const EmptiedPanelScope emptied(context_.screens.frmMain.pnlAction);
  const BusyScope busy(*this, context_.screens.frmMain.progress, "Calculating Summary...");
  summary.lblSigNote.SetCaption("");
  RunSummary(test.Value());
}

void FrmCalc::RunSummary(const SignalTest& test) {
  SharedState& state = context_.state;
  Result<SignalData> data = ReadSignalData(context_.quoteline,
                                           state.market,
                                           Trimmed(summary.txtSigInFund),
                                           Trimmed(summary.txtSigOutFund),
                                           SignalPaths());
  if (!data) {
    return context_.dialogs.Say("error: " + NumberedText(data.Error()) + " " +
                                data.Error().subject);
  }
  if (const auto refused = RefuseTest(data.Value().Market(), test)) {
    return context_.dialogs.Say(*refused);
  }
  const SignalOutputs outputs = ReadOutputs();
  context_.screens.frmTab.cboDataType.SetListIndex(static_cast<int>(DataType::kSummary));
  FillFunds(data.Value());
  PrepareSheet(state.table, kSumSheet, "SUM", kSummaryFields);
  SignalFiles files;
  if (!OpenFiles(files, outputs)) return;
  Progress& progress = context_.screens.frmMain.progress;
  progress.ShowMeter(0.0);
  summary.lblSigNote.SetCaption("Esc stops the run");
  summary.lblSigNote.Refresh();
  last_run_ = LastRun{std::move(data.Value()), test};
  const SignalOutcome outcome = RunSignalTest(
      last_run_->data, test, {state.table, files, outputs.detail.has_value()}, progress);
  const Status finished = files.Finish();
  ShowSummary(outcome.finished, outcome.cases);
  if (outcome.error) {
    context_.dialogs.Say("error: " + NumberedText(*outcome.error) + " " + outcome.error->subject);
  } else if (!finished) {
    context_.dialogs.Say("error: " + NumberedText(finished.Error()) + " " +
                         finished.Error().subject);
  }
}

void FrmCalc::FillFunds(const SignalData& data) {
  SharedState& state = context_.state;
  const LoadServices services{context_.quoteline, state.market, state.table, context_.dialogs};
  state.table.SetSheetCount(summary.chkSigDetFile.Checked() ? 3 : 2);
  state.table.SetActiveSheet(kFundsSheet);
  Sheet& funds = state.table.Active();
  funds.SheetName = "FUNDS";
  funds.ClearAll();
  state.load.IssueColumnCount = 0;
  LoadIssueColumn(services, state.load, Trimmed(summary.txtSigInFund));
  LoadIssueColumn(services, state.load, Trimmed(summary.txtSigOutFund));
  WriteFunds(data, state.market.calendar, state.table);
}

bool FrmCalc::OpenFiles(SignalFiles& files, const SignalOutputs& outputs) {
  const auto is_open = [this](std::string_view kind, const Status& opened) {
    if (opened) return true;
    const std::string_view fixed = TextOfOpenError(opened.Error().number);
    if (fixed.empty()) {
      context_.dialogs.Say("An error has occurred.  Error is: " + NumberedText(opened.Error()));
      return true;  // the run goes on without this file
    }
    context_.dialogs.Say(std::string(kind) + std::string(fixed));
    return false;
  };
  if (outputs.summary && !is_open("Sig Summary", files.OpenSummary(*outputs.summary))) return false;
  if (outputs.composite && !is_open("Composite Signal", files.OpenComposite(*outputs.composite))) {
    return false;
  }
  if (outputs.fnu &&
      !is_open("Sig Comp", files.OpenFnu(*outputs.fnu, outputs.fnu_symbol, outputs.fnu_title))) {
    return false;
  }
  if (!outputs.detail) return true;
  const bool opened = is_open("Sig Detail", files.OpenDetail(*outputs.detail));
  if (opened) PrepareSheet(context_.state.table, kDetailSheet, "DETAIL", kDetailFields);
  return opened;
}

void FrmCalc::ShowSummary(int finished, int cases) {
  SharedState& state = context_.state;
  state.flags.KestrelixLoaded = true;
  state.flags.ResultFileLoaded = true;
  state.flags.ComputedSummaryShown = true;
  state.table.SetActiveSheet(kSumSheet);
  FrmMain& frmMain = context_.screens.frmMain;
  frmMain.EnableSorting(true);
  std::string told = std::to_string(finished) + (finished == 1 ? " test case" : " test cases");
  if (finished < cases) told = "Stopped after " + told + " of " + std::to_string(cases);
  summary.lblSigNote.SetCaption(told);
  frmMain.pnlStatus.SetCaption("Signal summary: " + told);
}

void FrmCalc::ShowCase() {
  SharedState& state = context_.state;
  if (!state.flags.ComputedSummaryShown || !last_run_) {
    return context_.dialogs.Say(
        "There is no signal summary yet: choose Calc Sig Sum on the calculations screen first");
  }
  const Sheet& sum = state.table.SheetAt(kSumSheet);
  const int row = sum.selection.empty() ? sum.Row : sum.selection.front().SelStartRow;
  if (row <= kHeadingRows || row > sum.MaxRow) {
    return context_.dialogs.Say("Select the row of a test case on the sheet SUM first");
  }
  const SignalThresholds thresholds{.buy = static_cast<int>(sum.CellNumber(row, 2)),
                                    .sell = static_cast<int>(sum.CellNumber(row, 3))};
  const auto number = static_cast<int>(sum.CellNumber(row, 1));
  CaseLog log;
  const SignalMarket market = last_run_->data.Market();
  WalkCase(market, last_run_->test, thresholds, &log);
  AppendCaseSheet(number, TextsOfTrades(log, thresholds, market), log.curve, market, state.table);
  context_.screens.frmData.Show();
}

}  // namespace vistaplot
