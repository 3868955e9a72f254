#include "forms/frm_calc.h"

#include <algorithm>

#include "base/files.h"
#include "base/host_path.h"
#include "base/text.h"
#include "controls/scaling.h"
#include "formats/fnu_file.h"
#include "formats/text_lines.h"
#include "forms/date_boxes.h"
#include "forms/file_choice.h"
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

void FrmCalc::TellSeries(Label& note, const TextBox& symbol) {
  const std::string_view name = TrimBlanks(symbol.Text());
  note.SetCaption(std::to_string(context_.state.market.calendar.MaxNumDays) + " days written");
  if (!IsServiceSymbol(name)) {
    context_.dialogs.Say(
        "The market-data service takes symbols of 1 to 5 characters without "
        "blanks and commas: \"" +
        symbol.Text() + "\" is written, but it is no issue");
  } else if (context_.quoteline.QLisQLIssue(ServiceSymbol(name).c_str()) != -1) {
    note.SetCaption(note.Caption() + " outside the service");
  }
  context_.screens.frmTab.RelistIssues();
}

}  // namespace vistaplot
