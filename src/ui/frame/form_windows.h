// The windows around form views: child windows of the main window, and dialogs.
#pragma once

#include <QDialog>
#include <QMdiSubWindow>
#include <QPointer>

#include "controls/form.h"
#include "ui/controls/control_adapter.h"
#include "ui/frame/form_view.h"

namespace vistaplot {

/// A child window. Closing it hides its form; what was entered stays. Smaller than its screen can
/// be, it scrolls.
class ScreenWindow : public QMdiSubWindow {
  Q_OBJECT

 public:
  ScreenWindow(Form& form, FormView& view, EventGuard& guard);

  Form& Source() const { return form_; }

  /// False until it is shown for the first time.
  bool WasShown() const { return was_shown_; }

  /// Remembers which widget has the keyboard, before another screen takes it.
  void KeepFocus() { kept_focus_ = view_.focusWidget(); }

  /// Gives the keyboard to the widget that had it last; at first, or when that one is away, to the
  /// first that can be worked.
  void GiveFocus();

  /// In pixels; of a screen that does not fill its area.
  int TitleHeight() const;

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  Form& form_;
  FormView& view_;
  EventGuard& guard_;
  QPointer<QWidget> kept_focus_;
  bool was_shown_ = false;
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
