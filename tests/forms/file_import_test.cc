// The file button of the parameter screen: dialog, product folders, sheets, refusals.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/result_bytes.h"
#include "support/screen_world.h"

namespace vistaplot {
namespace {

using Texts = std::vector<std::string>;

struct ImportWorld : test::ScreenWorld {
  explicit ImportWorld(DataType type = DataType::kSummary) {
    state.roots.drives_dir = folder.MakeFolder("drives");
    state.directories.ProgramDir = "/opt/vistaplot";
    state.directories.ZephyrineDir = state.directories.VornaxilDir = "C:\\DATA";
    state.directories.KestrelixDir = "C:\\DATA";
    settings.values = {{"zpdir", "C:\\DATA"}, {"vxdir", "C:\\DATA"}, {"kestrldir", "C:\\DATA"}};
    screens.frmMain.Load();
    screens.frmTab.cboDataType.SetListIndex(static_cast<int>(type));
  }

  std::string Drive(const std::string& name, const std::string& bytes) const {
    return folder.Write("drives/" + name, bytes);
  }

  /// Chooses these files in the dialog.
  void Import(const Texts& paths) {
    dialogs.open_answers.push_back(paths);
    screens.frmTab.cmdFileName.RaiseClick();
  }

  Texts SheetNames() const {
    Texts names;
    for (int i = 1; i <= state.table.SheetCount(); ++i) {
      names.push_back(state.table.SheetAt(i).SheetName);
    }
    return names;
  }

