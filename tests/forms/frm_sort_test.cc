#include "forms/frm_sort.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "support/result_bytes.h"
#include "support/screen_world.h"

namespace vistaplot {
namespace {

using Texts = std::vector<std::string>;

/// *.SUM files of three cases on sheets A, B and C, opened by the file button.
struct SortWorld : test::ScreenWorld {
  explicit SortWorld(const std::vector<std::vector<const char*>>& annuals) {
    state.directories.ZephyrineDir = "C:\\Z";
    settings.values = {{"zpdir", "C:\\Z"}};
    screens.frmMain.Load();
    Texts paths;
    for (std::size_t file = 0; file < annuals.size(); ++file) {
      std::string bytes;
      int number = 0;
      for (const char* annual : annuals[file]) {
        bytes += test::LongSum(std::to_string(++number), annual);
      }
      paths.push_back(folder.Write(std::string(1, static_cast<char>('A' + file)) + ".SUM", bytes));
    }
    dialogs.open_answers.push_back(paths);
    screens.frmTab.cmdFileName.RaiseClick();
  }

  /// Runs a sort command; `choose` plays the user of the dialog.
  template <class Command>
  void Run(Command& command, const std::function<void(FrmSort&)>& choose) {
    host.on_modal = [&](Form& form) {
      ASSERT_EQ(&form, &screens.frmSort);
      choose(screens.frmSort);
    };
    command.RaiseClick();
  }

