#include "ui/frame/menu_bar.h"

#include <QPainter>

namespace vistaplot {

void MenuBar::paintEvent(QPaintEvent* event) {
  QMenuBar::paintEvent(event);
  QAction* current = activeAction();
  if (!hasFocus() || current == nullptr) return;
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Highlight));
  painter.drawRect(actionGeometry(current).adjusted(0, 0, -1, -1));
}

}  // namespace vistaplot
