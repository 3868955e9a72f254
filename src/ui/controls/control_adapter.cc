#include "ui/controls/control_adapter.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QSignalBlocker>
#include <iostream>

namespace vistaplot {

ControlAdapter::ControlAdapter(Control& control, EventGuard& guard)
    : control_(control), guard_(guard) {
  control_.SetObserver(this);
}

ControlAdapter::~ControlAdapter() {
  control_.SetObserver(nullptr);
}

std::vector<QWidget*> ControlAdapter::TabStops() const {
  if (widget_ == nullptr || widget_->focusPolicy() == Qt::NoFocus) return {};
  return {widget_};
}

void ControlAdapter::SetAccessibleName(const QString& name, bool labelled) {
  if (widget_ == nullptr) return;
  if (widget_->accessibleName() != name) widget_->setAccessibleName(name);
  if (qobject_cast<QComboBox*>(widget_) == nullptr) return;
  // The toolkit calls a combo box by its chosen entry, whatever its name.
  const QString description = labelled ? QString() : name;
  if (widget_->accessibleDescription() != description) {
    widget_->setAccessibleDescription(description);
  }
}

void ControlAdapter::CopyAll() {
  for (const ControlAspect aspect : {ControlAspect::kCaption,
                                     ControlAspect::kEntries,
                                     ControlAspect::kValue,
                                     ControlAspect::kEnabled,
                                     ControlAspect::kVisible}) {
    Copy(aspect);
  }
}

void ControlAdapter::ControlChanged(Control& /*control*/, ControlAspect aspect) {
  if (aspect == ControlAspect::kPlace) {
    emit Moved();
    return;
  }
  Copy(aspect);
  if (aspect == ControlAspect::kCaption || aspect == ControlAspect::kVisible) emit Renamed();
}

void ControlAdapter::Copy(ControlAspect aspect) {
  const QSignalBlocker blocker(widget_);
  switch (aspect) {
    case ControlAspect::kVisible:
      return CopyVisible();
    case ControlAspect::kEnabled:
      return CopyEnabled();
    case ControlAspect::kCaption:
      return CopyCaption();
    case ControlAspect::kValue:
      return CopyValue();
    case ControlAspect::kEntries:
      return CopyEntries();
    case ControlAspect::kPointed:
      return CopyPointed();
    case ControlAspect::kRepaint:
      return RepaintNow();
    case ControlAspect::kPlace:
      return;
  }
}

void ControlAdapter::CopyVisible() {
  if (widget_ != nullptr) widget_->setVisible(control_.Visible());
}

void ControlAdapter::CopyEnabled() {
  if (widget_ != nullptr) widget_->setEnabled(control_.Enabled());
}

void ControlAdapter::RepaintNow() {
  if (widget_ != nullptr && widget_->isVisible()) widget_->repaint();
}

void EventGuard::End(int status) noexcept {
  status_ = status;
  QCoreApplication::exit(status);
}

void EventGuard::Report(const std::string& what) noexcept {
  const std::string text = std::string("The command could not be finished: ").append(what);
  if (dialogs_ == nullptr) {
    std::cerr << "vistaplot: " << text << "\n";
    return;
  }
  try {
    dialogs_->ShowMessage({.text = text,
                           .title = "Error",
                           .buttons = Buttons::kOk,
                           .icon = Icon::kNone,
                           .default_answer = Answer::kOk});
  } catch (const ProgramEnded& ended) {
    End(ended.status);
  } catch (...) {
    std::cerr << "vistaplot: " << text << "\n";
  }
}

}  // namespace vistaplot
