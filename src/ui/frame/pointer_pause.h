// The hourglass gives way to the normal pointer while the user is asked something.
#pragma once

#include <QApplication>

namespace vistaplot {

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
