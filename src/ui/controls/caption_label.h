// A caption that never runs out of its place unseen: in as many lines as the place has room for,
// the last one cut with an ellipsis where that is not enough; the whole text is then its tool tip.
#pragma once

#include <QLabel>

namespace vistaplot {

class CaptionLabel : public QLabel {
  Q_OBJECT

 public:
  explicit CaptionLabel(QWidget* parent);

  /// "&" in `caption` marks the access key.
  void SetCaption(const QString& caption);

  /// What of the caption is painted, lines parted by line ends.
  const QString& Fitted() const { return fitted_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Fit();

  QString fitted_;
};

}  // namespace vistaplot