  /// The case numbers of a sheet from row 3 on, without blanks.
  std::string Cases(int sheet) const {
    std::string cases;
    const Sheet& shown = state.table.SheetAt(sheet);
    for (int row = 3; row <= shown.MaxRow; ++row) cases += shown.CellText(row, 1).substr(0, 1);
    return cases;
  }
};

TEST(FrmSort, OffersTheHeadingsOfTheActiveSheet) {
  SortWorld world({{"1", "2", "3"}});
  world.Run(world.screens.frmMain.mnuEditSort, [](FrmSort& frmSort) {
    EXPECT_EQ(frmSort.lblBlock.Caption(), "A: rows 3 to 5, columns 1 to 17");
    ASSERT_EQ(frmSort.cboSort1.Count(), 17);
    EXPECT_EQ(frmSort.cboSort1.Entries()[1], " BUY");
    EXPECT_EQ(frmSort.cboSort1.Entries()[4], "AVG ANNUAL %");
    EXPECT_EQ(frmSort.cboSort1.ListIndex(), 0);
    for (ComboBox* keys : {&frmSort.cboSort2, &frmSort.cboSort3}) {
      ASSERT_EQ(keys->Count(), 18);
      EXPECT_EQ(keys->CurrentText(), "None");
    }
    EXPECT_EQ(frmSort.lblSort3.Caption(), "Sort Key 3:");
    EXPECT_EQ(frmSort.fraOrder2.Caption(), "Sort Key 2 Order");
    EXPECT_EQ(frmSort.optOrder1.Entries(), (Texts{"Ascending Order", "Descending Order"}));
    frmSort.cmdCancel.RaiseClick();
  });
  EXPECT_EQ(world.Cases(1), "123");
}

TEST(FrmSort, LargestAnnualFirstLeavesTheHeadings) {
  SortWorld world({{"   9.5", "12.25", "-3"}});
  world.Run(world.screens.frmMain.tools.cmdSort, [](FrmSort& frmSort) {
    frmSort.cboSort1.SetListIndex(4);
    frmSort.optOrder1.SetListIndex(1);
    frmSort.cmdSort.RaiseClick();
    EXPECT_FALSE(frmSort.Shown());
  });
  EXPECT_EQ(world.Cases(1), "213");
  EXPECT_EQ(world.state.table.SheetAt(1).CellText(2, 5), "ANNUAL %");
  EXPECT_EQ(world.state.table.SheetAt(1).CellText(3, 5), "12.25   ");
  world.Run(world.screens.frmMain.tools.cmdSort, [](FrmSort& frmSort) {
    EXPECT_EQ(frmSort.optOrder1.ListIndex(), 0) << "the dialog starts anew";
    frmSort.cmdSort.RaiseClick();
  });
  EXPECT_EQ(world.Cases(1), "123");
}

TEST(FrmSort, SecondAndThirdKeysOrderEqualRows) {
  SortWorld world({{"5", "7", "5", "7"}});
  world.Run(world.screens.frmMain.tools.cmdSort, [](FrmSort& frmSort) {
    frmSort.cboSort1.SetListIndex(1);  // all equal
    frmSort.cboSort2.SetListIndex(4);
    frmSort.cboSort3.SetListIndex(0);
    frmSort.optOrder3.SetListIndex(1);
    frmSort.cmdSort.RaiseClick();
  });
  EXPECT_EQ(world.Cases(1), "3142");
  world.Run(world.screens.frmMain.tools.cmdSort, [](FrmSort& frmSort) {
    frmSort.cboSort1.SetListIndex(4);
    frmSort.optOrder1.SetListIndex(1);
    frmSort.optOrder2.SetListIndex(1);  // of no key
    frmSort.cmdSort.RaiseClick();
  });
  EXPECT_EQ(world.Cases(1), "4231") << "equal rows keep their order";
}

TEST(FrmSort, AllSheetsButTheSpareOne) {
  SortWorld world({{"3", "2", "1"}, {"1", "3", "2"}, {"2", "3", "1"}});
  Sheet& spare = world.state.table.SheetAt(4);
  spare.SetTextColumn(1, {"9", "8", "7", "6"});
  spare.MaxRow = 4;
  spare.MaxCol = 1;
  world.state.table.SetActiveSheet(2);
  const auto by_annual = [](FrmSort& frmSort) {
    frmSort.cboSort1.SetListIndex(4);
    frmSort.cmdSort.RaiseClick();
  };
  world.Run(world.screens.frmMain.mnuEditSort, by_annual);
  EXPECT_EQ(world.Cases(1) + world.Cases(2) + world.Cases(3),
            "123"
            "132"
            "123");
  world.Run(world.screens.frmMain.tools.cmdSortAll, [&](FrmSort& frmSort) {
    EXPECT_EQ(frmSort.lblBlock.Caption(), "3 sheets: A, B, C; of B rows 3 to 5, columns 1 to 17");
    by_annual(frmSort);
  });
  EXPECT_EQ(world.Cases(1) + world.Cases(2) + world.Cases(3),
            "321"
            "132"
            "312");
  EXPECT_EQ(spare.CellText(1, 1), "9");
  EXPECT_EQ(world.state.table.ActiveSheet(), 2);
}

TEST(FrmSort, OfAComputedSummaryOnlyItsSheet) {
  for (const DataType type : {DataType::kSummary, DataType::kZephyrine}) {
    SortWorld world({});
    world.screens.frmTab.cboDataType.SetListIndex(static_cast<int>(type));
    DataTable& table = world.state.table;
    table.SetSheetCount(4);
    for (int number = 1; number <= 3; ++number) {
      Sheet& sheet = table.SheetAt(number);
      sheet.SetTextColumn(1, {"", "", "2", "1"});
      sheet.MaxRow = 4;
      sheet.MaxCol = 1;
      sheet.FixedRows = 2;
    }
    world.state.flags.ComputedSummaryShown = true;
    world.screens.frmMain.EnableSorting(true);
    world.Run(world.screens.frmMain.mnuEditSortAll,
              [](FrmSort& frmSort) { frmSort.cmdSort.RaiseClick(); });
    EXPECT_EQ(world.Cases(1) + world.Cases(2) + world.Cases(3),
              type == DataType::kSummary ? "211221" : "121212");
  }
}

TEST(FrmSort, WhatIsSelectedIsSortedAndTheRestStays) {
  SortWorld world({{"4", "3", "2", "1"}});
  Sheet& sheet = world.state.table.SheetAt(1);
  sheet.Select({.SelStartRow = 2, .SelStartCol = 4, .SelEndRow = 5, .SelEndCol = 6});
  world.Run(world.screens.frmMain.mnuEditSort, [](FrmSort& frmSort) {
    EXPECT_EQ(frmSort.lblBlock.Caption(), "A: rows 3 to 5, columns 4 to 6");
    ASSERT_EQ(frmSort.cboSort1.Entries(), (Texts{" S/Y", "AVG ANNUAL %", "MAX DRAW DOWN %"}));
    frmSort.cboSort1.SetListIndex(1);
    frmSort.cmdSort.RaiseClick();
  });
  EXPECT_EQ(world.Cases(1), "1234");
  Texts annuals;
  for (int row = 3; row <= 6; ++row) annuals.push_back(sheet.CellText(row, 5).substr(0, 1));
  EXPECT_EQ(annuals, (Texts{"2", "3", "4", "1"}));
}

}  // namespace
}  // namespace vistaplot
