// Any form as a widget: one adapter per control, laid out by the controls' places.
#pragma once

#include <QWidget>
#include <map>
#include <memory>
#include <vector>

#include "controls/form.h"
#include "ui/controls/control_adapter.h"

namespace vistaplot {

/// The adapter of a control, by its kind, with all that the control holds copied into its widget.
/// Null for kinds that stand on no form (menu items). Grids need `parts.table`, folder boxes
/// `parts.roots`.
std::unique_ptr<ControlAdapter> MakeAdapter(Control& control, const AdapterParts& parts);

/// A place in pixels, both edges rounded, so that neighbours stay neighbours.
QRect PixelPlace(const Place& place, double x_factor, double y_factor);

class FormView : public QWidget {
  Q_OBJECT

 public:
  /// Builds a widget for every control of `form`, in its order. `display` is the size that the form
  /// was scaled to, in pixels; empty: the form is as large as its controls. `parts.parent` becomes
  /// the view's parent.
  FormView(Form& form, const AdapterParts& parts, QSize display);
  ~FormView() override;

  Form& Source() const { return form_; }

  /// The control's adapter; null when it has none.
  ControlAdapter* AdapterOf(const Control& control) const;

  /// The control whose own widget this is; null when there is none.
  const Control* ControlOf(const QWidget& widget) const;

  /// Gives the keyboard to the first control that can be worked.
  void FocusFirst();

  /// The size at which every control has its own place. At any other size all places are stretched
  /// alike; widgets of one line keep their height, the others fill what they are given.
  QSize sizeHint() const override { return base_; }
  QSize minimumSizeHint() const override { return minimum_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Build(const AdapterParts& parts);
  QWidget* ParentFor(const Control& control);
  void MeasureBase(QSize display);
  void NameWidgets();
  void JoinScrollBar();
  void JoinLists();
  void ChainTabStops();
  void LayOut();
  void Put(const ControlAdapter& adapter);

  Form& form_;
  std::vector<std::unique_ptr<ControlAdapter>> adapters_;
  std::map<const Control*, ControlAdapter*> by_control_;
  QSize base_;
  QSize minimum_;
};

}  // namespace vistaplot
