// What the adapters of all kinds of control have in common: each observes one control, shows it as
// one widget (or as an action, or not at all), and passes the user's actions on to the control.
#pragma once

#include <QObject>
#include <QWidget>
#include <utility>
#include <vector>

#include "controls/control.h"
#include "ui/controls/event_guard.h"

namespace vistaplot {

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
