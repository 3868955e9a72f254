// How the lines of series look: a fund's price is the strongest, its overlays have its hue and are
// told apart by weight and dash, a forecast is dashed on pale ground.
//
// Averages are thinner, a shade paler and dashed, short (exponential) or long (adaptive); bands are
// thin lines with a pale fill between them and their mean dotted; the parabolic stop is a dot a
// day, smaller where days are closer than four pixels; the trend is one pixel wide. Prices are
// drawn above all these. A line breaks where a point is missing; a point alone between two gaps is
// drawn as a dot.
#pragma once

#include <vector>

#include "charts/kinds/draw_context.h"

namespace vistaplot {

/// Draws the lines of those of `all` whose settings show one.
void DrawCurves(const DrawContext& context,
                const std::vector<DrawnSeries>& all,
                const PlotScale& scale,
                ChartPicture& picture);

/// The line of a series as the legend shows it, across `box`.
void DrawCurveSwatch(const DrawContext& context,
                     const DrawnSeries& series,
                     const PictureBox& box,
                     ChartPicture& picture);

}  // namespace vistaplot
