// Looks for Esc while a long run has the program's thread, and lets nothing else that the user does
// through.
#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QObject>

namespace vistaplot {

class EscapeWatch : public QObject {
 public:
  /// A new run begins: nothing was pressed yet.
  void Begin();

  /// True once Esc was pressed since Begin. Looks at most every 50 ms, so that it may be asked
  /// often; windows are painted meanwhile.
  bool Pressed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QElapsedTimer since_look_;
  bool pressed_ = false;
};

// The hourglass gives way to the normal pointer while the user is asked something.

class PointerPause {
 public:
  PointerPause() : paused_(QApplication::overrideCursor() != nullptr) {
    if (paused_) QApplication::setOverrideCursor(Qt::ArrowCursor);
  }
  ~PointerPause() {
    if (paused_) QApplication::restoreOverrideCursor();
  }
  PointerPause(const PointerPause&) = delete;
  PointerPause& operator=(const PointerPause&) = delete;

 private:
  bool paused_;
};

}  // namespace vistaplot
