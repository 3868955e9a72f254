#include "ui/frame/script_stage.h"

#include <QCoreApplication>
#include <QThread>
#include <QWindow>

namespace vistaplot {

namespace {

constexpr qint64 kFrame = 40;          ///< milliseconds that a picture stands at least
constexpr qint64 kLongestWait = 3000;  ///< for a display that does not show the window
constexpr unsigned long kGlance = 5;   ///< milliseconds between two looks at it

/// Keeps the user's hands off the windows while a scope lasts; only the frame hears that it is to
/// close.
class InputLock : public QObject {
 public:
  explicit InputLock(const QWidget& frame) : frame_(frame) {
    QCoreApplication::instance()->installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    switch (event->type()) {
      case QEvent::KeyPress:
      case QEvent::KeyRelease:
      case QEvent::Shortcut:
      case QEvent::ShortcutOverride:
      case QEvent::InputMethod:
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonRelease:
      case QEvent::MouseButtonDblClick:
      case QEvent::MouseMove:
      case QEvent::Wheel:
      case QEvent::Enter:
      case QEvent::ToolTip:
      case QEvent::ContextMenu:
      case QEvent::TouchBegin:
        return true;
      case QEvent::Close:
        if (!watched->isWidgetType() || watched == &frame_) return false;
        event->ignore();
        return true;
      default:
        return false;
    }
  }

 private:
  const QWidget& frame_;
};

}  // namespace

void ScriptStage::Play(ScriptPlayer& player) {
  playing_ = true;
  AwaitDisplay();
  since_painted_.start();
  if (!close_asked_) player.Play(program_, [this] { return FollowScript(); });
  playing_ = false;
  if (close_asked_) program_.AllScreens().frmMain.mnuFileExit_Click();
}

bool ScriptStage::DeferClosing() {
  close_asked_ = close_asked_ || playing_;
  return playing_;
}

void ScriptStage::AwaitDisplay() {
  QElapsedTimer waiting;
  waiting.start();
  const QWindow* window = window_.windowHandle();
  while (window != nullptr && !window->isExposed() && !close_asked_ &&
         waiting.elapsed() < kLongestWait) {
    PaintWindows();
    QThread::msleep(kGlance);
  }
  PaintWindows();
}

// Painting after every line would slow long scripts down for pictures that nobody can see.
bool ScriptStage::FollowScript() {
  if (since_painted_.elapsed() < kFrame) return true;
  PaintWindows();
  since_painted_.restart();
  return !close_asked_;
}

// Not without the user's events: the display counts the wish to close a window among them.
void ScriptStage::PaintWindows() {
  const InputLock lock(window_);
  QCoreApplication::processEvents();
}

}  // namespace vistaplot
