// The room of the child screens: which one is in front, where the keyboard goes when that changes,
// and how they lie beside each other.
#pragma once

#include <QList>
#include <QMdiArea>

#include "controls/form_host.h"
#include "ui/frame/form_windows.h"

namespace vistaplot {

class ScreenArea : public QMdiArea {
  Q_OBJECT

 public:
  explicit ScreenArea(QWidget* parent) : QMdiArea(parent) {}

  /// Takes the screen in, hidden. Restored from filling the area, it takes three quarters of it.
  void Add(ScreenWindow& screen);

  /// The screen that has the keyboard, or had it last; null when none is visible.
  ScreenWindow* Front() const;

  /// Visible screens in the order in which they were added.
  QList<ScreenWindow*> Visible() const;

  /// Shows the screen in front of the others and gives it the keyboard where it had it last, also
  /// when another window of the program has it. A screen shown for the first time fills the area
  /// when the one before it did.
  void BringToFront(ScreenWindow& screen);

  /// Takes the screen away; the one used before it takes its place.
  void TakeAway(ScreenWindow& screen);

  /// The next screen, or the one before, comes to the front.
  void Step(bool forward);

  void Arrange(WindowArrangement arrangement);

  /// The front screen fills the area without a title bar until `Unfill`. False without a screen.
  bool Fill();

  /// The screens are again as they were before `Fill`.
  void Unfill();

 private:
  QList<ScreenWindow*> InOrder(WindowOrder order) const;
  void PutInFront(ScreenWindow& screen, bool fill);
  void GiveFocusTo(ScreenWindow& screen);
  void Cascade();
  void ArrangeIcons();

  bool filled_by_us_ = false;  ///< the front screen did not fill the area before `Fill`
};

}  // namespace vistaplot
