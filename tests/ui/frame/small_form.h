// A small screen with one control of each kind, whose events are written down, for tests.
#pragma once

#include <QApplication>
#include <QTest>
#include <string>
#include <utility>

#include "controls/form.h"
#include "controls/list_controls.h"
#include "controls/value_controls.h"
#include "ui/frame/form_view.h"

namespace vistaplot::test {

class SmallForm : public Form {
 public:
  explicit SmallForm(FormHost& host, FormStyle style = FormStyle::kScreen)
      : Form("frmSmall", "Small", style, host) {
    Add({{&label, "lblFind", "Fi&nd:", At(150, 150, 900, 300)},
         {&box, "txtFind", "", At(1200, 150, 3000, 300)},
         {&frame, "fraKind", "Kind", At(150, 600, 3000, 1200)},
         {&options, "OptKind", "", At(300, 900, 2700, 750), &frame},
         {&check, "chkLog", "&Logarithmic", At(4500, 150, 3000, 300)},
         {&combo, "cboType", "", At(4500, 600, 3000, 300)},
         {&list, "lstNames", "", At(150, 2100, 9300, 3600)},
         {&button, "cmdGo", "&Go", At(4500, 1200, 1500, 450)},
         {&bar, "HScroll1", "", At(150, 6000, 9300, 300)}});
    options.SetEntries({"Families", "Funds"});
    options.Preset(0);
    combo.SetEntries({"Line", "Scatter", "Bar"});
    list.multi_select = true;
    list.SetEntries({"a", "b", "c", "d"});
    bar.SetMax(100);
    box.Change = [this] { log += "change " + box.Text() + "; "; };
    box.LostFocus = [this] { log += "left; "; };
    options.Click = [this](int index) { log += "option " + std::to_string(index) + "; "; };
    check.Click = [this] { log += check.Checked() ? "ticked; " : "cleared; "; };
    combo.Click = [this] { log += "type " + std::to_string(combo.ListIndex()) + "; "; };
    list.Click = [this] { log += "rows " + Rows() + "; "; };
    button.Click = [this] { log += "go; "; };
    bar.Change = [this] { log += "bar " + std::to_string(bar.Value()) + "; "; };
  }

  Label label;
  TextBox box;
  Frame frame;
  OptionGroup options;
  CheckBox check;
  ComboBox combo;
  ListBox list;
  Button button;
  ScrollBar bar;

  /// The events so far; forgets them.
  std::string TakeLog() { return std::exchange(log, {}); }

  std::string Rows() const {
    std::string rows;
    for (const int row : list.SelectedPositions()) rows += std::to_string(row);
    return rows;
  }

  std::string log;
};

/// The widget of a control, as what it is.
template <class Widget>
Widget& WidgetOf(const FormView& view, const Control& control) {
  return *qobject_cast<Widget*>(view.AdapterOf(control)->Widget());
}

}  // namespace vistaplot::test
