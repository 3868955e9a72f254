// Replays a chart's picture with a painter: onto a window, an image, or a page.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <map>
#include <utility>

#include "charts/layout/layout.h"
#include "charts/view/chart_picture.h"

namespace vistaplot {

/// The charts' font; the same on every machine that has it, else the desktop's. Needs a running
/// QGuiApplication, as all of these do.
QFont PictureFont(int pixel_size, bool bold);

/// The font in the sizes of one picture, each looked up once.
class PictureFonts {
 public:
  struct Face {
    QFont font;
    QFontMetricsF metrics;
  };

  const Face& Get(int pixel_size, bool bold);

 private:
  std::map<std::pair<int, bool>, Face> faces_;
};

/// Widths of texts as PaintPicture draws them.
class QtTextMeasure : public TextMeasure {
 public:
  double Width(std::string_view text, int pixel_size, bool bold) const override;

 private:
  mutable PictureFonts fonts_;
};

/// Paints `picture` with its upper left corner at the painter's origin, ground included. The
/// painter's state is restored. Markers are stamped as one small image on pixel devices and drawn
/// as shapes on pages.
void PaintPicture(QPainter& painter, const ChartPicture& picture);

}  // namespace vistaplot
