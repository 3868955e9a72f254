// A chart as a picture file: PNG, SVG or PDF, by the file name's extension (in any case).
#pragma once

#include <string>

#include "base/result.h"
#include "charts/view/chart_view.h"

namespace vistaplot {

inline constexpr int kSmallestPicture = 64;    ///< pixels, width and height
inline constexpr int kLargestPicture = 16384;  ///< pixels, width and height

/// Draws `view` on white, `width` by `height` pixels (96 to the inch in a PDF), into the host file
/// `path`. Written beside the target and renamed: a failure leaves an older file whole. The error
/// says what is wrong and names the file: unknown extension, size out of range, no such folder, ...
/// Needs a running QGuiApplication; platform "offscreen" will do.
Status ExportChart(const ChartView& view, const std::string& path, int width, int height);

}  // namespace vistaplot
