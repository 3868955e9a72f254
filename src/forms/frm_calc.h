// The calculations screen: new series for the market-data service, and the signal summary.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calc/signal_data.h"
#include "calc/signal_files.h"
#include "formats/parameter_file.h"
#include "forms/calc_frames.h"
#include "forms/shared_state.h"

namespace vistaplot {

/// The boxes of a series' file, title and symbol.
struct FnuBoxes {
  TextBox& file;
  TextBox& title;
  TextBox& symbol;
};

class FrmCalc : public Form {
 public:
  explicit FrmCalc(const Context& context);

  ExchangeFrame exchange;
  FamilyFrame family;
  BetaFrame beta;
  SignalFrame summary;

  void cmdADFile_Click();
  void cmdAD_Click();
  void cmdADFamFam_Click();
  void cmdADFamFile_Click();
  void cmdADFam_Click();
  void cmdFnuFile_Click();
  void CmdBetaFnu_Click();
  void txtBeta_LostFocus();
  void txtFnuNav_LostFocus();

  void CmdAddSig_Click();
  void cmdRemSig_Click();
  void cmdSigFamFile_Click();
  void CmdSaveSigFam_Click();
  void txtSigInFund_LostFocus();
  void txtSigOutFund_LostFocus();
  void txtStartDate_LostFocus();
  void txtEndDate_LostFocus();
  void txtDelay_Change();
  void chkSigRange_Click();
  void txtSigRange_LostFocus(int index);
  void chkSigSumFile_Click();
  void chkSigDetFile_Click();
  void chkCompSigFile_Click();
  void chkCompFile_Click();
  void cmdLoadParms_Click();
  void cmdSaveParms_Click();
  void cmdSigSum_Click();

  /// Lets the user choose an FNU file and edit its title and symbol. A file that ends too early
  /// ends the program.
  void ChooseFnuFile(const FnuBoxes& boxes);

  /// Shows the trades and the equity line of the case whose row is selected on the summary sheet.
  void ShowCase();

 protected:
  void Form_Load() override;

 private:
  void ConnectSeries();
  void ConnectSignals();
  void ConnectChecks();

  bool AskForFnuFile(const FnuBoxes& boxes, std::optional<RuntimeError>& failure);
  std::string HostPathOf(const TextBox& box) const;
  void SayError(const RuntimeError& error);
  /// `note` says that the series was written, and whether the service shows it under its symbol;
  /// `newest` is its last value.
  void TellSeries(Label& note, const TextBox& symbol, float newest);
  bool ServiceShows(std::string_view symbol, float newest);
  /// `text` in a box, and beside it in `note` the file or cell that failed.
  void SayNotWritten(Label& note, const RuntimeError& error, const std::string& text);

  bool ReadBreadthIssue(std::string_view symbol, std::vector<float>& series);
  std::optional<std::vector<std::string>> ReadMembers();
  std::string PathToRetry() const;
  void CalculateFamily(const std::vector<std::string>& symbols);
  /// The newest value of the series made.
  Result<float> MakeBetaSeries(int source);

  void LoadSignalFamily(const std::string& name);
  void ReadSignalFamily();
  void ShowSignalCount();
  void CheckFund(TextBox& box);
  void CheckDate(TextBox& date, TextBox& day);
  void CheckOutput(CheckBox& check, TextBox& file, const FileRequest& request);

  Result<SignalParameters> CurrentParameters() const;
  void FillParameters(const SignalParameters& parameters, std::size_t size);
  void FillStartAndDelay(const SignalParameters& parameters);

  Result<SignalTest> ReadTest() const;
  SignalOutputs ReadOutputs() const;
  std::vector<std::string> SignalPaths() const;
  void RunSummary(const SignalTest& test);
  void FillFunds(const SignalData& data);
  bool OpenFiles(SignalFiles& files, const SignalOutputs& outputs);
  void ShowSummary(int finished, int cases);

  /// The last run, for the cases that the user asks for later.
  struct LastRun {
    SignalData data;
    SignalTest test;
  };

  const Context& context_;
  std::optional<LastRun> last_run_;
};

}  // namespace vistaplot
