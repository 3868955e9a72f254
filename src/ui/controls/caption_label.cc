#include "ui/controls/caption_label.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>
#include <algorithm>

#include "ui/controls/qt_text.h"

namespace vistaplot {

namespace {

/// A text in at most `most` lines of that width, in pixels; joined they are the text again unless
/// the last one had to be cut.
QStringList LinesOf(const QString& text, const QFont& font, int width, int most) {
  QStringList lines;
  QTextLayout layout(text, font);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  layout.beginLayout();
  while (lines.size() < most) {
    QTextLine line = layout.createLine();
    if (!line.isValid()) break;
    line.setLineWidth(width);
    const bool last = lines.size() + 1 == most;
    const QString part = text.mid(line.textStart(), last ? -1 : line.textLength());
    lines += last ? QFontMetrics(font).elidedText(part, Qt::ElideRight, width, Qt::TextShowMnemonic)
                  : part;
  }
  layout.endLayout();
  return lines;
}

}  // namespace

CaptionLabel::CaptionLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void CaptionLabel::SetCaption(const QString& caption) {
  setText(caption);
  Fit();
}

void CaptionLabel::Fit() {
  const QString whole = text();
  const int most = std::max(1, height() / fontMetrics().lineSpacing());
  const QStringList lines = LinesOf(whole, font(), width(), most);
  fitted_ = lines.join(u'\n');
  setToolTip(lines.join(QString()) == whole ? QString() : SpokenText(PlainUtf8(whole)));
  update();
}

void CaptionLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const int how = static_cast<int>(alignment()) | Qt::TextShowMnemonic;
  style()->drawItemText(&painter, rect(), how, palette(), isEnabled(), fitted_, foregroundRole());
}

void CaptionLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  Fit();
}

void CaptionLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) Fit();
}

}  // namespace vistaplot
