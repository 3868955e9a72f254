// The calculations that make a series: the exchange's advance/decline line, a family's, and a
// series of any beta.

#include <algorithm>

#include "base/host_path.h"
#include "base/number_text.h"
#include "base/text.h"
#include "calc/family_series.h"
#include "calc/fnu_series.h"
#include "charts/builders/graph_selection.h"
#include "forms/busy_scope.h"
#include "forms/date_boxes.h"
#include "forms/frm_calc.h"
#include "forms/screens.h"
#include "import/family_records.h"
#include "marketdata/issue_lists.h"
#include "marketdata/service.h"

namespace vistaplot {

namespace {

constexpr double kHighestBeta = 5.0;
constexpr std::string_view kAdvancersPath = "c:\\ql\\f_adv.fnu";
constexpr std::string_view kDeclinersPath = "c:\\ql\\f_dec.fnu";

/// The numbers of the three files that a family's calculation has open, run together.
constexpr std::string_view kOpenFiles = "123";

/// Takes the last column of a sheet away again unless the series in it was written.
class NewColumn {
 public:
  explicit NewColumn(Sheet& sheet) : sheet_(sheet), number_(++sheet.MaxCol) {}
  ~NewColumn() {
    if (kept_) return;
    sheet_.SetTextColumn(number_, {});
    --sheet_.MaxCol;
  }
  NewColumn(const NewColumn&) = delete;
  NewColumn& operator=(const NewColumn&) = delete;

  int Number() const { return number_; }
  void Keep() { kept_ = true; }

