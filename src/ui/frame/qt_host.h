// The desktop as the host of forms: screens inside the main window, windows beside it, dialogs over
// it. A form's widgets are built when it is first shown.
#pragma once

#include <QEventLoop>
#include <QWidget>
#include <map>
#include <set>
#include <utility>

#include "controls/form.h"
#include "controls/form_host.h"
#include "ui/chart/chart_adapter.h"
#include "ui/frame/escape_watch.h"
#include "ui/frame/form_view.h"
#include "ui/frame/main_window.h"

namespace vistaplot {

class QtHost : public FormHost {
 public:
  /// `guard` outlives the host.
  explicit QtHost(EventGuard& guard) : guard_(guard) {}

  /// Where the forms are shown from now on, and what their grids and folder boxes show. `frame` is
  /// the form that the window itself skins.
  void Use(MainWindow& window, const Form& frame, DataTable& table, const PathRoots& roots);

  /// Takes all forms' widgets away; to be called before the window or a form goes.
  void Close();

  /// What the charts of forms built from now on ask for.
  void SetChartServices(ChartServices services) { charts_ = std::move(services); }

  void SetDisplay(const DisplaySize& display) { display_ = display; }

  /// The widget of a form; null before it was first shown.
  FormView* ViewOf(const Form& form) const;

  /// The child screen in front; null when there is none.
  Form* FrontScreen() const override;

  DisplaySize Display() const override { return display_; }
  void FormShown(Form& form) override;
  void FormHidden(Form& form) override;
  void FormRepaint(Form& form) override;
  void PointerChanged(Form& form) override;
  void RunModal(Form& form) override;
  void Arrange(WindowArrangement arrangement) override;
  void StepScreen(bool forward) override;
  void SwitchFullScreen() override;
  bool StopWanted() override { return escape_.Pressed(); }
  void ShowKeys() override;
  void ShowManual() override;

 private:
  struct Entry {
    QWidget* window = nullptr;       ///< sub-window or dialog
    ScreenWindow* screen = nullptr;  ///< the same as a sub-window; null for a dialog
    FormView* view = nullptr;
    QEventLoop* modal_loop = nullptr;  ///< runs while the form is modal
  };

  Entry& EntryOf(Form& form);
  AdapterParts PartsFor(QWidget* parent) const;
  void BuildScreen(Form& form, Entry& entry);
  void BuildDialog(Form& form, Entry& entry);

  EventGuard& guard_;
  MainWindow* window_ = nullptr;
  const Form* frame_ = nullptr;
  DataTable* table_ = nullptr;
  const PathRoots* roots_ = nullptr;
  ChartServices charts_;
  DisplaySize display_;
  std::map<const Form*, Entry> entries_;
  EscapeWatch escape_;
  std::set<const Form*> busy_forms_;  ///< those that show the hourglass
};

}  // namespace vistaplot
