// The inputs of the signal summary: lists and families of signal files, what boxes hold, and the
// files to write.

#include <algorithm>
#include <string>

#include "base/files.h"
#include "base/host_path.h"
#include "base/number_text.h"
#include "base/text.h"
#include "formats/signal_file.h"
#include "forms/date_boxes.h"
#include "forms/frm_calc.h"
#include "forms/screens.h"
#include "marketdata/service.h"

namespace vistaplot {

namespace {

bool IsBlank(const TextBox& box) {
  return TrimBlanks(box.Text()).empty();
}

double NumberIn(const TextBox& box) {
  return LeadingNumber(box.Text());
}

/// A chooser of a file to write: what it is called, the ending of its files, where it begins.
FileRequest Chooser(std::string title, const std::string& ending, std::string folder) {
  return {.title = std::move(title),
          .filter = ending + " (*." + ending + ")|*." + ending + "|",
          .file_name = "*." + ending,
          .default_extension = "*." + ending,
          .initial_folder = std::move(folder),
          .overwrite_prompt = true};
}

}  // namespace

void FrmCalc::CmdAddSig_Click() {
  for (const int position : summary.lstSigfiles.SelectedPositions()) {
    summary.lstSigFam.AddEntry(summary.lstSigfiles.Entries()[static_cast<std::size_t>(position)]);
  }
  ShowSignalCount();
}

void FrmCalc::cmdRemSig_Click() {
  std::vector<std::string> kept;
  for (int position = 0; position < summary.lstSigFam.Count(); ++position) {
    if (summary.lstSigFam.Selected(position)) continue;
    kept.push_back(summary.lstSigFam.Entries()[static_cast<std::size_t>(position)]);
  }
  summary.lstSigFam.SetEntries(std::move(kept));
  ShowSignalCount();
}

void FrmCalc::ShowSignalCount() {
  const std::string count = std::to_string(summary.lstSigFam.Count());
  summary.txtSigRange[1].SetText(count);
  summary.txtSigRange[3].SetText(count);
}

void FrmCalc::cmdSigFamFile_Click() {
  LoadSignalFamily("");
}

void FrmCalc::LoadSignalFamily(const std::string& name) {
  if (name.empty()) {
    const std::string folder(TrimBlanks(context_.state.directories.ProgramDir));
    const auto chosen =
        ChooseSavePath(Chooser("Select Signal Family File", "SFM", folder), context_.dialogs);
    if (!chosen) return;
    summary.txtSigFamFile.SetText(*chosen);
  }
  ReadSignalFamily();
  ShowSignalCount();
}

void FrmCalc::ReadSignalFamily() {
  const auto bytes = ReadWholeFile(HostPathOf(summary.txtSigFamFile));
  summary.lblSigNote.SetCaption(
      bytes ? "" : "The list stays: " + bytes.Error().subject + ": " + bytes.Error().description);
  if (!bytes) return;
  const bool overlays =
      summary.lstSigFam.Count() == 0 ||
      context_.dialogs.ShowMessage({.text = "Do you want to overlay the selected signal files?",
                                    .title = {},
                                    .buttons = Buttons::kYesNo,
                                    .icon = Icon::kQuestion,
                                    .default_answer = Answer::kNo}) == Answer::kYes;
  if (overlays) summary.lstSigFam.SetEntries(ParseSignalFamily(bytes.Value()));
}

void FrmCalc::CmdSaveSigFam_Click() {
  if (IsBlank(summary.txtSigFamFile)) LoadSignalFamily("");
  if (IsBlank(summary.txtSigFamFile)) {
    return context_.dialogs.Say("Please select a Signal Family File Name before saving");
  }
  const Status saved = WriteFileAtomically(HostPathOf(summary.txtSigFamFile),
                                           SignalFamilyBytes(summary.lstSigFam.Entries()));
  if (!saved) return SayError(saved.Error());
  summary.lblSigNote.SetCaption(std::to_string(summary.lstSigFam.Count()) + " signal files saved");
}

void FrmCalc::CheckFund(TextBox& box) {
  if (IsBlank(box)) return;
  box.SetText(UpperCase(box.Text()));
  if (context_.quoteline.QLisQLIssue(ServiceSymbol(box.Text()).c_str()) == -1) return;
  context_.dialogs.Say("Fund " + box.Text() + " not found, please re-enter");
}

void FrmCalc::txtSigInFund_LostFocus() {
  CheckFund(summary.txtSigInFund);
}

void FrmCalc::txtSigOutFund_LostFocus() {
  CheckFund(summary.txtSigOutFund);
}

void FrmCalc::CheckDate(TextBox& date, TextBox& day) {
  const auto typed = ParseDate(date.Text());
  if (typed) date.SetText(DateText(*typed, DatePattern::kMonthDayLongYear));
  const std::string written = date.Text();
  CheckDateEntry(date, day, context_.state.market.calendar, &summary.lblSigNote);
  if (typed && date.Text() != written) {
    summary.lblSigNote.SetCaption(written + " is no market day");
  }
}

void FrmCalc::txtStartDate_LostFocus() {
  CheckDate(summary.txtStartDate, summary.txtStartDate2);
}

void FrmCalc::txtEndDate_LostFocus() {
  CheckDate(summary.txtEndDate, summary.txtEndDate2);
}

void FrmCalc::txtDelay_Change() {
  const double typed = NumberIn(summary.txtDelay);
  if (typed >= 0.0 && typed <= 1.0) return;
  summary.lblSigNote.SetCaption("The delay is 0 or 1 market days");
  summary.txtDelay.SetText(typed > 1.0 ? "1" : "0");
}

void FrmCalc::chkSigRange_Click() {
  const bool two = summary.chkSigRange.Checked();
  for (const std::size_t i : {2U, 3U}) {
    summary.txtSigRange[i].SetVisible(two);
    summary.lblSigRange[i].SetVisible(two);
  }
  summary.lblSigRange[0].SetCaption(two ? "     Buy Range" : "Buy and Sell Range");
}

void FrmCalc::txtSigRange_LostFocus(int index) {
  TextBox& box = summary.txtSigRange[static_cast<std::size_t>(index)];
  TextBox& from = summary.txtSigRange[0];
  TextBox& to = summary.txtSigRange[1];
  const int count = summary.lstSigFam.Count();
  std::string told = NoteOfWord(box);
  const auto correct = [&told](TextBox& wrong, const std::string& text, const std::string& why) {
    if (wrong.Text() == text) return;
    told = Quoted(wrong.Text()) + " became " + text + ": " + why;
    wrong.SetText(text);
  };
  if (NumberIn(box) < 0.0) correct(box, "0", "a threshold is 0 or more");
  if (NumberIn(box) > count) {
    correct(box, std::to_string(count), std::to_string(count) + " signal files are combined");
  }
  if (index == 0) {
    if (NumberIn(from) > NumberIn(to)) correct(from, to.Text(), "the range ends there");
  } else {
    if (NumberIn(to) == 0.0) correct(from, "0", "the buy range ends at 0");
    if (NumberIn(from) > NumberIn(to)) correct(to, from.Text(), "the range begins there");
  }
  summary.lblSigNote.SetCaption(told);
}

void FrmCalc::CheckOutput(CheckBox& check, TextBox& file, const FileRequest& request) {
  if (!check.Checked()) {
    file.SetText("");
    return;
  }
  if (!IsBlank(file)) return;
  const auto chosen = ChooseSavePath(request, context_.dialogs);
  if (chosen) {
    file.SetText(*chosen);
  } else {
    check.SetChecked(false);
  }
}

void FrmCalc::chkSigSumFile_Click() {
  CheckOutput(summary.chkSigSumFile,
              summary.txtSigSumFile,
              Chooser("Select Signal Summary File", "SSM", context_.state.directories.ProgramDir));
}

void FrmCalc::chkSigDetFile_Click() {
  CheckOutput(summary.chkSigDetFile,
              summary.txtSigDetFile,
              Chooser("Select Signal Detail File", "SDT", context_.state.directories.ProgramDir));
}

void FrmCalc::chkCompSigFile_Click() {
  CheckOutput(summary.chkCompSigFile,
              summary.txtCompSigFile,
              Chooser("Select Signal File", "SIG", context_.state.market.QuotelineDir + "\\SIG"));
}

void FrmCalc::chkCompFile_Click() {
  const FnuBoxes boxes{summary.txtCompFile, summary.txtCompTitle, summary.txtCompSymbol};
  if (!summary.chkCompFile.Checked()) {
    for (TextBox* box : {&boxes.file, &boxes.title, &boxes.symbol}) box->SetText("");
    return;
  }
  if (!IsBlank(summary.txtCompFile)) return;
  std::optional<RuntimeError> failure;
  if (AskForFnuFile(boxes, failure)) return;
  if (failure) {
    SayError(*failure);
  } else {
    summary.chkCompFile.SetChecked(false);
  }
}

}  // namespace vistaplot
