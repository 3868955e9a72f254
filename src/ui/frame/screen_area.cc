#include "ui/frame/screen_area.h"

#include <QApplication>
#include <QTimer>
#include <utility>

namespace vistaplot {

namespace {

constexpr double kRestoredShare = 0.75;  ///< of the area, for a screen that no longer fills it
constexpr double kCascadeShare = 2.0 / 3.0;

/// Takes the keyboard from an open menu or list and from another window of the program; not from
/// one that is modal, and never from another program.
void Activate(QWidget& window) {
  while (QWidget* popup = QApplication::activePopupWidget()) {
    if (!popup->close()) break;
  }
  const QWidget* active = QApplication::activeWindow();
  const bool other = active != nullptr && active != &window;
  if (other && QApplication::activeModalWidget() == nullptr) window.activateWindow();
}

}  // namespace

void ScreenArea::Add(ScreenWindow& screen) {
  addSubWindow(&screen);
  screen.hide();
  screen.resize(viewport()->size() * kRestoredShare);
}

ScreenWindow* ScreenArea::Front() const {
  auto* front = qobject_cast<ScreenWindow*>(currentSubWindow());
  return front == nullptr || front->isHidden() ? nullptr : front;
}

QList<ScreenWindow*> ScreenArea::Visible() const {
  return InOrder(CreationOrder);
}

QList<ScreenWindow*> ScreenArea::InOrder(WindowOrder order) const {
  QList<ScreenWindow*> screens;
  for (QMdiSubWindow* window : subWindowList(order)) {
    auto* screen = qobject_cast<ScreenWindow*>(window);
    if (screen != nullptr && !screen->isHidden()) screens += screen;
  }
  return screens;
}

void ScreenArea::BringToFront(ScreenWindow& screen) {
  ScreenWindow* before = Front();
  if (before != nullptr) before->KeepFocus();
  PutInFront(screen, before == nullptr || before->isMaximized());
}

void ScreenArea::PutInFront(ScreenWindow& screen, bool fill) {
  if (screen.isMinimized()) {
    screen.showNormal();
  } else if (!screen.WasShown() && fill) {
    screen.showMaximized();
  } else {
    screen.show();
    // While it was hidden, only the screens that can be seen followed the area's size.
    if (screen.isMaximized()) screen.resize(viewport()->size());
  }
  setActiveSubWindow(&screen);
  Activate(*window());
  GiveFocusTo(screen);
}

void ScreenArea::GiveFocusTo(ScreenWindow& screen) {
  screen.GiveFocus();
  // A menu gives the keyboard back to where it was only after its command has run.
  QTimer::singleShot(0, &screen, [this, &screen] {
    if (Front() == &screen) screen.GiveFocus();
  });
}

void ScreenArea::TakeAway(ScreenWindow& screen) {
  screen.KeepFocus();
  const bool was_front = Front() == &screen;
  const bool filled = screen.isMaximized();
  screen.hide();
  const QList<ScreenWindow*> left = InOrder(ActivationHistoryOrder);
  if (!was_front || left.isEmpty()) return;
  if (filled) left.back()->showMaximized();
  PutInFront(*left.back(), filled);  // it keeps its focus, not what hiding the other has made of it
}

void ScreenArea::Step(bool forward) {
  const QList<ScreenWindow*> screens = Visible();
  const qsizetype now = screens.indexOf(Front());
  if (screens.isEmpty()) return;
  const qsizetype count = screens.size();
  BringToFront(*screens[(now + (forward ? 1 : count - 1)) % count]);
}

void ScreenArea::Arrange(WindowArrangement arrangement) {
  ScreenWindow* front = Front();
  if (front == nullptr) return;
  front->KeepFocus();
  switch (arrangement) {
    case WindowArrangement::kCascade:
      Cascade();
      break;
    case WindowArrangement::kTile:
      tileSubWindows();
      break;
    case WindowArrangement::kArrangeIcons:
      ArrangeIcons();
      break;
  }
  GiveFocusTo(*front);
}

void ScreenArea::Cascade() {
  const QList<ScreenWindow*> screens = InOrder(ActivationHistoryOrder);
  const QSize size = viewport()->size() * kCascadeShare;
  QPoint corner;
  for (ScreenWindow* screen : screens) {
    if (screen->isMinimized()) continue;
    screen->showNormal();
    screen->setGeometry(QRect(corner, size));
    screen->raise();
    corner += QPoint(1, 1) * screen->TitleHeight();
  }
}

void ScreenArea::ArrangeIcons() {
  QPoint corner(0, viewport()->height());
  for (ScreenWindow* screen : Visible()) {
    if (!screen->isMinimized()) continue;
    if (corner.x() + screen->width() > viewport()->width()) {
      corner = QPoint(0, corner.y() - screen->height());
    }
    screen->move(corner - QPoint(0, screen->height()));
    corner.rx() += screen->width();
  }
}

bool ScreenArea::Fill() {
  ScreenWindow* front = Front();
  if (front == nullptr) return false;
  filled_by_us_ = !front->isMaximized();
  front->KeepFocus();
  front->showMaximized();
  GiveFocusTo(*front);
  return true;
}

void ScreenArea::Unfill() {
  ScreenWindow* front = Front();
  const bool restore = std::exchange(filled_by_us_, false);
  if (front == nullptr) return;
  front->KeepFocus();
  if (restore) front->showNormal();
  GiveFocusTo(*front);
}

}  // namespace vistaplot
