#include "ui/frame/escape_watch.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace vistaplot {

namespace {

constexpr qint64 kBetweenLooks = 50;  ///< milliseconds

bool IsUsersEvent(const QEvent& event) {
  switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::Close:
    case QEvent::Drop:
      return true;
    default:
      return false;
  }
}

}  // namespace

void EscapeWatch::Begin() {
  pressed_ = false;
  since_look_.start();
}

bool EscapeWatch::Pressed() {
  if (since_look_.isValid() && since_look_.elapsed() < kBetweenLooks) return pressed_;
  since_look_.start();
  QCoreApplication::instance()->installEventFilter(this);
  QCoreApplication::processEvents();
  QCoreApplication::instance()->removeEventFilter(this);
  return pressed_;
}

bool EscapeWatch::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    pressed_ = pressed_ || static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
  }
  return IsUsersEvent(*event);
}

}  // namespace vistaplot