 private:
  Sheet& sheet_;
  int number_;
  bool kept_ = false;
};

/// The dates of a price sheet's first column, one a market day from day 1 on, as a calendar. Error
/// 13 where a row holds none.
Result<MarketCalendar> CalendarOfSheet(const Sheet& sheet, int days) {
  MarketCalendar calendar;
  calendar.MaxDays = calendar.MaxNumDays = static_cast<std::int16_t>(days);
  calendar.DayDates = {0};
  for (int row = 2; row <= days + 1; ++row) {
    const auto date = ParseDate(sheet.CellText(row, 1));
    if (!date) return MakeError(kErrorTypeMismatch, "row " + std::to_string(row) + ", column 1");
    calendar.DayDates.push_back(*date);
  }
  return calendar;
}

/// The numbers of a fund's column. Error 13 where a cell holds something else.
Result<std::vector<double>> NumbersOfColumn(const Sheet& sheet, int column, int days) {
  if (sheet.PriceBlock(column).size() < static_cast<std::size_t>(days)) {
    for (int row = 2; row <= days + 1; ++row) {
      if (WholeNumber(sheet.CellText(row, column))) continue;
      return MakeError(kErrorTypeMismatch,
                       "row " + std::to_string(row) + ", column " + std::to_string(column));
    }
  }
  return sheet.ColumnNumbers(column, 2, days);
}

}  // namespace

void FrmCalc::cmdADFile_Click() {
  ChooseFnuFile({exchange.txtADFile, exchange.txtADTitle, exchange.txtADSymbol});
}

void FrmCalc::cmdADFamFile_Click() {
  ChooseFnuFile({family.txtADFamFile, family.txtADFamTitle, family.txtADFamSymbol});
}

void FrmCalc::cmdFnuFile_Click() {
  ChooseFnuFile({beta.txtFnuFile, beta.txtFnuTitle, beta.txtFnuSymbol});
}

void FrmCalc::cmdADFamFam_Click() {
  family.txtADFamFam.SetText(
      ChooseFamilyFile(context_.state.market.QuotelineDir, context_.dialogs));
}

bool FrmCalc::ReadBreadthIssue(std::string_view symbol, std::vector<float>& series) {
  MarketData& market = context_.state.market;
  if (context_.quoteline.QLisQLIssue(ServiceSymbol(symbol).c_str()) != -1) {
    context_.dialogs.Say("Fund " + std::string(symbol) + " not found");
    return false;
  }
  const auto days = static_cast<std::size_t>(std::max<int>(market.calendar.MaxNumDays, 0));
  market.PriceBuffer.resize(days + 1);
  FetchHistoryOrReport(context_.quoteline, market, symbol, market.PriceBuffer, context_.dialogs);
  series.assign(market.PriceBuffer.begin() + 1, market.PriceBuffer.end());
  return true;
}

void FrmCalc::cmdAD_Click() {
  const EmptiedPanelScope emptied(context_.screens.frmMain.pnlAction);
  const BusyScope busy(*this, context_.screens.frmMain.progress, "Calculating Advance/Decline...");
  exchange.lblADNote.SetCaption("");
  std::vector<float> advancers;
  std::vector<float> decliners;
  if (!ReadBreadthIssue("$NADV", advancers) || !ReadBreadthIssue("$DECL", decliners)) return;
  const std::vector<float> line = AdvanceDeclineLine(advancers, decliners);
  const Status written = WriteFnuSeries(HostPathOf(exchange.txtADFile),
                                        exchange.txtADSymbol.Text(),
                                        exchange.txtADTitle.Text(),
                                        context_.state.market.calendar,
                                        line);
  if (!written) {
    return SayNotWritten(
        exchange.lblADNote, written.Error(), "error: " + NumberedText(written.Error()));
  }
  TellSeries(exchange.lblADNote, exchange.txtADSymbol, line.empty() ? 0.0F : line.back());
}

void FrmCalc::cmdADFam_Click() {
  if (TrimBlanks(family.txtADFamFam.Text()).empty()) {
    return context_.dialogs.Say("Please select a family");
  }
  SharedState& state = context_.state;
  const BusyScope busy(
      context_.screens.frmTab, context_.screens.frmMain.progress, "Calculating Family A/D...");
  family.lblADFamNote.SetCaption("");
  PrepareHistories(context_.quoteline, state.market, context_.dialogs);
  if (!FitsFamilyRecords(state.market.calendar, context_.dialogs)) return;
  constexpr std::size_t kSheetName = 8;
  state.table.SheetAt(kPriceSheet).SheetName =
      TrimBlanks(LeftCharacters(family.txtADFamFam.Text(), kSheetName));
  state.table.NotifySheets();
  const auto symbols = ReadMembers();
  if (symbols) CalculateFamily(*symbols);
}

/// The path that is tried once where a family file does not exist: a user's family of the name that
/// stands first in the list of families. Empty where the list shows none.
std::string FrmCalc::PathToRetry() const {
  const FrmTab& frmTab = context_.screens.frmTab;
  const std::string name = frmTab.FirstFamilyName();
  if (name.empty()) return {};
  return context_.state.market.QuotelineDir + "\\USERDEF\\" + name + ".FAM";
}

std::optional<std::vector<std::string>> FrmCalc::ReadMembers() {
  std::string path(TrimBlanks(family.txtADFamFam.Text()));
  std::string told;
  Result<Family> read = ReadFamilyFile(HostPath(path, context_.state.roots));
  const std::string retry = PathToRetry();
  if (!read && read.Error().number == kErrorFileNotFound && !retry.empty()) {
    path = retry;
    told = " " + path;
    family.lblADFamNote.SetCaption("Instead: " + path);
    read = ReadFamilyFile(HostPath(path, context_.state.roots));
  }
  if (read && read.Value().cut_off) read = MakeError(kErrorInputPastEnd, path);
  if (!read) {
    family.lblADFamNote.SetCaption("Not read: " + path);
    context_.dialogs.Say("Error AD family: " + NumberedText(read.Error()) + told);
    return std::nullopt;
  }
  std::vector<std::string> symbols;
  for (const std::string& symbol : read.Value().symbols) symbols.push_back(UpperCase(symbol));
  return symbols;
}

void FrmCalc::CalculateFamily(const std::vector<std::string>& symbols) {
  SharedState& state = context_.state;
  FillFamilyRecords(context_.quoteline,
                    state.market,
                    symbols,
                    state.family_records,
                    context_.dialogs,
                    context_.screens.frmMain.progress);
  const FamilySeriesTarget target{.line_path = HostPathOf(family.txtADFamFile),
                                  .symbol = family.txtADFamSymbol.Text(),
                                  .title = family.txtADFamTitle.Text(),
                                  .advancers_path = HostPath(kAdvancersPath, state.roots),
                                  .decliners_path = HostPath(kDeclinersPath, state.roots)};
  const FamilyBreadth breadth = CountFamilyBreadth(state.family_records);
  const auto failure = WriteFamilySeries(target, state.market.calendar, breadth);
  if (!failure) {
    const std::string instead = family.lblADFamNote.Caption();
    TellSeries(family.lblADFamNote,
               family.txtADFamSymbol,
               breadth.line.empty() ? 0.0F : breadth.line.back());
    if (!instead.empty()) family.lblADFamNote.SetCaption(instead);
    return;
  }
  std::string text = NumberedText(failure->error);
  if (failure->step == FamilySeriesStep::kLine) {
    text = "Error AD family: " + text;
  } else {
    const bool is_adv = failure->step == FamilySeriesStep::kAdvancers;
    text = "advdec err: " + text + (is_adv ? " adv " : " dec ") + std::string(kOpenFiles);
  }
  SayNotWritten(family.lblADFamNote, failure->error, text);
}

void FrmCalc::txtBeta_LostFocus() {
  const std::string text = beta.txtBeta.Text();
  const double typed = LeadingNumber(text);
  if (typed > kHighestBeta) beta.txtBeta.SetText("5");
  if (typed < -kHighestBeta) beta.txtBeta.SetText("-5");
  beta.lblFnuNote.SetCaption(beta.txtBeta.Text() == text
                                 ? NoteOfWord(beta.txtBeta)
                                 : Quoted(text) + ": beta lies between -5 and 5");
}

void FrmCalc::txtFnuNav_LostFocus() {
  beta.lblFnuNote.SetCaption(NoteOfWord(beta.txtFnuNav));
}

void FrmCalc::CmdBetaFnu_Click() {
  if (TrimBlanks(beta.txtFnuFile.Text()).empty()) {
    return context_.dialogs.Say("Please enter a FNU file");
  }
  SharedState& state = context_.state;
  const EmptiedPanelScope emptied(context_.screens.frmMain.pnlAction);
  const BusyScope busy(*this, context_.screens.frmMain.progress, "Creating FNU...");
  beta.lblFnuNote.SetCaption("");
  txtBeta_LostFocus();
  const std::string refused =
      ReadGraphSelection(state.table.SheetAt(kPriceSheet), SelectionUse::kFunds, state.selection);
  if (!refused.empty()) return context_.dialogs.Say(refused);
  if (state.table.SheetAt(kPriceSheet).MaxCol >= kMaxColumns) {
    return context_.dialogs.Say("The data table is full: it holds 255 funds");
  }
  const Result<float> made = MakeBetaSeries(state.selection.ColumnOf(1));
  state.table.NotifyContent(kPriceSheet);
  if (!made) {
    const bool is_cell = made.Error().number == kErrorTypeMismatch;
    return SayNotWritten(
        beta.lblFnuNote,
        made.Error(),
        "error: " + NumberedText(made.Error()) + (is_cell ? ": " + made.Error().subject : ""));
  }
  TellSeries(beta.lblFnuNote, beta.txtFnuSymbol, made.Value());
}

Result<float> FrmCalc::MakeBetaSeries(int source) {
  Sheet& sheet = context_.state.table.SheetAt(kPriceSheet);
  NewColumn column(sheet);
  const int days = context_.state.market.calendar.MaxNumDays;
  const Result<MarketCalendar> calendar = CalendarOfSheet(sheet, days);
  if (!calendar) return calendar.Error();
  const Result<std::vector<double>> prices = NumbersOfColumn(sheet, source, days);
  if (!prices) return prices.Error();
  const auto factor = static_cast<float>(LeadingNumber(beta.txtBeta.Text()));
  const auto nav = static_cast<float>(LeadingNumber(beta.txtFnuNav.Text()));
  std::vector<float> series = ComputeBetaSeries(prices.Value(), factor, nav);
  const Status written = WriteFnuSeries(HostPathOf(beta.txtFnuFile),
                                        beta.txtFnuSymbol.Text(),
                                        beta.txtFnuTitle.Text(),
                                        calendar.Value(),
                                        series);
  if (!written) return written.Error();
  const float newest = series.empty() ? nav : series.back();
  sheet.SetPriceColumn(column.Number(), beta.txtFnuSymbol.Text(), std::move(series));
  column.Keep();
  return newest;
}

}  // namespace vistaplot
