#include "ui/frame/qt_host.h"

#include <QApplication>
#include <QShortcut>
#include <cmath>

#include "ui/frame/escape_watch.h"
#include "ui/frame/form_windows.h"
#include "ui/frame/frame_menus.h"
#include "ui/frame/manual.h"

namespace vistaplot {

namespace {

QSize InPixels(const DisplaySize& display) {
  return {static_cast<int>(std::lround(display.width / kTwipsPerPixel)),
          static_cast<int>(std::lround(display.height / kTwipsPerPixel))};
}

}  // namespace

void QtHost::Use(MainWindow& window, const Form& frame, DataTable& table, const PathRoots& roots) {
  window_ = &window;
  frame_ = &frame;
  table_ = &table;
  roots_ = &roots;
}

void QtHost::Close() {
  for (auto& [form, entry] : entries_) delete entry.window;
  entries_.clear();
}

FormView* QtHost::ViewOf(const Form& form) const {
  const auto found = entries_.find(&form);
  return found == entries_.end() ? nullptr : found->second.view;
}

Form* QtHost::FrontScreen() const {
  const ScreenWindow* front = window_ == nullptr ? nullptr : window_->Area().Front();
  return front == nullptr ? nullptr : &front->Source();
}

QtHost::Entry& QtHost::EntryOf(Form& form) {
  Entry& entry = entries_[&form];
  if (entry.window != nullptr) return entry;
  if (form.Style() == FormStyle::kScreen) {
    BuildScreen(form, entry);
  } else {
    BuildDialog(form, entry);
  }
  return entry;
}

AdapterParts QtHost::PartsFor(QWidget* parent) const {
  return {.guard = guard_, .parent = parent, .roots = roots_, .table = table_, .charts = &charts_};
}

void QtHost::BuildScreen(Form& form, Entry& entry) {
  entry.view = new FormView(form, PartsFor(nullptr), InPixels(display_));
  auto* window = new ScreenWindow(form, *entry.view, guard_);
  window_->Area().Add(*window);
  entry.window = window;
  entry.screen = window;
}

void QtHost::BuildDialog(Form& form, Entry& entry) {
  auto* window = new DialogWindow(form, window_, guard_);
  entry.view = new FormView(form, PartsFor(window), QSize());
  window->Hold(*entry.view);
  entry.window = window;
}

void QtHost::FormShown(Form& form) {
  if (&form == frame_) return window_->show();
  const bool first = ViewOf(form) == nullptr;
  const Entry& entry = EntryOf(form);
  if (entry.screen != nullptr) return window_->Area().BringToFront(*entry.screen);
  entry.window->show();
  entry.window->raise();
  entry.window->activateWindow();
  if (first) entry.view->FocusFirst();
}

void QtHost::FormHidden(Form& form) {
  if (&form == frame_) {
    window_->hide();
    return;
  }
  const auto found = entries_.find(&form);
  if (found == entries_.end()) return;
  const Entry& entry = found->second;
  if (entry.screen != nullptr) return window_->Area().TakeAway(*entry.screen);
  const bool was_active = entry.window->isActiveWindow();
  entry.window->hide();
  // Not every manager gives the keys back to the window below.
  if (was_active) window_->activateWindow();
  if (entry.modal_loop != nullptr) entry.modal_loop->quit();
}

void QtHost::FormRepaint(Form& form) {
  FormView* view = ViewOf(form);
  if (view != nullptr && view->isVisible()) view->repaint();
}

void QtHost::PointerChanged(Form& form) {
  const bool was_busy = !busy_forms_.empty();
  if (form.Pointer() == MousePointer::kHourglass) {
    busy_forms_.insert(&form);
  } else {
    busy_forms_.erase(&form);
  }
  if (busy_forms_.empty() == !was_busy) return;
  if (was_busy) {
    QApplication::restoreOverrideCursor();
  } else {
    escape_.Begin();
    QApplication::setOverrideCursor(Qt::WaitCursor);
  }
}

void QtHost::RunModal(Form& form) {
  Entry& entry = EntryOf(form);
  const PointerPause pause;
  const QShortcut help(QKeySequence(Qt::Key_F1), entry.window, [this] { ShowManual(); });
  QEventLoop loop;
  entry.modal_loop = &loop;
  loop.exec();
  entry.modal_loop = nullptr;
  guard_.ThrowIfEnded();
}

void QtHost::Arrange(WindowArrangement arrangement) {
  window_->Area().Arrange(arrangement);
}

void QtHost::StepScreen(bool forward) {
  window_->Area().Step(forward);
}

void QtHost::SwitchFullScreen() {
  window_->ToggleFullScreen();
}

void QtHost::ShowKeys() {
  QWidget* active = QApplication::activeWindow();
  ShowKeyList(active == nullptr ? window_ : active);
}

void QtHost::ShowManual() {
  QWidget* active = QApplication::activeWindow();
  std::string_view topic;
  for (const QWidget* at = QApplication::focusWidget(); at != nullptr; at = at->parentWidget()) {
    for (const auto& [form, entry] : entries_) {
      const Control* control = entry.view->ControlOf(*at);
      if (control != nullptr && topic.empty()) topic = control->HelpTopic();
    }
  }
  vistaplot::ShowManual(active == nullptr ? window_ : active, topic);
}

}  // namespace vistaplot
