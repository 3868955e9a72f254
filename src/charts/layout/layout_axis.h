// Axes: round values with their texts, guide lines, and the labels and ticks below the plot.
#pragma once

#include <string>
#include <vector>

#include "charts/layout/layout_frame.h"
#include "charts/layout/layout_parts.h"

namespace vistaplot {

/// Draws the horizontal guides at the frame's value marks, with their labels.
void DrawValueAxis(const DrawContext& context, const ChartFrame& frame, ChartPicture& picture);

/// Draws the base line, and below it the labels and ticks of the rows or of the X values.
///
/// Row labels stand at row 1 and every DivisionsPerLabel rows on, ticks every DivisionsPerTick rows
/// from each label on. Where labels would touch, the spacing becomes the next multiple that keeps
/// them apart; ticks likewise. Blank labels and those under the title are left away.
void DrawPositionAxis(const DrawContext& context, const ChartFrame& frame, ChartPicture& picture);

}  // namespace vistaplot
