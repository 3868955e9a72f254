#include "ui/controls/plain_scroll_bar.h"

#include <QPainter>
#include <QStyleOptionSlider>

namespace vistaplot {

namespace {

constexpr int kArrow = 4;  ///< half the length of an arrow's base, in pixels

/// Between two colours of the palette, so that it is seen on light and dark desktops.
QColor Between(const QColor& from, const QColor& to, int percent) {
  const auto mixed = [percent](int a, int b) { return a + (b - a) * percent / 100; };
  return {
      mixed(from.red(), to.red()), mixed(from.green(), to.green()), mixed(from.blue(), to.blue())};
}

}  // namespace

void PlainScrollBar::paintEvent(QPaintEvent* /*event*/) {
  QStyleOptionSlider option;
  initStyleOption(&option);
  const auto part = [&](QStyle::SubControl control) {
    return style()->subControlRect(QStyle::CC_ScrollBar, &option, control, this);
  };
  const QColor ground = palette().color(QPalette::Window);
  const QColor ink = palette().color(QPalette::WindowText);
  const bool active = isSliderDown() || underMouse();
  QPainter painter(this);
  painter.fillRect(rect(), Between(ground, ink, 8));
  painter.fillRect(part(QStyle::SC_ScrollBarSlider).adjusted(1, 2, -1, -2),
                   Between(ground, ink, active ? 55 : 38));
  if (hasFocus()) {
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Between(ground, ink, isEnabled() ? 75 : 30));
  PaintArrow(painter, part(QStyle::SC_ScrollBarSubLine), /*towards_end=*/false);
  PaintArrow(painter, part(QStyle::SC_ScrollBarAddLine), /*towards_end=*/true);
}

void PlainScrollBar::PaintArrow(QPainter& painter, const QRect& button, bool towards_end) const {
  if (button.isEmpty()) return;
  const QPointF middle = QRectF(button).center();
  const double tip = towards_end ? kArrow / 2.0 : -kArrow / 2.0;
  QPolygonF arrow({{tip, 0.0}, {-tip, -kArrow}, {-tip, kArrow}});
  if (orientation() == Qt::Vertical) {
    for (QPointF& corner : arrow) corner = corner.transposed();
  }
  painter.drawPolygon(arrow.translated(middle));
}

}  // namespace vistaplot
