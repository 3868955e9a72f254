// The menu bar of the main window, made from the frame's menu items.
#pragma once

#include <QAction>
#include <QList>
#include <QMenuBar>
#include <QWidget>
#include <memory>
#include <vector>

#include "controls/form.h"
#include "controls/value_controls.h"
#include "ui/controls/control_adapter.h"

namespace vistaplot {

/// A menu bar that shows which menu the keyboard is at before one is open, which some styles do
/// not.
class MenuBar : public QMenuBar {
  Q_OBJECT

 public:
  using QMenuBar::QMenuBar;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// Marks an access key in every text of `actions` that has none: the first letter of one of its
/// words that no other of them uses, else any letter of it, else its first one, which then steps
/// through those that share it.
void GiveAccessKeys(const QList<QAction*>& actions);

/// One menu item as an action: a menu's own one, or a command. Captions keep their access keys; a
/// checked item has a tick; the caption "-" is a line between commands.
class MenuItemAdapter : public ControlAdapter {
  Q_OBJECT

 public:
  /// `action` belongs to the menu that shows it.
  MenuItemAdapter(MenuItem& item, QAction& action, EventGuard& guard);

  QAction& Action() { return action_; }

 protected:
  void CopyVisible() override;
  void CopyEnabled() override;
  void CopyCaption() override;
  void CopyValue() override;

 private:
  MenuItem& item_;
  QAction& action_;
};

class FrameMenus {
 public:
  /// Fills `bar` with all menu items of `frame`: items without a container are its menus, or its
  /// commands when nothing stands in them.
  FrameMenus(const Form& frame, QMenuBar& bar, EventGuard& guard);

  /// The command or menu of that control name; null when there is none.
  QAction* Find(std::string_view name) const;

 private:
  void AddItem(MenuItem& item, const Form& frame, EventGuard& guard);

  QMenuBar& bar_;
  std::vector<std::unique_ptr<MenuItemAdapter>> items_;
};

// The list of keys that the windows understand, as a box.

/// Shows the list over `owner` until the user closes it.
void ShowKeyList(QWidget* owner);

}  // namespace vistaplot
