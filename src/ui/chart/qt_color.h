// Colours of pictures as the toolkit's.
#pragma once

#include <QColor>

#include "charts/view/chart_picture.h"

namespace vistaplot {

inline QColor QtColor(const PictureColor& color) {
  return {color.red, color.green, color.blue, color.alpha};
}

}  // namespace vistaplot
