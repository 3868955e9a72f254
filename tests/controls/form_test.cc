#include "controls/form.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "controls/list_controls.h"
#include "controls/value_controls.h"
#include "support/silent_host.h"

namespace vistaplot::test {
namespace {

class SmallForm : public Form {
 public:
  explicit SmallForm(FormHost& host) : Form("frmSmall", "Small", FormStyle::kDialog, host) {
    Add({{&box, "txtBox", "", At(10, 20, 30, 40)},
         {&days[0], "txtDays", "", {100.0F, {}, {}, {}}, nullptr, 0},
         {&days[1], "txtDays", "", {}, nullptr, 1}});
  }

  TextBox box;
  std::array<TextBox, 2> days;
  int loads = 0;

 protected:
  void Form_Load() override {
    ++loads;
    ScaleControls(*this, kDesignWidth, kDesignHeight, Host().Display());
  }
};

TEST(Form, TwiceTheDisplayDoublesWhatAControlHas) {
  SilentHost host;
  SmallForm as_designed(host);
  as_designed.Load();
  EXPECT_EQ(as_designed.box.Where(), At(10, 20, 30, 40));
  host.display = {.width = 19200.0F, .height = 21600.0F};
  SmallForm form(host);
  form.Load();
  EXPECT_EQ(form.box.Where(), At(20, 60, 60, 120));
  EXPECT_EQ(form.days[0].Where(), (Place{200.0F, {}, {}, {}}));
  EXPECT_EQ(form.days[1].Where(), Place{});
}

TEST(Form, LoadedAgainItIsScaledFromItsDesignNotFromItsLastSize) {
  SilentHost host;
  host.display = {.width = 19200.0F, .height = 14400.0F};
  SmallForm form(host);
  form.Show();
  form.Show();
  EXPECT_EQ(form.loads, 1);
  form.Unload();
  EXPECT_FALSE(form.Shown());
  form.Load();
  EXPECT_EQ(form.loads, 2);
  EXPECT_EQ(form.box.Where(), At(20, 40, 60, 80));
}

TEST(Form, FindsControlsByNameAndIndexWithCaseIgnored) {
  SilentHost host;
  SmallForm form(host);
  EXPECT_EQ(form.Find("TXTBOX"), &form.box);
  EXPECT_EQ(form.Find("txtdays", 1), &form.days[1]);
  EXPECT_EQ(form.Find("txtDays"), nullptr);
  EXPECT_EQ(form.Find("txtDays", 2), nullptr);
  EXPECT_EQ(form.Find("txtBox", 0), nullptr);
}

TEST(Form, ModalFormReturnsOnceTheUserClosedIt) {
  SilentHost host;
  SmallForm form(host);
  host.on_modal = [](Form& shown) { shown.Unload(); };
  form.ShowModal();
  EXPECT_FALSE(form.Loaded());
  EXPECT_EQ(host.front, nullptr);
}

/// Writes down in which order the skin and the handler hear of a change.
class Log : public ControlObserver {
 public:
  std::vector<std::string> lines;
  void ControlChanged(Control& /*control*/, ControlAspect aspect) override {
    if (aspect == ControlAspect::kValue) lines.emplace_back("skin");
  }
};

TEST(Controls, SkinHearsOfAValueBeforeTheHandler) {
  Log log;
  ScrollBar bar;
  bar.SetObserver(&log);
  bar.Change = [&] { log.lines.push_back("handler " + std::to_string(bar.Value())); };
  bar.SetValue(7);
  bar.SetValue(7);
  EXPECT_EQ(log.lines, (std::vector<std::string>{"skin", "handler 7"}));
}

TEST(Controls, ScrollBarSetInsideItsOwnChangeEndsInStep) {
  ScrollBar bar;
  std::vector<int> seen;
  bar.Change = [&] {
    seen.push_back(bar.Value());
    bar.SetValue(100);
  };
  bar.SetValue(5);
  EXPECT_EQ(bar.Value(), 100);
  EXPECT_EQ(seen, (std::vector<int>{5, 100}));
}

TEST(Controls, ScrollBarBoundsMoveTheValueAlong) {
  ScrollBar bar;
  int changes = 0;
  bar.SetValue(500);
  bar.Change = [&] { ++changes; };
  bar.SetMax(300);
  EXPECT_EQ(bar.Value(), 300);
  bar.SetMin(1);
  bar.SetValue(9999);
  EXPECT_EQ(bar.Value(), 300);
  EXPECT_EQ(changes, 1);
}

TEST(Controls, ListsRaiseClickAlsoForTheSameEntry) {
  ComboBox combo;
  int clicks = 0;
  combo.Click = [&] { ++clicks; };
  combo.SetEntries({"a", "b"});
  EXPECT_EQ(combo.ListIndex(), -1);
  EXPECT_EQ(clicks, 0);
  combo.SetListIndex(1);
  combo.SetListIndex(1);
  combo.SetListIndex(2);
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(combo.CurrentText(), "b");
}

TEST(Controls, TypingMovesToTheOnlySelectedEntry) {
  ListBox list;
  list.multi_select = true;
  list.SetEntries({"a", "b", "c"});
  list.MoveTo(1);
  EXPECT_EQ(list.SelectedPositions(), std::vector<int>{1});
  list.MoveTo(2);
  EXPECT_EQ(list.SelectedPositions(), std::vector<int>{2});
  list.Select({0, 2, 9});
  list.MoveTo(1);
  EXPECT_EQ(list.SelectedPositions(), std::vector<int>{1});
  EXPECT_EQ(list.ListIndex(), 1);
}

TEST(Controls, ControlInAHiddenOrDisabledContainerIsNotUsable) {
  MenuItem menu;
  MenuItem item;
  item.SetContainer(&menu);
  menu.SetEnabled(false);
  EXPECT_TRUE(item.Shown());
  EXPECT_FALSE(item.Usable());
  menu.SetEnabled(true);
  menu.SetVisible(false);
  EXPECT_FALSE(item.Shown());
}

/// Captions on the left of boxes and above them, and places where none fits.
class LabelledForm : public Form {
 public:
  explicit LabelledForm(FormHost& host) : Form("frmLabels", "", FormStyle::kScreen, host) {
    Add({{&find, "lblFind", "Find:", At(180, 210, 1200, 255)},
         {&text, "txtFind", "", At(1440, 180, 1320, 330)},
         {&beside, "txtBeside", "", At(2880, 180, 720, 330)},
         {&below, "lstBelow", "", At(180, 540, 3000, 1200)},
         {&average, "chkAverage", "Average", At(180, 1800, 1800, 300)},
         {&days, "txtDays", "", At(2040, 1785, 600, 330)},
         {&files, "lblFiles", "Files:", At(180, 2400, 2400, 255)},
         {&list, "lstFiles", "", At(180, 2670, 2400, 3000)},
         {&shares, "lblShares", "Shares:", At(3000, 2400, 2400, 510)},
         {&first, "txtFirst", "", At(3000, 2925, 600, 330)},
         {&second, "txtSecond", "", At(3700, 2925, 600, 330)},
         {&far, "lblFar", "Far:", At(3000, 4500, 600, 255)},
         {&away, "txtAway", "", At(8000, 4500, 600, 330)},
         {&frame, "fraInner", "Inner", At(3000, 5000, 3000, 600)},
         {&outer, "lblOuter", "Outer:", At(1900, 5100, 1000, 255)},
         {&inner, "txtInner", "", At(3010, 5100, 600, 330), &frame}});
  }

