#include <string>
#include <vector>

#include "bench_program.h"
#include "figures.h"
#include "import/family_summary.h"
#include "import/price_load.h"
#include "marketdata/service.h"
#include "price_walk.h"
#include "quoteline/csv_prices.h"
#include "support/temporary_folder.h"
#include "timing.h"

namespace vistaplot::bench {
namespace {

constexpr int kRuns = 9;

std::size_t CountPrices(const std::string& wide_csv) {
  const auto file = ReadPriceFile(wide_csv, {});
  if (!file) throw std::runtime_error(PlainText(file.Error()));
  std::size_t count = 0;
  for (const PriceSeries& series : file.Value().series) count += series.prices.size();
  return count;
}

/// Sum of a column's numbers below the heading.
double ColumnSum(const Sheet& sheet, int col) {
  double sum = 0.0;
  for (int row = 2; row <= sheet.MaxRow; ++row) sum += sheet.CellNumber(row, col);
  return sum;
}

/// Sum of the last day's prices of all columns.
double LastRowSum(const Sheet& sheet) {
  double sum = 0.0;
  for (int col = 2; col <= sheet.MaxCol; ++col) sum += sheet.CellNumber(sheet.MaxRow, col);
  return sum;
}

double LoadAll(const std::string& directory, const std::vector<std::string>& symbols) {
  QuotelineLibrary api(directory);
  MarketData market;
  DataTable table;
  test::RecordingDialogs dialogs;
  if (!OpenQuoteline(api, market, dialogs)) throw std::runtime_error("cannot open the service");
  const LoadServices services{api, market, table, dialogs};
  PriceLoadState load;
  BeginPriceLoad(services, load);
  for (const std::string& symbol : symbols) LoadIssueColumn(services, load, symbol);
  FinishPriceSheet(services, load);
  return LastRowSum(table.SheetAt(1));
}

}  // namespace

void MeasureLoading(const std::string& wide_csv) {
  Measure("read the wide CSV (19 MB) into memory", kRuns, [&] { return CountPrices(wide_csv); });

  const test::TemporaryFolder folder;
  MakeService(folder.Path(), wide_csv);
  std::vector<std::string> symbols;
  for (int issue = 0; issue < kIssues; ++issue) symbols.push_back(SymbolOf(issue));
  Measure("load 255 x 12000 from SQLite BLOBs into a table", kRuns, [&] {
    return LoadAll(folder.Path(), symbols);
  });

  BenchProgram program(folder.Path());
  DataTable& table = program.State().table;
  Measure("load and summary 255 x 12000", kRuns, [&] {
    program.Load();
    return ColumnSum(table.SheetAt(kSummarySheet), 3);
  });

  const FamilyWindow window{1, kDays, {"1", "5", "10", "15", "30", "50"}};
  Measure("family summary 255 x 12000", kRuns, [&] {
    WriteFamilySummary(
        program.State().family_records, program.State().market.calendar, window, table);
    return ColumnSum(table.SheetAt(kSummarySheet), 3);
  });
}

}  // namespace vistaplot::bench
