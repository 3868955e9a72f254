#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/list_controls.h"
#include "controls/value_controls.h"

namespace vistaplot {
namespace {

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

}  // namespace
}  // namespace vistaplot
