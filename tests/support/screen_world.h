// All screens over a small market-data service made for a test: 300 consecutive market days from
// 1 January 2001, three issues, one family "TRIO" in QLDEF.
#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/settings.h"
#include "formats/family_file.h"
#include "forms/screens.h"
#include "forms/shared_state.h"
#include "support/fake_quoteline.h"
#include "support/recording_dialogs.h"
#include "support/silent_host.h"
#include "support/temporary_folder.h"

namespace vistaplot::test {

/// Settings that live in memory.
class MemorySettings : public Settings {
 public:
  std::map<std::string, std::string, std::less<>> values;
  bool refuses = false;  ///< every save fails as on a full disk
  int saves = 0;         ///< writes so far

  std::string Get(std::string_view key, std::string_view fallback) const override {
    const auto found = values.find(key);
    return found == values.end() ? std::string(fallback) : found->second;
  }
  [[nodiscard]] Status SaveAll(std::span<const Setting> settings) override {
    if (refuses) return MakeError(kErrorDiskFull, "settings.ini");
    for (const Setting& setting : settings) values[setting.key] = setting.value;
    ++saves;
    return Done{};
  }
};

/// Output that keeps what it was given.
class RecordingOutput : public Output {
 public:
  std::vector<std::string> calls;  ///< e.g. "save /tmp/a.png 640 448"
  Status answer = Done{};          ///< of every call

  Status SaveChart(const ChartView& /*view*/,
                   const std::string& path,
                   int width,
                   int height) override {
    return Keep("save " + path + " " + std::to_string(width) + " " + std::to_string(height));
  }
  Status PrintChart(const ChartView& /*view*/, Progress& /*progress*/) override {
    return Keep("print chart");
  }
  Status PrintSheet(const Sheet& sheet, const std::string& title, Progress& /*progress*/) override {
    return Keep("print " + sheet.SheetName + " as " + title);
  }
  Status CopyChart(const ChartView& /*view*/, int /*width*/, int /*height*/) override {
    return Keep("copy chart");
  }
  Status CopyText(const std::string& text) override { return Keep("copy " + text); }

 private:
  Status Keep(const std::string& call) {
    calls.push_back(call);
    return answer;
  }
};

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
