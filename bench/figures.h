// The groups of figures; each prints a line an operation (see timing.h).
#pragma once

#include <string>

namespace vistaplot::bench {

/// Reading the price file, and loading and summarising every issue of it.
void MeasureLoading(const std::string& wide_csv);

/// Importing a summary file of 9,999 records and sorting its sheet.
void MeasureResults(const std::string& summary_file);

/// The indicators over all days of one issue, each beside a plain loop of the same arithmetic.
void MeasureAnalytics();

/// The calculations screen: signal files, the signal engine, whole runs, a family's breadth.
void MeasureCalculations(const std::string& wide_csv);

/// Building, laying out and painting charts of 12,000 points at 1280 by 900 pixels. Needs a running
/// QGuiApplication.
void MeasureCharts();

/// The windows: shown at start (beside a bare main window), a step of the chart's scroll bar, a
/// move of the cross-hair, a page of the grid (beside the toolkit's own table view), the summary
/// file imported into the sheet shown. Each from the event to the painted window of 1280 by 960
/// pixels. Needs a running QApplication.
void MeasureWindows(const std::string& summary_file);

}  // namespace vistaplot::bench