  std::string Cell(int sheet, int row, int col) const {
    return state.table.SheetAt(sheet).CellText(row, col);
  }
};

TEST(FileImport, EveryTypeAsksForItsFilesInItsFolder) {
  struct Case {
    DataType type;
    const char* title;
    const char* filter;
    const char* name;
    const char* folder;
  };
  const Case cases[] = {{DataType::kZephyrine,
                         "Select Zephyrine Summary File",
                         "Summary (*.SUM)|*.SUM|All (*.*)|*.*",
                         "*.SUM",
                         "C:\\DATA"},
                        {DataType::kVornaxil,
                         "Select Vornaxil File",
                         "Vornaxil (*.VX1)|*.VX1|All (*.*)|*.*",
                         "*.VX1",
                         "C:\\DATA"},
                        {DataType::kKestrelix,
                         "Select Kestrelix File",
                         "Kestrelix (*.TXT)|*.TXT|All (*.*)|*.*",
                         "*.TXT",
                         "C:\\DATA"},
                        {DataType::kSummary,
                         "Select Vistaplot Summary File",
                         "VP Summary (*.SSM)|*.SSM|All (*.*)|*.*",
                         "*.SSM",
                         "/opt/vistaplot"},
                        {DataType::kDetail,
                         "Select Vistaplot Detail File",
                         "VP Detail (*.SDT)|*.SDT|All (*.*)|*.*",
                         "*.SDT",
                         "/opt/vistaplot"}};
  for (const Case& c : cases) {
    ImportWorld world(c.type);
    world.Import({});
    ASSERT_EQ(world.dialogs.open_requests.size(), 1U);
    const FileRequest& request = world.dialogs.open_requests[0];
    EXPECT_EQ(request.title, c.title);
    EXPECT_EQ(request.filter, c.filter);
    EXPECT_EQ(request.file_name, c.name);
    EXPECT_EQ(request.initial_folder, c.folder);
    EXPECT_TRUE(request.multiple);
    EXPECT_TRUE(request.must_exist);
    EXPECT_EQ(world.SheetNames(), Texts{"Sheet1"}) << "a cancelled dialog changes nothing";
    EXPECT_FALSE(world.state.flags.ResultFileLoaded);
  }
}

TEST(FileImport, SeveralFilesBecomeSheetsInTheirOrderAndASpare) {
  ImportWorld world;
  world.Drive("c/data/b.two.SSM", test::Ssm("2", "7"));
  world.Drive("c/data/\xC3\xA4 1.ssm", test::Ssm("1", "5") + test::Ssm("2", "6"));
  FrmMain& frmMain = world.screens.frmMain;
  EXPECT_FALSE(frmMain.mnuEditSort.Enabled());
  world.Import({"C:\\DATA\\B.TWO.SSM", "C:\\DATA\\\xC3\xA4 1.ssm"});
  EXPECT_TRUE(world.dialogs.messages.empty());
  EXPECT_EQ(world.SheetNames(), (Texts{"B", "\xC3\xA4 1", "Sheet3"}));
  EXPECT_EQ(world.state.table.ActiveSheet(), 2);
  EXPECT_EQ(world.Cell(1, 3, 4), "7       ");
  EXPECT_EQ(world.Cell(2, 4, 4), "6       ");
  EXPECT_EQ(world.Cell(3, 1, 1), "");
  EXPECT_EQ(world.screens.frmTab.lblFileName.Caption(), "C:\\DATA B.TWO.SSM \xC3\xA4 1.ssm");
  EXPECT_TRUE(world.state.flags.ResultFileLoaded);
  EXPECT_TRUE(frmMain.mnuEditSort.Enabled() && frmMain.mnuEditSortAll.Enabled());
  EXPECT_TRUE(frmMain.tools.cmdSort.Enabled() && frmMain.tools.cmdSortAll.Enabled());
  EXPECT_EQ(frmMain.pnlStatus.Caption(), "2 files, the last \xC3\xA4 1: 2 rows");
  EXPECT_EQ(world.screens.frmTab.Pointer(), MousePointer::kDefault);
  EXPECT_FALSE(frmMain.pnlAction.Visible() || frmMain.pnlMeter.Visible());
}

TEST(FileImport, OverlayGoesWhereTheUserSays) {
  ImportWorld world;
  const std::string a = world.Drive("c/A.SSM", test::Ssm("1", "1"));
  const std::string b = world.Drive("c/B.SSM", test::Ssm("1", "2"));
  const std::string c = world.Drive("c/C.SSM", test::Ssm("1", "3"));
  world.Import({a});
  EXPECT_EQ(world.screens.frmTab.lblFileName.Caption(), a);
  ASSERT_TRUE(world.dialogs.messages.empty()) << "nothing to overlay yet";

  world.dialogs.answers = {Answer::kCancel};
  world.Import({b});
  EXPECT_EQ(world.SheetNames(), (Texts{"A", "Sheet2"}));
  EXPECT_EQ(world.screens.frmTab.lblFileName.Caption(), a) << "cancelled: nothing changes";
  const MessageRequest& asked = world.dialogs.messages.at(0);
  EXPECT_EQ(asked.text, "Do you want to overlay a current spreadsheet?");
  EXPECT_EQ(asked.title, "Vistaplot - Overlay spreadsheet");
  EXPECT_EQ(asked.buttons, Buttons::kYesNoCancel);
  EXPECT_EQ(asked.icon, Icon::kQuestion);
  EXPECT_EQ(asked.default_answer, Answer::kNo);

  world.dialogs.answers = {Answer::kYes};  // one loaded sheet: no sheet is asked for
  world.host.on_modal = [](Form& form) { ADD_FAILURE() << form.Name(); };
  world.Import({b});
  EXPECT_EQ(world.SheetNames(), (Texts{"B", "Sheet2"}));
  EXPECT_EQ(world.Cell(1, 3, 4), "2       ");

  world.dialogs.answers = {Answer::kNo};
  world.Import({c});
  EXPECT_EQ(world.SheetNames(), (Texts{"B", "C", "Sheet3"}));

  Texts offered;
  world.host.on_modal = [&](Form& form) {
    ASSERT_EQ(&form, &world.screens.frmSheet);
    offered = world.screens.frmSheet.cboSheet.Entries();
    EXPECT_EQ(world.screens.frmSheet.cboSheet.ListIndex(), 0);
    world.screens.frmSheet.cboSheet.SetListIndex(1);
    world.screens.frmSheet.cmdOK.RaiseClick();
  };
  world.dialogs.answers = {Answer::kYes};
  world.Import({a, b});  // only the first one overlays
  EXPECT_EQ(offered, (Texts{"B", "C"}));
  EXPECT_EQ(world.SheetNames(), (Texts{"B", "A", "B", "Sheet4"}));

  for (const bool by_button : {true, false}) {
    world.host.on_modal = [&](Form& form) {
      if (by_button) world.screens.frmSheet.cmdCancel.RaiseClick();
      form.Unload();
    };
    world.dialogs.answers = {Answer::kYes};
    world.Import({c});
    EXPECT_EQ(world.SheetNames().rbegin()[1], "C") << "a cancelled chooser means new sheets";
  }
  EXPECT_EQ(world.state.table.SheetCount(), 6);
}

TEST(FileImport, UnreadableFilesAreToldAndTheNextOnesFollow) {
  ImportWorld world(DataType::kKestrelix);
  world.folder.MakeFolder("drives/c/FOLDER.TXT");
  const std::string good = world.Drive("c/GOOD.TXT", "Title\n\nabcname   \n001row\nlast\n");
  world.Import({"C:\\GONE.TXT", "C:\\FOLDER.TXT", good});
  EXPECT_EQ(world.dialogs.Texts(),
            (Texts{"Unable to read C:\\GONE.TXT\rerror: 53 File not found",
                   "Unable to read C:\\FOLDER.TXT\rerror: 75 Path/File access error"}));
  EXPECT_EQ(world.SheetNames(), (Texts{"GONE", "FOLDER", "GOOD", "Sheet4"}));
  EXPECT_EQ(world.Cell(1, 1, 1), "");
  EXPECT_EQ(world.Cell(3, 3, 2), "row");
  EXPECT_TRUE(world.state.flags.KestrelixLoaded);
  EXPECT_EQ(world.screens.frmTab.cboYParm.CurrentText(), "name") << "the lists follow the sheet";
}

TEST(FileImport, VornaxilFilesSetTheKindAndTheLists) {
  ImportWorld world(DataType::kVornaxil);
  world.Import({world.Drive("c/A.VX1", test::Vx1("XX", {"  1", "last"}))});
  EXPECT_EQ(world.state.flags.VornaxilKind, "APM");
  EXPECT_EQ(world.screens.frmTab.cboDataField.CurrentText(), "Mr");
  EXPECT_EQ(world.Cell(1, 2, 1), "1");
  ImportWorld summaries(DataType::kZephyrine);
  summaries.Import({summaries.Drive("c/A.SUM", test::LongSum("1", "2"))});
  EXPECT_EQ(summaries.Cell(1, 3, 17), " -1.25");
  ImportWorld details(DataType::kDetail);
  details.Import({details.Drive("c/A.SDT", test::Sdt("01/04/99", "2"))});
  EXPECT_EQ(details.Cell(1, 3, 3), "01/04/99");
}

TEST(FileImport, AComputedSummaryGivesWayOnlyToChosenFiles) {
  ImportWorld world;
  world.state.table.SetSheetCount(3);
  world.state.table.SheetAt(1).SetCellText(5, 5, "left");
  world.state.flags.ComputedSummaryShown = true;
  world.Import({});
  EXPECT_TRUE(world.state.flags.ComputedSummaryShown);
  EXPECT_EQ(world.state.table.SheetCount(), 3);
  world.Import({world.Drive("c/A.SSM", test::Ssm("1", "1"))});
  EXPECT_FALSE(world.state.flags.ComputedSummaryShown);
  EXPECT_TRUE(world.dialogs.messages.empty()) << "nothing is left to overlay";
  EXPECT_EQ(world.SheetNames(), (Texts{"A", "Sheet2"}));
  EXPECT_EQ(world.Cell(1, 5, 5), "");
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
  EXPECT_EQ(world.dialogs.open_requests.size(), 1U);
}

}  // namespace
}  // namespace vistaplot
