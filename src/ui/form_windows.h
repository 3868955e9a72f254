// The windows around form views: child windows of the main window, and dialogs.
#pragma once

#include <QDialog>
#include <QMdiSubWindow>

#include "controls/form.h"
#include "ui/event_guard.h"
#include "ui/form_view.h"

namespace vistaplot {

/// A child window. Closing it hides its form; what was entered stays. Smaller than its screen can
/// be, it scrolls.
class ScreenWindow : public QMdiSubWindow {
  Q_OBJECT

 public:
  ScreenWindow(Form& form, FormView& view, EventGuard& guard);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  Form& form_;
  EventGuard& guard_;
};

/// A window of its own. Closing it is what its button "Cancel" does; without one, a modal form is
/// unloaded and another one hidden.
class DialogWindow : public QDialog {
  Q_OBJECT

 public:
  DialogWindow(Form& form, QWidget* parent, EventGuard& guard);

  /// Fills the window with its form.
  void Hold(FormView& view);

  void reject() override;  ///< Escape

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void CloseForm();

  Form& form_;
  EventGuard& guard_;
};

}  // namespace vistaplot
