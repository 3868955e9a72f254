#include <algorithm>
#include <cstddef>
#include <numeric>
#include <optional>
#include <string>
#include <vector>

#include "base/number_text.h"
#include "base/text.h"
#include "batch/control_lookup.h"
#include "batch/script_commands.h"
#include "charts/kinds/kind.h"
#include "controls/list_controls.h"
#include "controls/value_controls.h"

namespace vistaplot {

namespace {

void RequireWords(ScriptWords words, std::size_t count, std::string_view usage) {
  if (words.size() != count) throw ScriptError("say " + std::string(usage));
}

std::optional<int> WholeTextPosition(const EntryControl& control, std::string_view text) {
  const std::vector<std::string>& entries = control.Entries();
  auto found = std::find(entries.begin(), entries.end(), text);
  if (found == entries.end()) {
    found = std::find_if(entries.begin(), entries.end(), [text](const std::string& entry) {
      return EqualsIgnoringCase(TrimBlanks(entry), TrimBlanks(text));
    });
  }
  if (found == entries.end()) return std::nullopt;
  return static_cast<int>(found - entries.begin());
}

std::string EntryRange(const EntryControl& control) {
  if (control.Count() == 0) return "it has no entries";
  return "its positions are 0 to " + std::to_string(control.Count() - 1);
}

// A position, or an entry's whole text; a number that is no position may still be a text.
int EntryPosition(const FoundControl& found, const EntryControl& control, const std::string& text) {
  const auto number = WholeInteger(text);
  if (number && *number >= 0 && *number < control.Count()) return static_cast<int>(*number);
  if (const auto position = WholeTextPosition(control, text)) return *position;
  throw ScriptError(found.Name() + " has no entry \"" + text + "\"; " + EntryRange(control) +
                    DidYouMean(text, control.Entries()));
}

void SetText(const FoundControl& found, const std::string& value) {
  auto& box = static_cast<TextBox&>(*found.control);
  box.SetText(value);
  box.RaiseLostFocus();
}

void SetCheck(const FoundControl& found, const std::string& value) {
  static_cast<CheckBox&>(*found.control).SetChecked(NumberFromWord(value, found.Name(), 0, 1) == 1);
}

void SetList(const FoundControl& found, const std::string& value) {
  auto& list = static_cast<ListBox&>(*found.control);
  if (list.multi_select) throw ScriptError(found.Name() + " takes several entries: use select");
  list.SetListIndex(EntryPosition(found, list, value));
}

void SetOption(const FoundControl& found, const std::string& value) {
  auto& group = static_cast<OptionGroup&>(*found.control);
  if (found.option) throw ScriptError("set the group without an index, or click " + found.Name());
  group.SetListIndex(EntryPosition(found, group, value));
}

void SetScrollBar(const FoundControl& found, const std::string& value) {
  auto& bar = static_cast<ScrollBar&>(*found.control);
  bar.SetValue(NumberFromWord(value, found.Name(), bar.Min(), bar.Max()));
}

void AddBeginningWith(const FoundControl& found,
                      const ListBox& list,
                      std::string_view text,
                      std::vector<int>& positions) {
  const std::size_t before = positions.size();
  for (int i = 0; i < list.Count(); ++i) {
    if (StartsWithIgnoringCase(list.Entries()[static_cast<std::size_t>(i)], text)) {
      positions.push_back(i);
    }
  }
  if (positions.size() > before) return;
  throw ScriptError(found.Name() + " has no entry that begins with \"" + std::string(text) + "\"");
}

std::vector<int> AllPositions(const ListBox& list) {
  std::vector<int> positions(static_cast<std::size_t>(list.Count()));
  std::iota(positions.begin(), positions.end(), 0);
  return positions;
}

std::vector<int> SelectedPositions(const FoundControl& found,
                                   const ListBox& list,
                                   ScriptWords items) {
  if (items.size() == 1 && EqualsIgnoringCase(items[0], "none")) return {};
  if (items.size() == 1 && EqualsIgnoringCase(items[0], "all")) return AllPositions(list);
  std::vector<int> positions;
  for (const std::string& item : items) {
    if (item.size() > 1 && item.starts_with('=')) {
      AddBeginningWith(found, list, std::string_view(item).substr(1), positions);
      continue;
    }
    const auto position = WholeInteger(item);
    if (!position || *position < 0 || *position >= list.Count()) {
      throw ScriptError(found.Name() + ": \"" + item + "\" is no position, =TEXT, all or none; " +
                        EntryRange(list));
    }
    positions.push_back(static_cast<int>(*position));
  }
  return positions;
}

int SeriesCount(const ChartView& view) {
  return static_cast<int>(KindOf(view).Series(view).size());
}

}  // namespace

void SetCommand(ScriptWorld& world, ScriptWords words) {
  RequireWords(words, 2, "set NAME VALUE");
  const FoundControl found = FindUsable(world, words[0]);
  switch (found.control->Kind()) {
    case ControlKind::kTextBox:
      return SetText(found, words[1]);
    case ControlKind::kCheckBox:
      return SetCheck(found, words[1]);
    case ControlKind::kListBox:
      return SetList(found, words[1]);
    case ControlKind::kOptionGroup:
      return SetOption(found, words[1]);
    case ControlKind::kScrollBar:
      return SetScrollBar(found, words[1]);
    default:
      break;
  }
  auto& box = ControlAs<ComboBox>(found, "it holds no value to set");
  box.SetListIndex(EntryPosition(found, box, words[1]));
}

void ClickCommand(ScriptWorld& world, ScriptWords words) {
  RequireWords(words, 1, "click NAME");
  const FoundControl found = FindUsable(world, words[0]);
  if (found.control->Kind() == ControlKind::kButton) {
    return static_cast<Button&>(*found.control).RaiseClick();
  }
  if (found.option) return static_cast<OptionGroup&>(*found.control).SetListIndex(*found.option);
  auto& item = ControlAs<MenuItem>(found, "click takes buttons and menu items; use set or select");
  if (!item.Click) throw ScriptError(found.Name() + " is a menu: click one of its items");
  item.RaiseClick();
}

void SelectCommand(ScriptWorld& world, ScriptWords words) {
  if (words.size() < 2) throw ScriptError("say select NAME ITEM...");
  const FoundControl found = FindUsable(world, words[0]);
  auto& list = ControlAs<ListBox>(found, "select takes lists");
  if (!list.multi_select) throw ScriptError(found.Name() + " takes one entry: use set");
  list.Select(SelectedPositions(found, list, words.subspan(1)));
}

void PointCommand(ScriptWorld& world, ScriptWords words) {
  RequireWords(words, 3, "point NAME SERIES POINT");
  const FoundControl found = FindUsable(world, words[0]);
  auto& chart = ControlAs<ChartBox>(found, "point takes charts");
  if (SeriesCount(chart.view) == 0 || chart.view.rowcount() == 0) {
    throw ScriptError(found.Name() + " shows no points");
  }
  PointSelection selection;
  selection.Series = NumberFromWord(words[1], "SERIES", 1, SeriesCount(chart.view));
  selection.DataPoint = NumberFromWord(words[2], "POINT", 1, chart.view.rowcount());
  chart.RaisePointSelected(selection);
}

}  // namespace vistaplot
