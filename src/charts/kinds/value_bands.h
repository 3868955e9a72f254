// The bands that contour and surface charts colour: round steps of the charted value, and one ramp
// of colours whose lightness rises with it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "charts/view/chart_picture.h"

namespace vistaplot {

/// Bands of one width; the first begins at or below the lowest value, the last ends above the
/// highest or at it.
struct ValueBands {
  double first = 0.0;  ///< lower limit of the first band, a multiple of `step`
  double step = 1.0;
  int count = 1;

  double LowerLimit(int band) const { return first + band * step; }  ///< band from 0
  /// The limits between bands, ascending: count - 1 of them.
  std::vector<double> InnerLimits() const;
  /// The band, from 0, that `value` lies in; the outermost ones take what lies beyond.
  int BandOf(double value) const;
};

/// 8 to 12 bands at a step of 1, 2, 2.5 or 5 times a power of ten over `lowest` to `highest`; fewer
/// where no such step gives that many, one where all values are equal.
ValueBands BandsOf(double lowest, double highest);

/// The colour of `part` (0 the lowest value, 1 the highest). Even steps of `part` look alike; blue
/// and yellow ends can be told by every kind of colour-blind reader, and in grey by lightness. The
/// end that comes near the ground keeps clear of it: on light ground the ramp ends earlier, on dark
/// ground it begins later.
PictureColor RampColor(double part, bool dark);

/// The colour of a band from 0 among `bands`.
PictureColor BandColor(const ValueBands& bands, int band, bool dark);

}  // namespace vistaplot