  /// The caption found for a control; empty when there is none.
  std::string LabelOf(const Control& control) const {
    const auto found = FindLabels(*this);
    const auto label = found.find(&control);
    return label == found.end() ? "" : label->second->Caption();
  }

  Label find, files, shares, far, outer;
  TextBox text, beside, days, first, second, away, inner;
  CheckBox average;
  ListBox below, list;
  Frame frame;
};

TEST(LabelSearch, TheCaptionOnTheLeftOrAboveIsFound) {
  SilentHost host;
  const LabelledForm form(host);
  EXPECT_EQ(form.LabelOf(form.text), "Find:");
  EXPECT_EQ(form.LabelOf(form.days), "Average");
  EXPECT_EQ(form.LabelOf(form.list), "Files:");
  EXPECT_EQ(form.LabelOf(form.first), "Shares:");
  EXPECT_EQ(form.LabelOf(form.second), "Shares:");
  for (const Control* bare : {static_cast<const Control*>(&form.beside),  // behind another box
                              static_cast<const Control*>(&form.below),   // below a taken label
                              static_cast<const Control*>(&form.away),
                              static_cast<const Control*>(&form.inner)}) {  // in its own frame
    EXPECT_EQ(form.LabelOf(*bare), "") << bare->Name();
  }
}

TEST(LabelSearch, HiddenAndEmptyLabelsAndHiddenNeighboursDoNotCount) {
  SilentHost host;
  LabelledForm form(host);
  form.text.SetVisible(false);
  EXPECT_EQ(form.LabelOf(form.beside), "");  // too far away
  form.beside.SetPlace(At(1500, 180, 720, 330));
  EXPECT_EQ(form.LabelOf(form.beside), "Find:");
  form.find.SetCaption(" ");
  EXPECT_EQ(form.LabelOf(form.beside), "");
  form.files.SetVisible(false);
  EXPECT_EQ(form.LabelOf(form.list), "");
}

TEST(LabelSearch, AScaledScreenKeepsItsLabels) {
  SilentHost host;
  LabelledForm form(host);
  for (Control* control : form.Controls()) {
    const Place at = control->Where();
    control->SetPlace(At(*at.Left * 3.0F, *at.Top * 2.25F, *at.Width * 3.0F, *at.Height * 2.25F));
  }
  EXPECT_EQ(form.LabelOf(form.text), "Find:");
  EXPECT_EQ(form.LabelOf(form.list), "Files:");
  EXPECT_EQ(form.LabelOf(form.below), "");
}

}  // namespace
}  // namespace vistaplot::test
