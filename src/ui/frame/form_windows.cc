#include "ui/frame/form_windows.h"

#include <QCloseEvent>
#include <QScrollArea>
#include <QStyleOptionTitleBar>
#include <QVBoxLayout>

#include "controls/value_controls.h"
#include "ui/controls/widgets.h"
#include "ui/frame/frame_tools.h"

namespace vistaplot {

namespace {

Button* CancelButton(const Form& form) {
  for (Control* control : form.Controls()) {
    if (control->Kind() != ControlKind::kButton) continue;
    if (SpokenText(control->Caption()) == u"Cancel") return static_cast<Button*>(control);
  }
  return nullptr;
}

}  // namespace

ScreenWindow::ScreenWindow(Form& form, FormView& view, EventGuard& guard)
    : form_(form), view_(view), guard_(guard) {
  auto* area = new QScrollArea(this);
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(&view);
  setWidget(area);
  setWindowIcon(ProgramIcon());
  setWindowTitle(QtText(form.Caption()));
  setObjectName(QtText(form.Name()));
}

void ScreenWindow::GiveFocus() {
  QWidget* last = kept_focus_ != nullptr ? kept_focus_.data() : view_.focusWidget();
  if (last != nullptr && last->isVisible() && last->isEnabled()) {
    last->setFocus(Qt::ActiveWindowFocusReason);
  } else {
    view_.FocusFirst();
  }
}

int ScreenWindow::TitleHeight() const {
  QStyleOptionTitleBar bar;
  bar.initFrom(this);
  return style()->pixelMetric(QStyle::PM_TitleBarHeight, &bar, this) +
         style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, &bar, this);
}

void ScreenWindow::showEvent(QShowEvent* event) {
  was_shown_ = true;
  QMdiSubWindow::showEvent(event);
}

void ScreenWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  guard_.Run([this] { form_.Hide(); });
}

DialogWindow::DialogWindow(Form& form, QWidget* parent, EventGuard& guard)
    : QDialog(parent), form_(form), guard_(guard) {
  setWindowTitle(QtText(form.Caption()));
  setObjectName(QtText(form.Name()));
  if (form.Style() == FormStyle::kDialog) setWindowModality(Qt::ApplicationModal);
}

void DialogWindow::Hold(FormView& view) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(&view);
}

void DialogWindow::reject() {
  CloseForm();
}

void DialogWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  CloseForm();
}

void DialogWindow::CloseForm() {
  guard_.Run([this] {
    Button* cancel = CancelButton(form_);
    if (cancel != nullptr && cancel->Usable()) {
      cancel->RaiseClick();
    } else {
      form_.Unload();
    }
  });
}

}  // namespace vistaplot
