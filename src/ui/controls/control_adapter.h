// What the adapters of all kinds of control have in common: each observes one control, shows it as
// one widget (or as an action, or not at all), and passes the user's actions on to the control.
#pragma once

#include <QObject>
#include <QWidget>
#include <exception>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/dialogs.h"
#include "controls/control.h"

namespace vistaplot {

// The one function through which the user's actions enter the program, so that nothing thrown below
// ever crosses the toolkit's event delivery.

inline constexpr int kExitDone = 0;
inline constexpr int kExitFatal = 3;

/// Thrown to leave every running handler because the program ends.
struct ProgramEnded {
  int status = kExitDone;  ///< the process's exit status
};

class EventGuard {
 public:
  EventGuard() = default;
  EventGuard(const EventGuard&) = delete;
  EventGuard& operator=(const EventGuard&) = delete;

  /// Where unexpected errors are told; null: on standard error.
  void ReportTo(Dialogs* dialogs) { dialogs_ = dialogs; }

  /// Does what an event asks for, unless the program has ended. ProgramEnded stops the
  /// application's event loops; any other exception is reported and forgotten.
  template <class Action>
  void Run(Action&& action) noexcept {
    if (status_) return;
    try {
      action();
    } catch (const ProgramEnded& ended) {
      End(ended.status);
    } catch (const std::exception& error) {
      Report(error.what());
    } catch (...) {
      Report("unknown failure");
    }
  }

  /// The exit status, once the program has ended.
  const std::optional<int>& Status() const { return status_; }

  /// For whoever ran an event loop inside a handler: goes on unwinding when the program ended in
  /// that loop.
  void ThrowIfEnded() const {
    if (status_) throw ProgramEnded{*status_};
  }

 private:
  void End(int status) noexcept;
  void Report(const std::string& what) noexcept;

  Dialogs* dialogs_ = nullptr;
  std::optional<int> status_;
};

class DataTable;
class ScrollBar;
struct ChartServices;
struct PathRoots;

/// What an adapter is made from.
struct AdapterParts {
  EventGuard& guard;
  QWidget* parent = nullptr;              ///< owns the widget
  const PathRoots* roots = nullptr;       ///< where folders by name lie
  DataTable* table = nullptr;             ///< what grids show
  const ChartServices* charts = nullptr;  ///< what charts ask for; outlives the adapters
};

class ControlAdapter : public QObject, public ControlObserver {
  Q_OBJECT

 public:
  ControlAdapter(Control& control, EventGuard& guard);
  ~ControlAdapter() override;

  Control& Source() const { return control_; }

  /// The control's widget, owned by its parent widget; null for controls that have none.
  QWidget* Widget() const { return widget_; }

  /// True for widgets of one line, which keep their natural height in a taller place.
  virtual bool OneLine() const { return false; }

  /// True for a widget whose contents gain from every pixel: it follows its window.
  virtual bool Follows() const { return false; }

  /// The widgets that the Tab key stops at, in order.
  virtual std::vector<QWidget*> TabStops() const;

  /// The text that assistive tools read out for the widget; `labelled`: a label that they find says
  /// the same.
  virtual void SetAccessibleName(const QString& name, bool labelled);

  /// The control moves through the list that `list` shows.
  virtual void JoinList(QWidget& /*list*/) {}

  /// The form has one scroll bar, and this control may move it.
  virtual void JoinScrollBar(ScrollBar& /*bar*/) {}

  /// Shows everything that the control holds now.
  void CopyAll();

  void ControlChanged(Control& control, ControlAspect aspect) final;

 signals:
  /// The control's place has changed: whoever lays the form out moves the widget.
  void Moved();

  /// The control has another caption or description, or can be seen or not: controls may have to
  /// be called otherwise.
  void Renamed();

 protected:
  void SetWidget(QWidget* widget) { widget_ = widget; }

  // Called with the widget's own signals blocked.
  virtual void CopyVisible();
  virtual void CopyEnabled();
  virtual void CopyCaption() {}
  virtual void CopyValue() {}
  virtual void CopyEntries() { CopyValue(); }
  virtual void CopyPointed() {}
  virtual void RepaintNow();

  /// Does what the user's action asks of the control, and shows what came of it: a control may
  /// refuse a value.
  template <class Action>
  void Act(Action&& action) {
    guard_.Run(std::forward<Action>(action));
    Copy(ControlAspect::kValue);
  }

 private:
  void Copy(ControlAspect aspect);

  Control& control_;
  EventGuard& guard_;
  QWidget* widget_ = nullptr;
};

}  // namespace vistaplot
