// Replays a chart's picture with a painter: onto a window, an image, or a page.
#pragma once

#include <QFont>
#include <QPainter>

#include "charts/chart_picture.h"
#include "charts/layout.h"

namespace vistaplot {

/// Widths of texts in the font that PaintPicture uses. Needs a running QGuiApplication.
class QtTextMeasure : public TextMeasure {
 public:
  double Width(std::string_view text, int pixel_size, bool bold) const override;
};

/// The charts' font; the same on every machine that has it, else the desktop's.
QFont PictureFont(int pixel_size, bool bold);

/// Paints `picture` with its upper left corner at the painter's origin, ground included. The
/// painter's state is restored. Markers are stamped as one small image on pixel devices and drawn
/// as shapes on pages.
void PaintPicture(QPainter& painter, const ChartPicture& picture);

}  // namespace vistaplot
