#include <stdexcept>
#include <vector>

#include "figures.h"
#include "import/result_files.h"
#include "support/recording_dialogs.h"
#include "timing.h"

namespace vistaplot::bench {
namespace {

constexpr int kRuns = 15;

void Import(DataTable& table, const std::string& summary_file) {
  test::SilentProgress progress;
  if (const Status read = LoadZephyrineSummary({table, progress}, summary_file); !read) {
    throw std::runtime_error(PlainText(read.Error()));
  }
}

}  // namespace

void MeasureResults(const std::string& summary_file) {
  DataTable table;
  Measure("import 9999 summary records of 119 bytes", kRuns, [&] {
    Import(table, summary_file);
    const Sheet& sheet = table.Active();
    return sheet.CellNumber(sheet.MaxRow, 1) + sheet.CellNumber(3, 5);
  });

  // One unsorted sheet a run, the unmeasured one included.
  std::vector<Sheet> sheets(kRuns + 1, table.Active());
  std::size_t next = 0;
  Measure("sort 9999 rows x 17 columns by 3 keys", kRuns, [&] {
    Sheet& sheet = sheets[next++];
    sheet.Sort({.SelStartRow = sheet.FixedRows + 1,
                .SelStartCol = 1,
                .SelEndRow = sheet.MaxRow,
                .SelEndCol = sheet.MaxCol},
               {-5, 2, -6});
    return sheet.CellNumber(3, 1) * 1e4 + sheet.CellNumber(sheet.MaxRow / 2, 1);
  });
}

}  // namespace vistaplot::bench
