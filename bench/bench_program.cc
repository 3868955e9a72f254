#include "bench_program.h"

#include <numeric>
#include <stdexcept>
#include <vector>

#include "quoteline/price_import.h"
#include "quoteline/store_creation.h"

namespace vistaplot::bench {

void MakeService(const std::string& directory, const std::string& csv) {
  const Status made = CreateStore(directory);
  if (!made) throw std::runtime_error(PlainText(made.Error()));
  ImportRequest request;
  request.directory = directory;
  request.files = {csv};
  const ImportReport report = ImportPrices(request);
  if (!report.faults.empty()) throw std::runtime_error(report.faults.front());
}

void ChooseAllIssues(FrmTab& tab) {
  tab.cboDataType.SetListIndex(static_cast<int>(DataType::kPrices));
  tab.lists.OptSelect.SetListIndex(1);
  std::vector<int> all(static_cast<std::size_t>(tab.lists.lstIndex.Count()));
  std::iota(all.begin(), all.end(), 0);
  tab.lists.lstIndex.Select(all);
}

void SelectFunds(DataTable& table, int count) {
  table.SetActiveSheet(1);
  Sheet& sheet = table.SheetAt(1);
  sheet.selection.clear();
  for (int col = 2; col <= sheet.MaxCol && count > 0; ++col) {
    if (sheet.CellNumber(2, col) <= 0) continue;
    sheet.selection.push_back({1, col, sheet.MaxRow, col});
    --count;
  }
}

BenchProgram::BenchProgram(const std::string& directory)
    : quoteline_(directory),
      settings_(directory + "/settings.ini"),
      program_({quoteline_, settings_, dialogs_, host_, output_, directory, {}}) {
  program_.Start();
  ChooseAllIssues(AllScreens().frmTab);
}

void BenchProgram::Load() {
  AllScreens().frmTab.cmdLoadData_Click();
  if (!State().flags.ResultFileLoaded) throw std::runtime_error("nothing was loaded");
}

}  // namespace vistaplot::bench
