#include "ui/controls/widgets.h"

#include <QEvent>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpression>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionProgressBar>
#include <QStyleOptionSlider>
#include <QStylePainter>
#include <QTextLayout>
#include <algorithm>

namespace vistaplot {

namespace {

constexpr QChar kHairSpace(0x200A);

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

constexpr int kArrow = 4;  ///< half the length of an arrow's base, in pixels

/// Between two colours of the palette, so that it is seen on light and dark desktops.
QColor Between(const QColor& from, const QColor& to, int percent) {
  const auto mixed = [percent](int a, int b) { return a + (b - a) * percent / 100; };
  return {
      mixed(from.red(), to.red()), mixed(from.green(), to.green()), mixed(from.blue(), to.blue())};
}

void PaintArrow(QPainter& painter, const QRect& button, bool upright, bool towards_end) {
  if (button.isEmpty()) return;
  const QPointF middle = QRectF(button).center();
  const double tip = towards_end ? kArrow / 2.0 : -kArrow / 2.0;
  QPolygonF arrow({{tip, 0.0}, {-tip, -kArrow}, {-tip, kArrow}});
  if (upright) {
    for (QPointF& corner : arrow) corner = corner.transposed();
  }
  painter.drawPolygon(arrow.translated(middle));
}

}  // namespace

QString SpreadCaption(const QString& caption, const QFontMetrics& font, int width) {
  static const QRegularExpression runs(QStringLiteral(" {2,}"));
  const QStringList parts = caption.split(runs);
  if (parts.size() < 2) return caption;
  // Blanks ahead of a lone text are there to centre it.
  const bool is_centred = parts.size() == 2 && parts.first().isEmpty();
  const int gaps = is_centred ? 2 : static_cast<int>(parts.size()) - 1;
  const int room = width - font.horizontalAdvance(parts.join(QString()));
  const int blank = std::max(font.horizontalAdvance(u' '), 1);
  const int blanks = std::max(room / gaps / blank, 1);
  const int hair = std::max(font.horizontalAdvance(kHairSpace), 1);
  const int hairs = std::max(room / gaps - blanks * blank, 0) / hair;
  return parts.join(QString(blanks, u' ') + QString(hairs, kHairSpace));
}

CaptionLabel::CaptionLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void CaptionLabel::SetCaption(const QString& caption) {
  setText(caption);
  Fit();
}

void CaptionLabel::Fit() {
  const QString whole = SpreadCaption(text(), fontMetrics(), width());
  const int most = std::max(1, height() / fontMetrics().lineSpacing());
  const QStringList lines = LinesOf(whole, font(), width(), most);
  fitted_ = lines.join(u'\n');
  setToolTip(lines.join(QString()) == whole ? QString() : SpokenText(PlainUtf8(whole)));
  update();
}

// The access key of a field that has the keyboard already starts its text anew as well.
bool CaptionLabel::event(QEvent* event) {
  const bool handled = QLabel::event(event);
  auto* line = qobject_cast<QLineEdit*>(buddy());
  if (event->type() == QEvent::Shortcut && line != nullptr) line->selectAll();
  return handled;
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

void SpreadCheckBox::SetCaption(const QString& caption) {
  caption_ = caption;
  Fit();
}

void SpreadCheckBox::resizeEvent(QResizeEvent* event) {
  QCheckBox::resizeEvent(event);
  Fit();
}

void SpreadCheckBox::Fit() {
  QStyleOptionButton option;
  initStyleOption(&option);
  const QRect room = style()->subElementRect(QStyle::SE_CheckBoxContents, &option, this);
  setText(SpreadCaption(caption_, fontMetrics(), room.width()));
}

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

void PaintScrollBar(QPainter& painter,
                    const QStyleOptionSlider& option,
                    const QStyle& style,
                    const QWidget* bar) {
  const auto part = [&](QStyle::SubControl control) {
    return style.subControlRect(QStyle::CC_ScrollBar, &option, control, bar);
  };
  const bool upright = option.orientation == Qt::Vertical;
  const QColor ground = option.palette.color(QPalette::Window);
  const QColor ink = option.palette.color(QPalette::WindowText);
  const bool active =
      option.state.testFlag(QStyle::State_Sunken) || option.state.testFlag(QStyle::State_MouseOver);
  painter.save();
  painter.fillRect(option.rect, Between(ground, ink, 8));
  const QRect slider = part(QStyle::SC_ScrollBarSlider);
  painter.fillRect(upright ? slider.adjusted(2, 1, -2, -1) : slider.adjusted(1, 2, -1, -2),
                   Between(ground, ink, active ? 55 : 38));
  if (option.state.testFlag(QStyle::State_HasFocus)) {
    painter.setPen(option.palette.color(QPalette::Highlight));
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
  }
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Between(ground, ink, option.state.testFlag(QStyle::State_Enabled) ? 75 : 30));
  PaintArrow(painter, part(QStyle::SC_ScrollBarSubLine), upright, /*towards_end=*/false);
  PaintArrow(painter, part(QStyle::SC_ScrollBarAddLine), upright, /*towards_end=*/true);
  painter.restore();
}

void PlainScrollBar::paintEvent(QPaintEvent* /*event*/) {
  QStyleOptionSlider option;
  initStyleOption(&option);
  option.state.setFlag(QStyle::State_Sunken, isSliderDown());
  option.state.setFlag(QStyle::State_MouseOver, underMouse());
  option.state.setFlag(QStyle::State_HasFocus, hasFocus());
  QPainter painter(this);
  PaintScrollBar(painter, option, *style(), this);
}

TitledFrame::TitledFrame(QWidget* parent) : QWidget(parent) {}

void TitledFrame::SetTitle(const QString& title) {
  title_ = title;
  setAccessibleName(SpokenText(PlainUtf8(title)));
  update();
}

void TitledFrame::paintEvent(QPaintEvent* /*event*/) {
  constexpr int kIndent = 10;
  constexpr int kGap = 4;
  constexpr double kRound = 3.0;
  const int line = fontMetrics().height() / 2;
  const QRect title(kIndent + kGap, 0, fontMetrics().horizontalAdvance(title_), 2 * line);
  const QColor ground = palette().color(QPalette::Window);
  const QColor ink = palette().color(QPalette::WindowText);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Between(ground, ink, 30));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, line + 0.5, -0.5, -0.5), kRound, kRound);
  if (title_.isEmpty()) return;
  painter.fillRect(title.adjusted(-kGap, 0, kGap, 0), ground);
  painter.setPen(ink);
  painter.drawText(title, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, title_);
}

QString SpokenText(std::string_view caption) {
  QString spoken;
  const QString text = QtText(caption).simplified();
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] == u'&' && i + 1 < text.size()) ++i;
    spoken += text[i];
  }
  if (spoken.endsWith(u':')) spoken.chop(1);
  return spoken;
}

}  // namespace vistaplot
