// A small screen, a dialog and a table for scripts to work on, for tests.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "batch/script_runner.h"
#include "batch/script_world.h"
#include "controls/list_controls.h"
#include "controls/value_controls.h"
#include "table/data_table.h"

namespace vistaplot::test {

/// Every event is appended to `log`.
class FrmTest : public Form {
 public:
  explicit FrmTest(FormHost& host) : Form("frmTest", "Test", FormStyle::kScreen, host) {
    Add({{&fraBox, "fraBox", "Box", At(0, 0, 300, 300)},
         {&txtName, "txtName", "", At(15, 30, 45.5F, 60), &fraBox},
         {&txtDays[0], "txtDays", "", At(0, 0, 15, 15), nullptr, 0},
         {&txtDays[1], "txtDays", "", At(0, 0, 15, 15), nullptr, 1},
         {&chkMem, "chkMem", "Memory", At(0, 0, 15, 15)},
         {&OptSelect, "OptSelect", "", At(0, 0, 15, 15)},
         {&cboType, "cboType", "", At(0, 0, 15, 15)},
         {&lstOne, "lstOne", "", At(0, 0, 15, 15)},
         {&lstMany, "lstMany", "", At(0, 0, 15, 15)},
         {&HScroll1, "HScroll1", "", At(0, 0, 15, 15)},
         {&cmdGo, "cmdGo", "Go", At(0, 0, 15, 15)},
         {&VtChart1, "VtChart1", "", At(0, 0, 1500, 750)},
         {&mnuFile, "mnuFile", "File", {}},
         {&mnuFileGo, "mnuFileGo", "Go", {}, &mnuFile}});
    txtName.Change = [this] { log += "Change " + txtName.Text() + "\n"; };
    txtName.LostFocus = [this] { log += "LostFocus\n"; };
    chkMem.Click = [this] { log += chkMem.Checked() ? "checked\n" : "cleared\n"; };
    OptSelect.SetEntries({"Families", "Funds"});
    OptSelect.Click = [this](int index) { log += "option " + std::to_string(index) + "\n"; };
    cboType.SetEntries({"Line", "Scatter", "10"});
    cboType.Click = [this] { log += "type " + std::to_string(cboType.ListIndex()) + "\n"; };
    lstOne.SetEntries({"a", "b"});
    lstOne.Click = [this] { log += "one " + std::to_string(lstOne.ListIndex()) + "\n"; };
    lstMany.multi_select = true;
    lstMany.SetEntries({"FIDEL    Funds", "VANG     Funds", "FIDIN    Index"});
    lstMany.Click = [this] {
      log += "many";
      for (const int position : lstMany.SelectedPositions()) {
        log += ' ';
        log += std::to_string(position);
      }
      log += "\n";
    };
    HScroll1.SetMax(10);
    HScroll1.Change = [this] { log += "scroll " + std::to_string(HScroll1.Value()) + "\n"; };
    mnuFileGo.Click = [this] { log += "menu\n"; };
    VtChart1.PointSelected = [this](PointSelection& point) {
      log += "point " + std::to_string(point.Series) + " " + std::to_string(point.DataPoint) + "\n";
    };
  }

  std::string log;
  Frame fraBox;
  TextBox txtName;
  TextBox txtDays[2];
  CheckBox chkMem;
  OptionGroup OptSelect;
  ComboBox cboType;
  ListBox lstOne;
  ListBox lstMany;
  ScrollBar HScroll1;
  Button cmdGo;
  ChartBox VtChart1;
  MenuItem mnuFile;
  MenuItem mnuFileGo;
};

/// A modal dialog that its button closes.
class FrmAsk : public Form {
 public:
  explicit FrmAsk(FormHost& host) : Form("frmAsk", "Ask", FormStyle::kDialog, host) {
    Add({{&txtAnswer, "txtAnswer", "", At(0, 0, 15, 15)},
         {&cmdOK, "cmdOK", "OK", At(0, 0, 15, 15)}});
    cmdOK.Click = [this] { Unload(); };
  }

  TextBox txtAnswer;
  Button cmdOK;
};

class FrmGrid : public Form {
 public:
  explicit FrmGrid(FormHost& host) : Form("frmData", "Data", FormStyle::kScreen, host) {
    Add({{&F1Book1, "F1Book1", "", At(0, 0, 9600, 7200)}});
    F1Book1.Click = [this](int row, int col) { clicked = {'l', row, col}; };
    F1Book1.RClick = [this](int row, int col) { clicked = {'r', row, col}; };
  }

  Grid F1Book1;
  std::vector<int> clicked;  ///< 'l' or 'r', row, column
};

struct ScriptStage {
  ScriptHost host{DisplaySize{}};
  FrmTest frmTest{host};
  FrmAsk frmAsk{host};
  FrmGrid frmData{host};
  std::vector<Form*> forms{&frmTest, &frmAsk, &frmData};
  DataTable table;
  AnswerQueue answers;
  std::string exported;  ///< what the last "export" asked for
  std::ostringstream out;
  std::ostringstream err;
  ScriptWorld world{
      forms,
      table,
      host,
      answers,
      [] { return std::string("{}"); },
      [this](const ChartView& /*view*/, const std::string& path, int width, int height) {
        exported = path + " " + std::to_string(width) + "x" + std::to_string(height);
        return Status(Done{});
      },
      out,
      err};

  /// Runs the lines as the script "s"; gives the status. What was said before is dropped.
  int Run(const std::string& lines) {
    out.str("");
    err.str("");
    frmTest.log.clear();
    std::istringstream script(lines);
    return ScriptRunner(world, "s").Run(script, {});
  }
  /// The error of lines that must fail with status 1.
  std::string Refusal(const std::string& lines) {
    return Run(lines) == 1 ? err.str() : "not refused";
  }
  /// What lines print that must run to their end.
  std::string Output(const std::string& lines) { return Run(lines) == 0 ? out.str() : err.str(); }
};

}  // namespace vistaplot::test
