// A user's hands on the windows, for tests.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

namespace vistaplot::test {

/// Does something to the box that appears next, as the user would.
template <class Box, class Action>
void OnNextBox(Action action) {
  QTimer::singleShot(0, [action] {
    auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    action(*box);
  });
}

/// A key for the widget that has the keyboard.
inline void PressHere(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
  QTest::keyClick(QApplication::focusWidget(), key, with);
}

/// Turns the wheel over the middle of a widget, in eighths of a degree; above 0: away from the
/// user.
inline void TurnWheel(QWidget& widget, QPoint turn, Qt::KeyboardModifiers with = {}) {
  const QPointF at = widget.rect().center();
  QWheelEvent event(
      at, widget.mapToGlobal(at), {}, turn, {}, with, Qt::NoScrollPhase, /*inverted=*/false);
  QApplication::sendEvent(&widget, &event);
}

}  // namespace vistaplot::test
