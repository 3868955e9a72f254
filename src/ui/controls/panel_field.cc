#include "ui/controls/panel_field.h"

#include <QStyleOptionProgressBar>
#include <QStylePainter>

namespace vistaplot {

PanelField::PanelField(QWidget* parent) : QWidget(parent) {}

void PanelField::SetText(const QString& text) {
  text_ = text;
  setAccessibleName(text);
  update();
}

void PanelField::SetPercent(int percent) {
  has_bar_ = has_bar_ || percent != percent_;
  percent_ = percent;
  update();
}

void PanelField::SetBlank(bool blank) {
  blank_ = blank;
  update();
}

QSize PanelField::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 10, fontMetrics().height() + 4};
}

void PanelField::paintEvent(QPaintEvent* /*event*/) {
  if (blank_) return;
  QStylePainter painter(this);
  if (has_bar_) {
    QStyleOptionProgressBar bar;
    bar.initFrom(this);
    bar.state |= QStyle::State_Horizontal;
    bar.minimum = 0;
    bar.maximum = 100;
    bar.progress = percent_;
    bar.text = QString::number(percent_) + u'%';
    bar.textVisible = true;
    bar.textAlignment = Qt::AlignCenter;
    painter.drawControl(QStyle::CE_ProgressBar, bar);
  }
  const QString shown = fontMetrics().elidedText(text_, Qt::ElideRight, width());
  painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, shown);
}

}  // namespace vistaplot
