// An entry of a legend that stands for no series.
#pragma once

#include <string>

#include "charts/view/chart_picture.h"

namespace vistaplot {

enum class LegendFigure {
  kBand,     ///< a box of the colour
  kBest,     ///< the mark of the best cell
  kPlateau,  ///< the mark of the best neighbourhood
};

struct LegendMark {
  LegendFigure figure = LegendFigure::kBand;
  PictureColor color;
  std::string text;
};

/// Draws it into `box`.
void DrawLegendMark(const LegendMark& mark, const PictureBox& box, ChartPicture& picture);

}  // namespace vistaplot
