// Widgets that the toolkit lacks, or paints otherwise than the screens need.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QString>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QWidget>
#include <string>
#include <string_view>

namespace vistaplot {

/// `caption` with its runs of two and more blanks as long as `width` pixels want them, one blank at
/// least, so that its parts stand at the beginning, at the end and evenly between, over or beside
/// what they name. One run alone ahead of a text centres it. A caption without runs stays as it is.
QString SpreadCaption(const QString& caption, const QFontMetrics& font, int width);

/// A caption that never runs out of its place unseen: in as many lines as the place has room for,
/// the last one cut with an ellipsis where that is not enough; the whole text is then its tool tip.
class CaptionLabel : public QLabel {
  Q_OBJECT

 public:
  explicit CaptionLabel(QWidget* parent);

  /// "&" in `caption` marks the access key.
  void SetCaption(const QString& caption);

  /// What of the caption is painted, lines parted by line ends.
  const QString& Fitted() const { return fitted_; }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Fit();

  QString fitted_;
};

/// A check box whose caption is spread over its width.
class SpreadCheckBox : public QCheckBox {
 public:
  using QCheckBox::QCheckBox;

  void SetCaption(const QString& caption);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Fit();

  QString caption_;
};

/// A panel as a widget: a text, and a bar once a percentage was shown. It keeps its room while it
/// is blank, so that it can be shown and painted at once in the middle of long work, when no layout
/// runs.
class PanelField : public QWidget {
 public:
  explicit PanelField(QWidget* parent);

  void SetText(const QString& text);
  void SetPercent(int percent);  ///< 0 to 100
  void SetBlank(bool blank);     ///< nothing is painted

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString text_;
  int percent_ = 0;
  bool has_bar_ = false;
  bool blank_ = false;
};

/// A scroll bar in flat colours: it is painted with every step of a chart, and the styles' shaded
/// bars take a good part of the time that the chart takes.
class PlainScrollBar : public QScrollBar {
  Q_OBJECT

 public:
  using QScrollBar::QScrollBar;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// Paints a scroll bar in flat colours of `option`'s palette; `bar` (may be null) is the widget,
/// and `style` says where its parts lie. Between two colours, so that it is seen on light and dark.
void PaintScrollBar(QPainter& painter,
                    const QStyleOptionSlider& option,
                    const QStyle& style,
                    const QWidget* bar);

/// A frame around other controls whose title stands in its upper line.
class TitledFrame : public QWidget {
  Q_OBJECT

 public:
  explicit TitledFrame(QWidget* parent);

  void SetTitle(const QString& title);
  const QString& Title() const { return title_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString title_;
};

// Texts between the program (UTF-8) and the toolkit.

inline QString QtText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string PlainUtf8(const QString& text) {
  return text.toStdString();
}

/// A caption as it is read out: without the "&" that marks the access key, without a colon at the
/// end, and with one blank between words.
QString SpokenText(std::string_view caption);

}  // namespace vistaplot
