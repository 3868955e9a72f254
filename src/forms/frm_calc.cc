#include "forms/frm_calc.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/files.h"
#include "base/host_path.h"
#include "base/number_text.h"
#include "base/text.h"
#include "controls/form.h"
#include "formats/fnu_file.h"
#include "formats/text_lines.h"
#include "forms/date_boxes.h"
#include "forms/screens.h"
#include "marketdata/service.h"

namespace vistaplot {

namespace {

constexpr std::size_t kLongestSymbol = 5;

/// True for a symbol that the service takes: 1 to 5 characters, no blank among them.
bool IsServiceSymbol(std::string_view symbol) {
  const auto is_graphic = [](char c) { return c > ' ' && c < 127 && c != ','; };
  return !symbol.empty() && symbol.size() <= kLongestSymbol &&
         std::all_of(symbol.begin(), symbol.end(), is_graphic);
}

/// True when both texts of an FNU file can be read.
bool HasTwoLines(std::string_view bytes) {
  if (bytes.empty()) return false;
  TakeLine(bytes);
  return !bytes.empty();
}

/// A setting counts as present when it sorts behind two blanks.
std::string SettingOr(const Settings& settings, std::string_view key, std::string_view fallback) {
  std::string text = settings.Get(key);
  return text > "  " ? text : std::string(fallback);
}

}  // namespace

FrmCalc::FrmCalc(const Context& context)
    : Form("frmCalc", "Calculations", FormStyle::kScreen, context.host), context_(context) {
  Add(exchange.Designs());
  Add(family.Designs());
  Add(beta.Designs());
  Add(summary.Designs());
  exchange.fraAdvDec.SetHelpTopic("Advance/decline lines");
  family.fraADFam.SetHelpTopic("Advance/decline lines");
  beta.FraBeta.SetHelpTopic("A series of any beta");
  summary.fraSigFam.SetHelpTopic("The signal summary");
  ConnectSeries();
  ConnectSignals();
  ConnectChecks();
}

void FrmCalc::ConnectSeries() {
  exchange.cmdADFile.Click = [this] { cmdADFile_Click(); };
  exchange.cmdAD.Click = [this] { cmdAD_Click(); };
  family.cmdADFamFam.Click = [this] { cmdADFamFam_Click(); };
  family.cmdADFamFile.Click = [this] { cmdADFamFile_Click(); };
  family.cmdADFam.Click = [this] { cmdADFam_Click(); };
  beta.cmdFnuFile.Click = [this] { cmdFnuFile_Click(); };
  beta.CmdBetaFnu.Click = [this] { CmdBetaFnu_Click(); };
  beta.txtBeta.LostFocus = [this] { txtBeta_LostFocus(); };
  beta.txtFnuNav.LostFocus = [this] { txtFnuNav_LostFocus(); };
}

void FrmCalc::ConnectSignals() {
  summary.CmdAddSig.Click = [this] { CmdAddSig_Click(); };
  summary.cmdRemSig.Click = [this] { cmdRemSig_Click(); };
  summary.cmdSigFamFile.Click = [this] { cmdSigFamFile_Click(); };
  summary.CmdSaveSigFam.Click = [this] { CmdSaveSigFam_Click(); };
  summary.cmdLoadParms.Click = [this] { cmdLoadParms_Click(); };
  summary.cmdSaveParms.Click = [this] { cmdSaveParms_Click(); };
  summary.cmdSigSum.Click = [this] { cmdSigSum_Click(); };
}

void FrmCalc::ConnectChecks() {
  summary.txtSigInFund.LostFocus = [this] { txtSigInFund_LostFocus(); };
  summary.txtSigOutFund.LostFocus = [this] { txtSigOutFund_LostFocus(); };
  summary.txtStartDate.LostFocus = [this] { txtStartDate_LostFocus(); };
  summary.txtEndDate.LostFocus = [this] { txtEndDate_LostFocus(); };
  summary.txtDelay.Change = [this] { txtDelay_Change(); };
  for (std::size_t i = 0; i < summary.txtSigRange.size(); ++i) {
    summary.txtSigRange[i].LostFocus = [this, i] { txtSigRange_LostFocus(static_cast<int>(i)); };
  }
  summary.chkSigRange.Click = [this] { chkSigRange_Click(); };
  summary.chkSigSumFile.Click = [this] { chkSigSumFile_Click(); };
  summary.chkSigDetFile.Click = [this] { chkSigDetFile_Click(); };
  summary.chkCompSigFile.Click = [this] { chkCompSigFile_Click(); };
  summary.chkCompFile.Click = [this] { chkCompFile_Click(); };
}

void FrmCalc::Form_Load() {
  const MarketData& market = context_.state.market;
  ScaleControls(*this, kDesignWidth, kDesignHeight, Host().Display());
  summary.txtEndDate2.SetText(std::to_string(market.calendar.MaxNumDays));
  summary.txtStartDate2.SetText("1");
  ShowDateOfDay(summary.txtEndDate, summary.txtEndDate2, market.calendar);
  ShowDateOfDay(summary.txtStartDate, summary.txtStartDate2, market.calendar);
  const Settings& settings = context_.settings;
  exchange.txtADFile.SetText(SettingOr(settings, "ADFile", market.QuotelineDir + "\\NYADL.FNU"));
  exchange.txtADTitle.SetText(SettingOr(settings, "ADTitle", "NYSE Advance/Decline Line"));
  exchange.txtADSymbol.SetText(SettingOr(settings, "ADSymbol", "NYADL"));
}

std::string FrmCalc::HostPathOf(const TextBox& box) const {
  return HostPath(box.Text(), context_.state.roots);
}

void FrmCalc::SayError(const RuntimeError& error) {
  context_.dialogs.Say("error: " + NumberedText(error));
}

bool FrmCalc::AskForFnuFile(const FnuBoxes& boxes, std::optional<RuntimeError>& failure) {
  const auto chosen = ChooseSavePath({.title = "Select FNU File",
                                      .filter = "FNU (*.FNU)|*.FNU|",
                                      .file_name = "*.FNU",
                                      .default_extension = "*.FNU",
                                      .initial_folder = context_.state.market.QuotelineDir,
                                      .overwrite_prompt = true},
                                     context_.dialogs);
  if (!chosen) return false;
  boxes.file.SetText(*chosen);
  boxes.title.SetText("");
  boxes.symbol.SetText("");
  if (const auto bytes = ReadWholeFile(HostPathOf(boxes.file))) {
    const FnuTitle stored = ReadFnuTitle(bytes.Value());
    boxes.symbol.SetText(stored.symbol);
    if (HasTwoLines(bytes.Value())) {
      boxes.title.SetText(stored.title);
    } else {
      failure = MakeError(kErrorInputPastEnd, *chosen);
      return false;
    }
  }
  boxes.title.SetText(context_.dialogs
                          .AskText({.prompt = "Please enter FNU file title",
                                    .title = "FNU file title",
                                    .proposed = boxes.title.Text()})
                          .value_or(""));
  boxes.symbol.SetText(context_.dialogs
                           .AskText({.prompt = "Please enter FNU file symbol",
                                     .title = "FNU file symbol",
                                     .proposed = boxes.symbol.Text()})
                           .value_or(""));
  return true;
}

void FrmCalc::ChooseFnuFile(const FnuBoxes& boxes) {
  std::optional<RuntimeError> failure;
  AskForFnuFile(boxes, failure);
  if (!failure) return;
  SayError(*failure);
  context_.dialogs.EndProgram(true);
}

void FrmCalc::TellSeries(Label& note, const TextBox& symbol, float newest) {
  const std::string_view name = TrimBlanks(symbol.Text());
  note.SetCaption(std::to_string(context_.state.market.calendar.MaxNumDays) + " days written");
  if (!IsServiceSymbol(name)) {
    context_.dialogs.Say(
        "The market-data service takes symbols of 1 to 5 characters without "
        "blanks and commas: \"" +
        symbol.Text() + "\" is written, but it is no issue");
  } else if (context_.quoteline.QLisQLIssue(ServiceSymbol(name).c_str()) != -1) {
    note.SetCaption(note.Caption() + " outside the service");
  } else if (!ServiceShows(name, newest)) {
    note.SetCaption(note.Caption() + ", hidden by another issue " + UpperCase(name));
  }
  context_.screens.frmTab.RelistIssues();
}

/// True when the service's history of an issue ends with the value that was written last.
bool FrmCalc::ServiceShows(std::string_view symbol, float newest) {
  constexpr float kFileDigits = 1e-6F;  // what a value loses as text of seven digits
  MarketData& market = context_.state.market;
  std::vector<float> prices(static_cast<std::size_t>(market.calendar.MaxNumDays) + 1);
  FetchHistory(context_.quoteline, market, symbol, prices);
  return std::abs(prices.back() - newest) <= kFileDigits * std::abs(newest);
}

void FrmCalc::SayNotWritten(Label& note, const RuntimeError& error, const std::string& text) {
  note.SetCaption("Not written: " + error.subject);
  context_.dialogs.Say(text);
}

// Parameter files: all inputs of the signal summary, saved and loaded.

namespace {

constexpr const char* kFilter = "Parameters (*.SPA)|*.SPA|All (*.*)|*.*";

/// Reads the numbers of boxes; the first that does not fit into 16 bits is kept as the failure.
class BoxNumbers {
 public:
  std::int16_t Read(const TextBox& box) {
    const auto number = ToInt16(LeadingNumber(box.Text()), box.Name());
    if (!number && !failure_) failure_ = number.Error();
    return number ? number.Value() : std::int16_t{0};
  }
  const std::optional<RuntimeError>& Failure() const { return failure_; }

