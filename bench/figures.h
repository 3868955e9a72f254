// The groups of figures; each prints a line an operation (see timing.h).
#pragma once

#include <string>

namespace vistaplot::bench {

/// Reading the price file, and loading and summarising every issue of it.
void MeasureLoading(const std::string& wide_csv);

/// Building, laying out and painting charts of 12,000 points at 1280 by 900 pixels. Needs a running
/// QGuiApplication.
void MeasureCharts();

}  // namespace vistaplot::bench
