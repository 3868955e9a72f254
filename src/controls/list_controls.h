// Controls with entries: combo boxes, option groups, list boxes. Positions count from 0; -1 is
// none.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"
#include "controls/form.h"

namespace vistaplot {

/// What the three have in common: entries and the current one.
class EntryControl : public Control {
 public:
  using Control::Control;

  const std::vector<std::string>& Entries() const { return entries_; }
  int Count() const { return static_cast<int>(entries_.size()); }
  int ListIndex() const { return list_index_; }
  /// Text of the current entry; empty without one.
  std::string_view CurrentText() const;

  virtual void AddEntry(std::string_view text);
  /// Replaces all entries; none is current then, and nothing is raised.
  virtual void SetEntries(std::vector<std::string> entries);
  void Clear() { SetEntries({}); }

 protected:
  void StoreListIndex(int index) { list_index_ = index; }

 private:
  std::vector<std::string> entries_;
  int list_index_ = -1;
};

class ComboBox : public EntryControl {
 public:
  ComboBox() : EntryControl(ControlKind::kComboBox) {}

  std::function<void()> Click;

  /// Raises Click, also when the same entry is chosen again; positions outside are ignored.
  void SetListIndex(int index);
};

/// Buttons of which one is chosen, each under the group's name with its position as index.
class OptionGroup : public EntryControl {
 public:
  OptionGroup() : EntryControl(ControlKind::kOptionGroup) {}

  std::function<void(int index)> Click;

  /// Raises Click with the position, also when it is chosen again; positions outside are ignored.
  void SetListIndex(int index);
  /// Chooses without raising: the state that the screen starts with.
  void Preset(int index);
};

class ListBox : public EntryControl {
 public:
  ListBox() : EntryControl(ControlKind::kListBox) {}

  bool multi_select = false;  ///< several entries may be selected
  bool fixed_pitch = false;   ///< wants a font whose columns line up
  std::function<void()> Click;
  std::function<void()> DblClick;  ///< an entry was double-clicked, or Enter pressed on it

  void AddEntry(std::string_view text) override;
  void SetEntries(std::vector<std::string> entries) override;

  /// Makes an entry the current one, or none with -1, and raises Click. In a list of single
  /// selection it is the selected one as well.
  void SetListIndex(int index);

  /// Moves to an entry as typing its name does: it becomes current and the only selected one, and
  /// Click is raised. Positions outside are ignored.
  void MoveTo(int index);

  bool Selected(int position) const;
  /// Positions of the selected entries, ascending.
  std::vector<int> SelectedPositions() const;
  /// Selects exactly these (positions outside are ignored) and raises Click. The current entry is
  /// `current`, or the last of them where it is not given.
  void Select(const std::vector<int>& positions, int current = -1);

 private:
  std::vector<bool> selected_;
};

// Which label says what a control without a caption is for, found by where they stand.

/// By control, the label (or the check box) on its left, else the label above it; controls for
/// which none fits are missing. Only controls that can be seen take part, only captions that hold
/// more than blanks count, and nothing stands in between. A label that has a control on its right
/// says nothing about those below it.
std::map<const Control*, Control*> FindLabels(const Form& form);

}  // namespace vistaplot
