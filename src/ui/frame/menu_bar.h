// A menu bar that shows which menu the keyboard is at before one is open, which some styles do not.
#pragma once

#include <QMenuBar>

namespace vistaplot {

class MenuBar : public QMenuBar {
  Q_OBJECT

 public:
  using QMenuBar::QMenuBar;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace vistaplot
