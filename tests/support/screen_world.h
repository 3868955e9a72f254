// All screens over a small market-data service made for a test: 300 consecutive market days from
// 1 January 2001, three issues, one family "TRIO" in QLDEF.
#pragma once

#include <string>
#include <vector>

#include "formats/family_file.h"
#include "forms/screens.h"
#include "support/fake_quoteline.h"
#include "support/memory_settings.h"
#include "support/recording_dialogs.h"
#include "support/recording_output.h"
#include "support/silent_host.h"
#include "support/temporary_folder.h"

namespace vistaplot::test {

inline constexpr int kWorldDays = 300;

struct ScreenWorld {
  TemporaryFolder folder;
  FakeQuoteline quoteline;
  MemorySettings settings;
  RecordingDialogs dialogs;
  SilentHost host;
  RecordingOutput output;
  SharedState state;
  Screens screens{{quoteline, settings, dialogs, host, output, state}};
  FrmMain& frmMain = screens.frmMain;
  FrmTab& frmTab = screens.frmTab;
  FrmData& frmData = screens.frmData;
  FrmGraph& frmGraph = screens.frmGraph;
  FrmPer& frmPer = screens.frmPer;
  FrmFam& frmFam = screens.frmFam;

  ScreenWorld() {
    quoteline.directory = folder.Path();
    quoteline.SetDays(SerialFromDate({2001, 1, 1}), kWorldDays);
    quoteline.AddIssue("AAA", Line(100.0F, 1.0F, kWorldDays));
    quoteline.AddIssue("BBB", Line(50.0F, -0.125F, kWorldDays));
    quoteline.AddIssue("CCC", Line(10.0F, 0.5F, kWorldDays - 99), 100);
    for (const char* name : {"QLDEF", "QL4WIN/SQLDEF", "USERDEF"}) folder.MakeFolder(name);
    WriteFamily("QLDEF/TRIO.FAM", {"AAA", "BBB", "CCC"});
  }

  /// first, first + step, ...: `count` prices.
  static std::vector<float> Line(float first, float step, int count) {
    std::vector<float> prices;
    prices.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) prices.push_back(first + step * static_cast<float>(i));
    return prices;
  }

  void WriteFamily(const std::string& path, const std::vector<std::string>& symbols) {
    const FamilyHeader header{.name = "TRIO", .title = "Three funds", .count = 0, .rest = {}};
    folder.Write(path, FamilyFileBytes(header, symbols).Value());
  }

  /// Starts the program and chooses prices.
  void Start() {
    frmMain.Load();
    frmTab.cboDataType.SetListIndex(1);
  }

  void LoadTrio() {
    Start();
    frmTab.lists.lstIndex.Select({0});
    Load();
  }

  void Load() { frmTab.lists.cmdLoadData.RaiseClick(); }
  void Graph() { frmMain.mnuFileGraph.RaiseClick(); }

  void SelectColumns(int first, int last) {
    state.table.SheetAt(1).Select({1, first, kWorldDays + 1, last});
  }

  const ChartView& Chart() const { return frmGraph.VtChart1.view; }

  Sheet& SheetAt(int number) { return state.table.SheetAt(number); }
  std::string Cell(int sheet, int row, int col) { return SheetAt(sheet).CellText(row, col); }

  /// The names of all sheets, with "|" between them.
  std::string SheetNames() {
    std::string names = SheetAt(1).SheetName;
    for (int i = 2; i <= state.table.SheetCount(); ++i)
      names.append("|").append(SheetAt(i).SheetName);
    return names;
  }

  /// The texts of the messages since the last call.
  std::vector<std::string> NewMessages() {
    std::vector<std::string> texts = dialogs.Texts();
    dialogs.messages.clear();
    return texts;
  }
};

}  // namespace vistaplot::test
