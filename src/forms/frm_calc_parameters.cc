// Parameter files: all inputs of the signal summary, saved and loaded.

#include <algorithm>
#include <string>

#include "base/files.h"
#include "base/host_path.h"
#include "base/number_text.h"
#include "base/text.h"
#include "forms/date_boxes.h"
#include "forms/frm_calc.h"
#include "forms/screens.h"

namespace vistaplot {

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
  FillParameters(ReadParameters(bytes.Value(), current), bytes.Value().size());
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
