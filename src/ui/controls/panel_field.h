// A panel as a widget: a text, and a bar once a percentage was shown. It keeps its room while it is
// blank, so that it can be shown and painted at once in the middle of long work, when no layout
// runs.
#pragma once

#include <QWidget>

namespace vistaplot {

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

}  // namespace vistaplot
