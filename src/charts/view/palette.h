// Colours of charts: those that series have until somebody sets another, and those of paper, texts
// and guide lines on light and on dark ground.
#pragma once

#include "charts/view/chart_picture.h"
#include "charts/view/chart_view.h"

namespace vistaplot {

/// The pen colour of series `s` (from 1) until a builder sets one. Ten colours that stay apart for
/// colour-blind readers and show on white and on black, then lighter and darker kinds of them.
ChartColor DefaultSeriesColor(int s);

struct ChartTheme {
  PictureColor background;
  PictureColor title;
  PictureColor label;
  PictureColor guide;       ///< lines of the value guides
  PictureColor guide_zero;  ///< the guide at zero
  PictureColor axis;        ///< base line and ticks
  bool dark = false;
};

ChartTheme LightTheme();  ///< also for print: white ground
ChartTheme DarkTheme();

/// How well two colours are told apart by lightness, 1 (not at all) to 21. By the Web Content
/// Accessibility Guidelines 2.1, "contrast ratio".
double Contrast(const PictureColor& one, const PictureColor& other);

/// A builder's colour as it is drawn on the theme's ground: unchanged where it has a contrast of
/// kLeastContrast or more, else darkened (on light ground) or lightened (on dark ground) until it
/// has; on dark ground dark colours are lightened further.
inline constexpr double kLeastContrast = 3.0;
PictureColor InkOn(const ChartTheme& theme, const ChartColor& color);

/// `ink` blended with the theme's ground by `part` (0 to 1), as far as its contrast stays at
/// kLeastContrast.
PictureColor PaleInk(const ChartTheme& theme, const PictureColor& ink, double part);

/// `color` with its light multiplied by `factor`, 0 to 1; alpha stays.
PictureColor Shaded(PictureColor color, double factor);

}  // namespace vistaplot
