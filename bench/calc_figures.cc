#include <stdexcept>
#include <string>
#include <vector>

#include "base/files.h"
#include "bench_program.h"
#include "calc/signal_counts.h"
#include "calc/signal_run.h"
#include "calc/signal_sheets.h"
#include "figures.h"
#include "formats/family_file.h"
#include "price_walk.h"
#include "support/recording_dialogs.h"
#include "support/temporary_folder.h"
#include "timing.h"

namespace vistaplot::bench {
namespace {

constexpr int kRuns = 9;
constexpr int kSignalFiles = 100;

std::vector<std::string> WriteSignalFiles(const test::TemporaryFolder& folder) {
  std::vector<std::string> paths;
  const std::vector<int> days = MarketDays(kDays);
  for (int file = 0; file < kSignalFiles; ++file) {
    const std::string name = "SIG/SG" + std::to_string(1000 + file).substr(1) + ".SIG";
    paths.push_back(folder.Write(name, SignalFileText(file, days, kSeed)));
  }
  return paths;
}

double SumOfColumn(const DataTable& table, int col) {
  const Sheet& sum = table.SheetAt(kSumSheet);
  double total = 0.0;
  for (int row = 3; row <= sum.MaxRow; ++row) total += sum.CellNumber(row, col);
  return total;
}

void MeasureEngine(BenchProgram& program, const std::vector<std::string>& paths) {
  MarketData& market = program.State().market;
  Measure("read 100 signal files into the daily count", kRuns, [&] {
    long long total = 0;
    const auto counts = CountSignalFiles(paths, market.calendar);
    for (const int count : counts.Value()) total += count;
    return total;
  });
  const auto data = ReadSignalData(program.Quoteline(), market, "F000", "F001", paths);
  const SignalTest test{
      .start_day = 1, .end_day = kDays, .two_dimensional = true, .buy_to = 100, .sell_to = 100};
  DataTable table;
  table.SetSheetCount(2);
  test::SilentProgress progress;
  Measure("signal engine 12000 days x 10000 cases", kRuns, [&] {
    SignalFiles files;
    RunSignalTest(data.Value(), test, {table, files}, progress);
    return SumOfColumn(table, 4);
  });
}

void WantFiles(SignalFrame& frame, const std::string& directory) {
  frame.txtSigSumFile.SetText(directory + "/R.SSM");
  frame.txtSigDetFile.SetText(directory + "/R.SDT");
  frame.txtCompSigFile.SetText(directory + "/R.SIG");
  frame.txtCompFile.SetText(directory + "/R.FNU");
  frame.txtCompSymbol.SetText("RUN");
  for (CheckBox* box :
       {&frame.chkSigSumFile, &frame.chkSigDetFile, &frame.chkCompSigFile, &frame.chkCompFile}) {
    box->SetChecked(true);
  }
}

void MeasureRuns(BenchProgram& program, const std::string& directory) {
  FrmCalc& calc = program.AllScreens().frmCalc;
  SignalFrame& frame = calc.summary;
  std::vector<int> all;
  for (int file = 0; file < kSignalFiles; ++file) all.push_back(file);
  frame.lstSigfiles.Select(all);
  calc.CmdAddSig_Click();
  frame.txtSigInFund.SetText("F000");
  frame.txtSigOutFund.SetText("F001");
  frame.chkSigRange.SetChecked(true);
  frame.txtSigRange[0].SetText("46");
  frame.txtSigRange[1].SetText("55");
  frame.txtSigRange[2].SetText("46");
  frame.txtSigRange[3].SetText("55");
  const auto run = [&] {
    calc.cmdSigSum_Click();
    return SumOfColumn(program.State().table, 4);
  };
  Measure("signal run 12000 days x 100 cases", kRuns, run);
  WantFiles(frame, directory);
  Measure("the same with all files", kRuns, run);
}

void MeasureBreadth(BenchProgram& program, const test::TemporaryFolder& folder) {
  std::vector<std::string> symbols;
  for (int issue = 0; issue < kIssues; ++issue) symbols.push_back(SymbolOf(issue));
  const FamilyHeader header{.name = "ALL", .title = "All issues"};
  FrmCalc& calc = program.AllScreens().frmCalc;
  calc.family.txtADFamFam.SetText(
      folder.Write("USERDEF/ALL.FAM", FamilyFileBytes(header, symbols).Value()));
  calc.family.txtADFamFile.SetText(folder.Path("ALL.FNU"));
  calc.family.txtADFamSymbol.SetText("ALLAD");
  Measure("family breadth 255 x 12000", kRuns, [&] {
    calc.cmdADFam_Click();
    return folder.Read("ALL.FNU").size();
  });
}

}  // namespace

void MeasureCalculations(const std::string& wide_csv) {
  const test::TemporaryFolder folder;
  MakeService(folder.Path(), wide_csv);
  const std::vector<std::string> paths = WriteSignalFiles(folder);
  BenchProgram program(folder.Path());
  program.AllScreens().frmMain.cmdShowCalc_Click();
  MeasureEngine(program, paths);
  MeasureBreadth(program, folder);
  MeasureRuns(program, folder.Path());
}

}  // namespace vistaplot::bench
