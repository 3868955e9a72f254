// Lines and markers, the figures of most charts: over rows, or over X values (every series takes
// two columns then, X and Y). Series are drawn in their order: lines first, then markers, then the
// points' labels. A line breaks where a point is missing; a point alone between two gaps is drawn
// as a dot. Of the points in one pixel column a line keeps the first, lowest, highest and last.
// Points with a marker of their own show that one.
#pragma once

#include "charts/kinds/kind.h"

namespace vistaplot {

const Kind& LinesOverRows();
const Kind& PointsOverValues();

}  // namespace vistaplot
