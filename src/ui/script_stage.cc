#include "ui/script_stage.h"

#include <QCoreApplication>
#include <QThread>
#include <QWindow>
#include <utility>

namespace vistaplot {

namespace {

constexpr qint64 kFrame = 40;          ///< milliseconds that a picture stands at least
constexpr qint64 kLongestWait = 3000;  ///< for a display that does not show the window
constexpr unsigned long kGlance = 5;   ///< milliseconds between two looks at it

/// Keeps the user's hands off the windows while a scope lasts.
class InputLock : public QObject {
 public:
  InputLock() { QCoreApplication::instance()->installEventFilter(this); }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    switch (event->type()) {
      case QEvent::KeyPress:
      case QEvent::KeyRelease:
      case QEvent::Shortcut:
      case QEvent::ShortcutOverride:
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonRelease:
      case QEvent::MouseButtonDblClick:
      case QEvent::MouseMove:
      case QEvent::Wheel:
      case QEvent::ContextMenu:
        return true;
      default:
        return false;
    }
  }
};

// Not without the user's events: the display counts the wish to close a window among them.
void PaintWindows() {
  const InputLock lock;
  QCoreApplication::processEvents();
}

}  // namespace

void ScriptStage::Play(ScriptPlayer& player) {
  AwaitDisplay();
  playing_ = true;
  since_painted_.start();
  player.Play(program_, [this] { FollowScript(); });
  playing_ = false;
}

bool ScriptStage::DefersClosing() {
  close_asked_ = playing_;
  return playing_;
}

void ScriptStage::AwaitDisplay() {
  QElapsedTimer waiting;
  waiting.start();
  const QWindow* window = window_.windowHandle();
  while (window != nullptr && !window->isExposed() && waiting.elapsed() < kLongestWait) {
    PaintWindows();
    QThread::msleep(kGlance);
  }
  PaintWindows();
}

// Painting after every line would slow long scripts down for pictures that nobody can see.
void ScriptStage::FollowScript() {
  if (since_painted_.elapsed() < kFrame) return;
  PaintWindows();
  since_painted_.restart();
  if (std::exchange(close_asked_, false)) program_.AllScreens().frmMain.mnuFileExit_Click();
}

}  // namespace vistaplot
