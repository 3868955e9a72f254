#include "table/data_table.h"

#include <gtest/gtest.h>

#include <string>

namespace vistaplot {
namespace {

// Reads the table as a view would when it is told.
class Recorder : public TableObserver {
 public:
  explicit Recorder(const DataTable& table) : table_(table) {}

  void ActiveSheetChanged() override { log += "active " + table_.Active().SheetName + "; "; }
  void SheetsChanged() override {
    log += std::to_string(table_.SheetCount()) + " sheets, " + table_.Active().SheetName + "; ";
  }
  void ContentChanged(int sheet) override { log += "content " + std::to_string(sheet) + "; "; }

  std::string log;

 private:
  const DataTable& table_;
};

TEST(DataTable, ActiveSheetGivesWayWhenItIsRemoved) {
  DataTable table;
  Recorder recorder(table);
  table.SetObserver(&recorder);
  table.SetSheetCount(3);
  table.SetActiveSheet(3);
  table.SetActiveSheet(4);
  table.SetActiveSheet(0);
  table.SetSheetCount(2);
  table.SetSheetCount(0);
  EXPECT_EQ(recorder.log,
            "3 sheets, Sheet1; active Sheet3; 2 sheets, Sheet2; active Sheet2; "
            "1 sheets, Sheet1; active Sheet1; ");
}

TEST(DataTable, ResetLeavesOneClearedSheetAndSpares) {
  DataTable table;
  table.SetSheetCount(4);
  table.SheetAt(1).SheetName = "Funds";
  table.SheetAt(1).SetPriceColumn(2, "AAA", {1.0F});
  table.SheetAt(2).SetCellText(1, 1, "Symbol");
  table.SetActiveSheet(2);
  table.Reset(1);
  EXPECT_EQ(table.SheetCount(), 2);
  EXPECT_EQ(table.ActiveSheet(), 1);
  EXPECT_EQ(table.Active().SheetName, "Sheet1");
  EXPECT_EQ(table.Active().CellText(2, 2), "");
  EXPECT_EQ(table.SheetAt(2).CellText(1, 1), "");
  EXPECT_EQ(table.SheetAt(2).SheetName, "Sheet2");
}

}  // namespace
}  // namespace vistaplot
