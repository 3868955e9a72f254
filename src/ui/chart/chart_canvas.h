// Replays a chart's picture with a painter: onto a window, an image, or a page.
#pragma once

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QStaticText>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "charts/layout/layout.h"
#include "charts/view/chart_picture.h"

namespace vistaplot {

/// The charts' font; the same on every machine that has it, else the desktop's. Needs a running
/// QGuiApplication, as all of these do.
QFont PictureFont(int pixel_size, bool bold);

/// Texts of pictures in the charts' font, each laid out and measured once: most texts of a chart
/// are those of the step before.
class PictureTexts : public TextMeasure {
 public:
  struct Laid {
    QStaticText text;
    double width = 0.0;
    double ascent = 0.0;  ///< from the upper edge to the base line
  };

  double Width(std::string_view text, int pixel_size, bool bold) const override;

  /// Valid until the next call.
  const Laid& Get(std::string_view text, int pixel_size, bool bold) const;
  const QFont& Font(int pixel_size, bool bold) const;

 private:
  struct Face {
    QFont font;
    QFontMetricsF metrics;
    std::unordered_map<std::string, Laid> texts;
  };
  Face& FaceOf(int pixel_size, bool bold) const;

  mutable std::map<std::pair<int, bool>, Face> faces_;
};

/// Paints `picture` with its upper left corner at the painter's origin, ground included. The
/// painter's state is restored. Markers are stamped as one small image on pixel devices and drawn
/// as shapes on pages. `texts` are those that measured the picture, or others.
void PaintPicture(QPainter& painter, const ChartPicture& picture, const PictureTexts& texts);

// Colours of pictures as the toolkit's.

inline QColor QtColor(const PictureColor& color) {
  return {color.red, color.green, color.blue, color.alpha};
}

}  // namespace vistaplot
