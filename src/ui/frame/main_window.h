// The program's main window: menus, tool bar and status line from the frame form's controls, and
// the area of the child screens.
#pragma once

#include <QMainWindow>
#include <functional>
#include <string_view>

#include "controls/form.h"
#include "ui/frame/frame_menus.h"
#include "ui/frame/frame_tools.h"
#include "ui/frame/screen_area.h"

namespace vistaplot {

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  MainWindow(const Form& frame, EventGuard& guard);

  ScreenArea& Area() { return area_; }

  /// The room that the child screens have at the window's present size, in pixels.
  QSize ClientSize();

  // Keys work in all windows of the program, but not beside a modal one.

  /// A key for the menu command or tool of that control name; no command, no key.
  void SetShortcut(std::string_view command, const QKeySequence& key);

  /// A key that stands in no menu.
  void AddKey(const QKeySequence& key, const std::function<void()>& action);

  /// Lists the child screens at the end of the menu of that control name.
  void ListScreensIn(std::string_view menu);

  /// Gives the keyboard to the tool bar, or back to the front screen.
  void ToggleToolFocus();

  /// The front screen alone on the whole display, or back.
  void ToggleFullScreen();

 signals:
  /// The user asks to close the window; it stays until the program ends.
  void CloseAsked();
  void ToolsLeft();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void GiveKey(QAction& command, const QKeySequence& key);
  void FillScreenList(QMenu& menu);
  void ShowFrameParts(bool shown);

  ScreenArea& area_;
  FrameMenus menus_;
  FrameTools tools_;
  QList<QAction*> listed_screens_;
  Qt::WindowStates states_before_full_screen_;
};

}  // namespace vistaplot
