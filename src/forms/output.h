// Where charts and sheets go besides the screens: picture files, the printer, the clipboard. The
// part of the program that knows a toolkit provides it.
#pragma once

#include <string>

#include "base/progress.h"
#include "base/result.h"
#include "charts/view/chart_view.h"
#include "table/sheet.h"

namespace vistaplot {

inline constexpr const char* kPrintingAction = "Printing...";

class Output {
 public:
  virtual ~Output() = default;

  /// Draws a chart into a host file, its kind by the extension (.png, .svg, .pdf), `width` by
  /// `height` pixels. A failure leaves an older file whole.
  virtual Status SaveChart(const ChartView& view,
                           const std::string& path,
                           int width,
                           int height) = 0;

  /// Asks for a printer and prints. Done also when the user cancelled. `progress` shows
  /// kPrintingAction while pages go out, not while the user is asked.
  virtual Status PrintChart(const ChartView& view, Progress& progress) = 0;
  /// The same with `title` above each page; the meter tells how many of the pages are done.
  virtual Status PrintSheet(const Sheet& sheet, const std::string& title, Progress& progress) = 0;

  /// The chart as a picture, `width` by `height` pixels, on the clipboard.
  virtual Status CopyChart(const ChartView& view, int width, int height) = 0;
  /// Tab-separated lines on the clipboard.
  virtual Status CopyText(const std::string& text) = 0;
};

}  // namespace vistaplot
