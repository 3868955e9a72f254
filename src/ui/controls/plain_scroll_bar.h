// A scroll bar in flat colours: it is painted with every step of a chart, and the styles' shaded
// bars take a good part of the time that the chart takes.
#pragma once

#include <QScrollBar>

namespace vistaplot {

class PlainScrollBar : public QScrollBar {
  Q_OBJECT

 public:
  using QScrollBar::QScrollBar;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintArrow(QPainter& painter, const QRect& button, bool towards_end) const;
};

}  // namespace vistaplot
