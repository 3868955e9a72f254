// Everything that a load works with, made for a test.
#pragma once

#include "import/family_records.h"
#include "import/price_load.h"
#include "support/fake_quoteline.h"
#include "support/recording_dialogs.h"

namespace vistaplot::test {

struct LoadWorld {
  FakeQuoteline api;
  MarketData market;
  DataTable table;
  RecordingDialogs dialogs;
  SilentProgress progress;
  PriceLoadState load;
  FamilyRecords records;
  LoadServices services{api, market, table, dialogs};

  /// Ready for LoadIssueColumn, after the service's days and issues were set.
  void Begin() { BeginPriceLoad(services, load); }

  /// The texts of a row of a sheet, columns 1 to MaxCol, with "|" between them.
  std::string Row(int sheet, int row) const {
    std::string texts;
    for (int col = 1; col <= table.SheetAt(sheet).MaxCol; ++col) {
      texts.append(col > 1 ? "|" : "").append(table.SheetAt(sheet).CellText(row, col));
    }
    return texts;
  }
};

}  // namespace vistaplot::test
