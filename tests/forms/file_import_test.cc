// The file button of the parameter screen: dialog, product folders, sheets, refusals; then the sort
// commands over the sheets that it brought.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "forms/frm_sort.h"
#include "support/result_bytes.h"
#include "support/screen_world.h"

namespace vistaplot::test {
namespace {

using Texts = std::vector<std::string>;

struct ImportWorld : ScreenWorld {
  explicit ImportWorld(DataType type = DataType::kSummary) {
    state.roots.drives_dir = folder.MakeFolder("drives");
    state.directories.ProgramDir = "/opt/v";
    state.directories.ZephyrineDir = state.directories.VornaxilDir = "C:\\DATA";
    state.directories.KestrelixDir = "C:\\DATA";
    settings.values = {{"zpdir", "C:\\DATA"}, {"vxdir", "C:\\DATA"}, {"kestrldir", "C:\\DATA"}};
    frmMain.Load();
    frmTab.cboDataType.SetListIndex(static_cast<int>(type));
  }

  std::string Drive(const std::string& name, const std::string& bytes) const {
    return folder.Write("drives/" + name, bytes);
  }

  /// Chooses these files in the dialog.
  void Import(const Texts& paths) {
    dialogs.open_answers.push_back(paths);
    frmTab.cmdFileName.RaiseClick();
  }
};

struct FileImport : testing::Test, ImportWorld {};

TEST(FileImports, EveryTypeAsksForItsFilesInItsFolder) {
  const std::string all = "|All (*.*)|*.*";
  struct Case {
    DataType type;
    std::string title, filter;
    const char *name, *folder;
  };
  for (const Case& c :
       {Case{DataType::kZephyrine,
             "Zephyrine Summary",
             "Summary (*.SUM)|*.SUM",
             "*.SUM",
             "C:\\DATA"},
        Case{DataType::kVornaxil, "Vornaxil", "Vornaxil (*.VX1)|*.VX1", "*.VX1", "C:\\DATA"},
        Case{DataType::kKestrelix, "Kestrelix", "Kestrelix (*.TXT)|*.TXT", "*.TXT", "C:\\DATA"},
        Case{
            DataType::kSummary, "Vistaplot Summary", "VP Summary (*.SSM)|*.SSM", "*.SSM", "/opt/v"},
        Case{
            DataType::kDetail, "Vistaplot Detail", "VP Detail (*.SDT)|*.SDT", "*.SDT", "/opt/v"}}) {
    ImportWorld world(c.type);
    world.Import({});
    ASSERT_EQ(world.dialogs.open_requests.size(), 1U);
    const FileRequest& request = world.dialogs.open_requests[0];
    EXPECT_EQ(request.title, "Select " + c.title + " File");
    EXPECT_EQ(request.filter, c.filter + all);
    EXPECT_EQ(request.file_name, c.name);
    EXPECT_EQ(request.initial_folder, c.folder);
    EXPECT_TRUE(request.multiple && request.must_exist);
    EXPECT_EQ(world.SheetNames(), "Sheet1") << "a cancelled dialog changes nothing";
    EXPECT_FALSE(world.state.flags.ResultFileLoaded);
  }
}

TEST_F(FileImport, SeveralFilesBecomeSheetsInTheirOrderAndASpare) {
  Drive("c/data/b.two.SSM", Ssm("2", "7"));
  Drive("c/data/\xC3\xA4 1.ssm", Ssm("1", "5") + Ssm("2", "6"));
  EXPECT_FALSE(frmMain.mnuEditSort.Enabled());
  Import({"C:\\DATA\\B.TWO.SSM", "C:\\DATA\\\xC3\xA4 1.ssm"});
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_EQ(SheetNames(), "B|\xC3\xA4 1|Sheet3");
  EXPECT_EQ(state.table.ActiveSheet(), 2);
  EXPECT_EQ(Cell(1, 3, 4), "7       ");
  EXPECT_EQ(Cell(2, 4, 4), "6       ");
  EXPECT_EQ(Cell(3, 1, 1), "");
  EXPECT_EQ(frmTab.lblFileName.Caption(), "C:\\DATA B.TWO.SSM \xC3\xA4 1.ssm");
  EXPECT_TRUE(state.flags.ResultFileLoaded);
  EXPECT_TRUE(frmMain.mnuEditSort.Enabled() && frmMain.mnuEditSortAll.Enabled());
  EXPECT_TRUE(frmMain.tools.cmdSort.Enabled() && frmMain.tools.cmdSortAll.Enabled());
  EXPECT_EQ(frmMain.pnlStatus.Caption(), "2 files, the last \xC3\xA4 1: 2 rows");
  EXPECT_EQ(frmTab.Pointer(), MousePointer::kDefault);
  EXPECT_FALSE(frmMain.pnlAction.Visible() || frmMain.pnlMeter.Visible());
}

TEST_F(FileImport, OverlayGoesWhereTheUserSays) {
  const std::string a = Drive("c/A.SSM", Ssm("1", "1"));
  const std::string b = Drive("c/B.SSM", Ssm("1", "2"));
  const std::string c = Drive("c/C.SSM", Ssm("1", "3"));
  Import({a});
  EXPECT_EQ(frmTab.lblFileName.Caption(), a);
  EXPECT_EQ(frmMain.pnlStatus.Caption(), "A: 1 row");
  ASSERT_TRUE(dialogs.messages.empty()) << "nothing to overlay yet";

  dialogs.answers = {Answer::kCancel};
  Import({b});
  EXPECT_EQ(SheetNames(), "A|Sheet2");
  EXPECT_EQ(frmTab.lblFileName.Caption(), a) << "cancelled: nothing changes";
  const MessageRequest& asked = dialogs.messages.at(0);
  EXPECT_EQ(asked.text, "Do you want to overlay a current spreadsheet?");
  EXPECT_EQ(asked.title, "Vistaplot - Overlay spreadsheet");
  EXPECT_EQ(asked.buttons, Buttons::kYesNoCancel);
  EXPECT_EQ(asked.icon, Icon::kQuestion);
  EXPECT_EQ(asked.default_answer, Answer::kNo);

  dialogs.answers = {Answer::kYes};  // one loaded sheet: no sheet is asked for
  host.on_modal = [](Form& form) { ADD_FAILURE() << form.Name(); };
  Import({b});
  EXPECT_EQ(SheetNames(), "B|Sheet2");
  EXPECT_EQ(Cell(1, 3, 4), "2       ");

  dialogs.answers = {Answer::kNo};
  Import({c});
  EXPECT_EQ(SheetNames(), "B|C|Sheet3");

  Texts offered;
  host.on_modal = [&](Form& form) {
    ASSERT_EQ(&form, &screens.frmSheet);
    offered = screens.frmSheet.cboSheet.Entries();
    EXPECT_EQ(screens.frmSheet.cboSheet.ListIndex(), 0);
    screens.frmSheet.cboSheet.SetListIndex(1);
    screens.frmSheet.cmdOK.RaiseClick();
  };
  dialogs.answers = {Answer::kYes};
  Import({a, b});  // only the first one overlays
  EXPECT_EQ(offered, (Texts{"B", "C"}));
  EXPECT_EQ(SheetNames(), "B|A|B|Sheet4");

  for (const bool by_button : {true, false}) {
    host.on_modal = [&](Form& form) {
      if (by_button) screens.frmSheet.cmdCancel.RaiseClick();
      form.Unload();
    };
    dialogs.answers = {Answer::kYes};
    Import({c});
    EXPECT_TRUE(SheetNames().ends_with("|C|Sheet" + std::to_string(state.table.SheetCount())))
        << "a cancelled chooser means new sheets";
  }
  EXPECT_EQ(state.table.SheetCount(), 6);
}

TEST(FileImports, UnreadableFilesAreToldAndTheNextOnesFollow) {
  ImportWorld world(DataType::kKestrelix);
  world.folder.MakeFolder("drives/c/FOLDER.TXT");
  const std::string good = world.Drive("c/GOOD.TXT", "Title\n\nabcname   \n001row\nlast\n");
  world.Import({"C:\\GONE.TXT", "C:\\FOLDER.TXT", good});
  EXPECT_EQ(world.dialogs.Texts(),
            (Texts{"Unable to read C:\\GONE.TXT\rerror: 53 File not found",
                   "Unable to read C:\\FOLDER.TXT\rerror: 75 Path/File access error"}));
  EXPECT_EQ(world.SheetNames(), "GONE|FOLDER|GOOD|Sheet4");
  EXPECT_EQ(world.Cell(1, 1, 1), "");
  EXPECT_EQ(world.Cell(3, 3, 2), "row");
  EXPECT_TRUE(world.state.flags.KestrelixLoaded);
  EXPECT_EQ(world.screens.frmTab.cboYParm.CurrentText(), "name") << "the lists follow the sheet";
}

TEST(FileImports, VornaxilFilesSetTheKindAndTheLists) {
  ImportWorld world(DataType::kVornaxil);
  world.Import({world.Drive("c/A.VX1", Vx1("XX", {"  1", "last"}))});
  EXPECT_EQ(world.state.flags.VornaxilKind, "APM");
  EXPECT_EQ(world.screens.frmTab.cboDataField.CurrentText(), "Mr");
  EXPECT_EQ(world.Cell(1, 2, 1), "1");
  ImportWorld summaries(DataType::kZephyrine);
  summaries.Import({summaries.Drive("c/A.SUM", LongSum("1", "2"))});
  EXPECT_EQ(summaries.Cell(1, 3, 17), " -1.25");
  ImportWorld details(DataType::kDetail);
  details.Import({details.Drive("c/A.SDT", Sdt("01/04/99", "2"))});
  EXPECT_EQ(details.Cell(1, 3, 3), "01/04/99");
}

TEST_F(FileImport, AComputedSummaryGivesWayOnlyToChosenFiles) {
  state.table.SetSheetCount(3);
  SheetAt(1).SetCellText(5, 5, "left");
  state.flags.ComputedSummaryShown = true;
  Import({});
  EXPECT_TRUE(state.flags.ComputedSummaryShown);
  EXPECT_EQ(state.table.SheetCount(), 3);
  Import({Drive("c/A.SSM", Ssm("1", "1"))});
  EXPECT_FALSE(state.flags.ComputedSummaryShown);
  EXPECT_TRUE(dialogs.messages.empty()) << "nothing is left to overlay";
  EXPECT_EQ(SheetNames(), "A|Sheet2");
  EXPECT_EQ(Cell(1, 5, 5), "");
}

TEST(ProductDirectory, IsTheFirstUsualFolderThatHoldsFiles) {
  ImportWorld world(DataType::kVornaxil);
  world.state.directories.VornaxilDir = "    ";
  world.folder.MakeFolder("drives/c/vx/SUBFOLDER");
  world.Drive("d/VX/readme", "");
  world.Import({});
  EXPECT_EQ(world.state.directories.VornaxilDir, "d:\\vx");
  EXPECT_EQ(world.settings.values["vxdir"], "d:\\vx");
  EXPECT_EQ(world.dialogs.open_requests.at(0).initial_folder, "d:\\vx");
  world.Drive("c/zephyr/x", "");
  world.Drive("d/zephyr/x", "");
  world.state.directories.ZephyrineDir = "";
  world.screens.frmTab.cboDataType.SetListIndex(0);
  world.Import({});
  EXPECT_EQ(world.settings.values["zpdir"], "c:\\zephyr");
}

TEST(ProductDirectory, IsAskedForOnceAndRemembered) {
  ImportWorld world(DataType::kKestrelix);
  world.state.directories.KestrelixDir = "";
  world.settings.values["kestrldir"] = "";
  world.state.directories.ChosenDir = "an older answer";
  int asked = 0;
  world.host.on_modal = [&](Form& form) {
    ++asked;
    EXPECT_EQ(world.screens.frmDir.lblDirectory.Caption(),
              "Enter Kestrelix directory (for example: c:\\kestrl)");
    if (asked == 1) return form.Unload();  // closed without an answer
    world.screens.frmDir.Dir1.SetText(world.folder.Path());
    world.screens.frmDir.cmdOK.RaiseClick();
  };
  world.Import({});
  EXPECT_EQ(world.state.directories.KestrelixDir, "");
  EXPECT_EQ(world.settings.values["kestrldir"], "");
  EXPECT_EQ(world.dialogs.open_requests.size(), 1U) << "the file dialog comes all the same";
  for (int i = 0; i < 2; ++i) world.Import({});
  EXPECT_EQ(asked, 2);
  EXPECT_EQ(world.state.directories.KestrelixDir, world.folder.Path());
  EXPECT_EQ(world.settings.values["kestrldir"], world.folder.Path());
  EXPECT_EQ(world.dialogs.open_requests.at(2).initial_folder, world.folder.Path());
}

TEST(ProductDirectory, AnErrorWhileLookingIsSilent) {
  ImportWorld world(DataType::kVornaxil);
  world.state.directories.VornaxilDir = "";
  world.settings.refuses = true;
  world.Drive("c/vx/x", "");
  world.Import({});
  EXPECT_TRUE(world.dialogs.messages.empty());
  EXPECT_EQ(world.state.directories.VornaxilDir, "c:\\vx");
  // A folder that cannot be listed: none is asked for.
  world.state.directories.ZephyrineDir = "";
  std::filesystem::create_directory_symlink("zephyr", world.folder.Path("drives/c/zephyr"));
  world.screens.frmTab.cboDataType.SetListIndex(0);
  world.host.on_modal = [](Form& form) { ADD_FAILURE() << form.Name(); };
  world.Import({});
  EXPECT_EQ(world.dialogs.open_requests.size(), 2U);
}

/// *.SUM files of three cases on sheets A, B and C, opened by the file button.
struct SortWorld : ScreenWorld {
  explicit SortWorld(const std::vector<std::vector<const char*>>& annuals) {
    state.directories.ZephyrineDir = "C:\\Z";
    settings.values = {{"zpdir", "C:\\Z"}};
    screens.frmMain.Load();
    Texts paths;
    for (std::size_t file = 0; file < annuals.size(); ++file) {
      std::string bytes;
      int number = 0;
      for (const char* annual : annuals[file]) {
        bytes += LongSum(std::to_string(++number), annual);
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
  // "None" names no column, neither the one behind the block's last, by which A would turn round.
  world.state.table.SheetAt(2).Select({3, 2, 5, 4});
  world.Run(world.screens.frmMain.mnuEditSortAll, [](FrmSort& form) { form.cmdSort.RaiseClick(); });
  EXPECT_EQ(world.Cases(1), "123");
  world.state.table.SheetAt(2).Select({5, 17, 5, 17});
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
}  // namespace vistaplot::test