 private:
  std::optional<RuntimeError> failure_;
};

/// True when a file of `size` bytes holds the whole number that a member is read from.
bool Holds(std::size_t size, std::int16_t SignalParameters::*member) {
  return std::ranges::any_of(kParameterFields, [&](const ParameterField& entry) {
    const auto* number = std::get_if<std::int16_t SignalParameters::*>(&entry.member);
    return number != nullptr && *number == member && size >= FieldEnd(entry.field);
  });
}

/// What a file of `size` bytes did not give as it was meant; empty for a whole one.
std::string NoteOfParameters(std::size_t size,
                             const SignalParameters& parameters,
                             const std::string& start_day) {
  if (size == kOldParameterSize) return "An older file: start day and delay are 1";
  if (size != kParameterRecordSize) {
    return "The file has " + std::to_string(size) + " bytes, a parameter file " +
           std::to_string(kParameterRecordSize) + ": check what the boxes hold";
  }
  const std::string stored = std::to_string(parameters.start_day);
  return stored == start_day ? "" : "There is no market day " + stored + ": it became " + start_day;
}

}  // namespace

Result<SignalParameters> FrmCalc::CurrentParameters() const {
  const SignalFrame& s = summary;
  BoxNumbers numbers;
  SignalParameters parameters{.makes_signal_fnu = s.chkCompFile.Checked(),
                              .makes_composite = s.chkCompSigFile.Checked(),
                              .makes_detail = s.chkSigDetFile.Checked(),
                              .is_two_dimensional = s.chkSigRange.Checked(),
                              .makes_summary = s.chkSigSumFile.Checked(),
                              .composite_path = s.txtCompSigFile.Text(),
                              .fnu_path = s.txtCompFile.Text(),
                              .fnu_symbol = s.txtCompSymbol.Text(),
                              .fnu_title = s.txtCompTitle.Text(),
                              .detail_path = s.txtSigDetFile.Text(),
                              .family_path = s.txtSigFamFile.Text(),
                              .in_fund = s.txtSigInFund.Text(),
                              .out_fund = s.txtSigOutFund.Text(),
                              .buy_from = numbers.Read(s.txtSigRange[0]),
                              .buy_to = numbers.Read(s.txtSigRange[1]),
                              .sell_from = numbers.Read(s.txtSigRange[2]),
                              .sell_to = numbers.Read(s.txtSigRange[3]),
                              .summary_path = s.txtSigSumFile.Text(),
                              .start_day = numbers.Read(s.txtStartDate2),
                              .delay = numbers.Read(s.txtDelay)};
  if (numbers.Failure()) return *numbers.Failure();
  return parameters;
}

void FrmCalc::cmdSaveParms_Click() {
  const Result<SignalParameters> parameters = CurrentParameters();
  if (!parameters) return SayError(parameters.Error());
  std::vector<std::string_view> too_long;
  const std::string bytes = ParameterBytes(parameters.Value(), too_long);
  const auto chosen = context_.dialogs.ChooseFileToSave(
      {.title = "Select Parameter Save File",
       .filter = kFilter,
       .file_name = "*.SPA",
       .default_extension = "*.SPA",
       .initial_folder = std::string(TrimBlanks(context_.state.directories.ProgramDir)),
       .overwrite_prompt = true});
  if (!chosen) return context_.dialogs.Say("Parameter file not saved");
  const Status saved = WriteFileAtomically(HostPath(*chosen, context_.state.roots), bytes);
  if (!saved) return SayError(saved.Error());
  summary.lblSigNote.SetCaption("Parameters saved");
  for (const std::string_view field : too_long) {
    context_.dialogs.Say("Saved, but the " + std::string(field) +
                         " did not fit into the parameter file and was cut");
  }
}

void FrmCalc::cmdLoadParms_Click() {
  const std::vector<std::string> chosen = context_.dialogs.ChooseFilesToOpen(
      {.title = "Select Parameter File",
       .filter = kFilter,
       .file_name = "*.SPA",
       .default_extension = {},
       .initial_folder = std::string(TrimBlanks(context_.state.directories.ProgramDir))});
  if (chosen.empty()) return context_.dialogs.Say("Parameter file not loaded");
  const auto bytes = ReadWholeFile(HostPath(chosen.front(), context_.state.roots));
  if (!bytes) return SayError(bytes.Error());
  // What the file lacks stays as the boxes have it, also a number that no file could hold.
  const SignalParameters current =
      CurrentParameters().Ok() ? CurrentParameters().Value() : SignalParameters{};
  const SignalParameters parameters = ReadParameters(bytes.Value(), current);
  summary.lblSigNote.SetCaption("");
  FillParameters(parameters, bytes.Value().size());
  const std::string told =
      NoteOfParameters(bytes.Value().size(), parameters, summary.txtStartDate2.Text());
  if (!told.empty()) summary.lblSigNote.SetCaption(told);
}

// The order matters: a box that becomes cleared empties the texts that stand before it here.
void FrmCalc::FillParameters(const SignalParameters& parameters, std::size_t size) {
  SignalFrame& s = summary;
  s.txtSigSumFile.SetText(parameters.summary_path);
  s.chkSigSumFile.SetChecked(parameters.makes_summary);
  s.txtCompSigFile.SetText(parameters.composite_path);
  s.chkCompSigFile.SetChecked(parameters.makes_composite);
  s.txtCompSymbol.SetText(parameters.fnu_symbol);
  s.txtCompTitle.SetText(parameters.fnu_title);
  s.txtCompFile.SetText(parameters.fnu_path);
  s.chkCompFile.SetChecked(parameters.makes_signal_fnu);
  s.txtSigDetFile.SetText(parameters.detail_path);
  s.chkSigDetFile.SetChecked(parameters.makes_detail);
  s.txtSigFamFile.SetText(parameters.family_path);
  if (!TrimBlanks(s.txtSigFamFile.Text()).empty()) LoadSignalFamily(s.txtSigFamFile.Text());
  s.txtSigInFund.SetText(parameters.in_fund);
  s.txtSigOutFund.SetText(parameters.out_fund);
  s.chkSigRange.SetChecked(parameters.is_two_dimensional);
  constexpr std::array kMembers = {&SignalParameters::buy_from,
                                   &SignalParameters::buy_to,
                                   &SignalParameters::sell_from,
                                   &SignalParameters::sell_to};
  for (std::size_t i = kMembers.size(); i-- > 0;) {
    if (Holds(size, kMembers[i])) {
      s.txtSigRange[i].SetText(std::to_string(parameters.*kMembers[i]));
    }
  }
  FillStartAndDelay(parameters);
}

void FrmCalc::FillStartAndDelay(const SignalParameters& parameters) {
  summary.txtStartDate2.SetText(std::to_string(parameters.start_day));
  ShowDateOfDay(summary.txtStartDate, summary.txtStartDate2, context_.state.market.calendar);
  summary.txtDelay.SetText(std::to_string(parameters.delay));
}

}  // namespace vistaplot
