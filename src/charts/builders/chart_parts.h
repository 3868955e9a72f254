// What the charts of prices have in common: which funds, dates of rows, axes of dates, places.
#pragma once

#include <optional>
#include <string>

#include "charts/builders/graph_selection.h"
#include "charts/view/chart_view.h"
#include "table/sheet.h"

namespace vistaplot {

/// The most points of a chart of prices.
inline constexpr int kMostPoints = 12000;

/// Size of the display in twips, which places are scaled to.
struct ChartDisplay {
  double width = 9600.0;
  double height = 7200.0;
};

/// Sets FirstFund and LastFund: all selected funds, or CurrentFund alone.
void ChooseFunds(bool one_at_a_time, GraphSelection& selection);

/// How many funds the chart draws, 0 or more.
int DrawnFunds(const GraphSelection& selection);

/// Title and its font size in points and place.
void SetTitle(ChartView& view, const std::string& text, double size, int location);

/// A legend on the right in letters of 8 points.
void SetLegend(ChartView& view, bool visible);

/// The plot's rectangle in inches; `max` is that of a display of 9600 by 7200 twips.
void PlacePlot(ChartView& view, const ChartDisplay& display, ChartPoint min, ChartPoint max);

/// Every series as a line of one pixel, or as markers without a line.
void StyleSeries(ChartView& view, bool scatter);

/// Rows 1 to `days` take the dates of market days from `first_day` on, "mm/dd/yy", the rows behind
/// a blank.
void LabelDays(ChartView& view, const Sheet& prices, int first_day, int days);

/// The label of a row from the text of a date's cell: its date "mm/dd/yy", or the text itself where
/// it is no date.
std::string DateLabel(const std::string& text);

/// A date axis with labels and ticks every so many rows, and value axes without scale or title.
void SetDateAxes(ChartView& view, int divisions_per_label, int divisions_per_tick);

// What a chart builder hands back beside the view that it filled.

struct BuildOutcome {
  bool drawn = false;
  std::string message;           ///< why nothing was drawn; empty when drawn
  std::string on_screen;         ///< the same with the figures, for the place of the chart
  std::string notice;            ///< told beside a chart that was drawn; mostly empty
  int end_day = 0;               ///< the last market day that the build settled on
  std::optional<int> scroll_to;  ///< where the scroll bar goes, also when nothing was drawn
  std::string box_dates;         ///< what lblboxdate says; of point and figure alone
};

/// Nothing was drawn, as `message` says.
inline BuildOutcome RefusedBuild(std::string message, int end_day) {
  BuildOutcome outcome;
  outcome.message = std::move(message);
  outcome.end_day = end_day;
  return outcome;
}

}  // namespace vistaplot
