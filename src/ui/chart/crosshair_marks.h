// The cross-hair as it is drawn over a chart's picture: a line through the day, a line through the
// chosen series' point, and a ring about every series' point on that day. Figures that turn have
// the ring alone.
#pragma once

#include <QPainter>
#include <QRegion>
#include <optional>
#include <vector>

#include "charts/kinds/cross_hair.h"
#include "charts/kinds/read_out.h"
#include "charts/view/chart_picture.h"
#include "charts/view/palette.h"

namespace vistaplot {

struct CrossHairPoint {
  int series = 0;
  PicturePoint at;
  PictureColor color;
};

struct CrossHairMarks {
  bool lines = true;
  PictureBox plot;  ///< the lines end at its edges
  double x = 0.0;
  std::vector<CrossHairPoint> points;  ///< those inside the plot
  int chosen_series = 0;               ///< from 1; 0 for none

  /// The chosen series' point; null when it has none there.
  const CrossHairPoint* Chosen() const;

  /// The series whose point is nearest to the height `y`; 0 without points.
  int NearestSeries(double y) const;
};

/// Where the marks lie on `picture`; `read_out` is the cross-hair's row.
CrossHairMarks MarksOf(const ChartView& view,
                       const ChartPicture& picture,
                       const CrossHair& cross_hair,
                       const ReadOut& read_out);

/// All pixels that PaintLines and PaintRings may touch.
QRegion AreaOf(const CrossHairMarks& marks);

void PaintLines(QPainter& painter, const CrossHairMarks& marks, const ChartTheme& theme);
void PaintRings(QPainter& painter, const CrossHairMarks& marks, const ChartTheme& theme);

}  // namespace vistaplot
