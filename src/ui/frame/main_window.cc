#include "ui/frame/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QMenu>
#include <QShortcut>
#include <QStatusBar>

#include "ui/controls/widgets.h"
#include "ui/frame/frame_menus.h"
#include "ui/frame/frame_tools.h"

namespace vistaplot {

namespace {

QMenuBar& NewMenuBar(QMainWindow& window) {
  window.setMenuBar(new MenuBar(&window));
  return *window.menuBar();
}

}  // namespace

MainWindow::MainWindow(const Form& frame, EventGuard& guard)
    : area_(*new ScreenArea(this)),
      menus_(frame, NewMenuBar(*this), guard),
      tools_(frame, *this, guard) {
  setWindowTitle(QtText(frame.Caption()));
  setWindowIcon(ProgramIcon());
  setCentralWidget(&area_);
  setAttribute(Qt::WA_CanHostQMdiSubWindowTitleBar);  // no title bar inside, even without menus
  statusBar()->setSizeGripEnabled(false);
  connect(&tools_, &FrameTools::ToolsLeft, this, &MainWindow::ToolsLeft);
}

QSize MainWindow::ClientSize() {
  ensurePolished();
  layout()->activate();
  return area_.size();
}

void MainWindow::SetShortcut(std::string_view command, const QKeySequence& key) {
  auto* action = findChild<QAction*>(QtText(command));
  if (action == nullptr) return;
  GiveKey(*action, key);
}

void MainWindow::GiveKey(QAction& command, const QKeySequence& key) {
  command.setShortcut(key);
  command.setShortcutContext(Qt::ApplicationShortcut);
  addAction(&command);  // the key works while the menu bar is away
}

void MainWindow::AddKey(const QKeySequence& key, const std::function<void()>& action) {
  auto* shortcut = new QShortcut(key, this);
  shortcut->setContext(Qt::ApplicationShortcut);
  connect(shortcut, &QShortcut::activated, this, action);
}

void MainWindow::ListScreensIn(std::string_view menu) {
  QAction* action = menus_.Find(menu);
  if (action == nullptr || action->menu() == nullptr) return;
  QMenu* list = action->menu();
  connect(list, &QMenu::aboutToShow, this, [this, list] { FillScreenList(*list); });
}

void MainWindow::FillScreenList(QMenu& menu) {
  qDeleteAll(listed_screens_);
  listed_screens_.clear();
  const QList<ScreenWindow*> screens = area_.Visible();
  if (screens.isEmpty()) return;
  listed_screens_ += menu.addSeparator();
  int number = 0;
  for (ScreenWindow* screen : screens) {
    QAction* entry =
        menu.addAction(QStringLiteral("&%1 %2").arg(++number).arg(screen->windowTitle()));
    entry->setCheckable(true);
    entry->setChecked(screen == area_.Front());
    connect(entry, &QAction::triggered, &area_, [this, screen] { area_.BringToFront(*screen); });
    listed_screens_ += entry;
  }
}

void MainWindow::ToggleToolFocus() {
  const auto* bar = findChild<QToolBar*>();
  if (bar == nullptr) return;
  if (bar->isAncestorOf(QApplication::focusWidget())) {
    if (ScreenWindow* front = area_.Front()) front->GiveFocus();
    return;
  }
  if (ScreenWindow* front = area_.Front()) front->KeepFocus();
  for (QAction* tool : bar->actions()) {
    if (tool->isSeparator() || !tool->isVisible() || !tool->isEnabled()) continue;
    activateWindow();  // the key may have come from another window
    return bar->widgetForAction(tool)->setFocus(Qt::ShortcutFocusReason);
  }
}

void MainWindow::ToggleFullScreen() {
  if (isFullScreen()) {
    ShowFrameParts(true);
    setWindowState(states_before_full_screen_);
    area_.Unfill();
    return;
  }
  if (!area_.Fill()) return;
  activateWindow();
  states_before_full_screen_ = windowState();
  ShowFrameParts(false);
  showFullScreen();
}

void MainWindow::ShowFrameParts(bool shown) {
  menuBar()->setVisible(shown);
  statusBar()->setVisible(shown);
  for (QToolBar* bar : findChildren<QToolBar*>()) bar->setVisible(shown);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  emit CloseAsked();
}

// Styles show which field has the keyboard only after a key was used for moving; here it is shown
// from the start.
void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange) setAttribute(Qt::WA_KeyboardFocusChange);
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
  if (isFullScreen() && event->key() == Qt::Key_Escape) {
    ToggleFullScreen();
  } else {
    QMainWindow::keyPressEvent(event);
  }
}

}  // namespace vistaplot
