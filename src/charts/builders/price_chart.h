// The price chart: the selected funds' daily values over a window of market days, each rebased to
// its first value drawn, with overlays such as averages and bands.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "charts/builders/graph_selection.h"
#include "charts/builders/time_periods.h"
#include "charts/view/chart_view.h"
#include "marketdata/market_calendar.h"
#include "table/sheet.h"

namespace vistaplot {

/// One fund over the days of a chart: chart day i (1 to chart_days) is market day
/// first_day + i - 1, row first_day + i of `prices`. Earlier rows may be read for history.
struct FundDays {
  const Sheet& prices;
  int column = 0;
  int first_day = 0;
  int chart_days = 0;
};

/// A kind of curves drawn beside every fund's price.
struct PriceOverlay {
  /// What follows the symbol in the legend ("e"), one entry a curve. The third curve of three is
  /// drawn in the first one's colour.
  std::vector<std::string> suffixes;

  /// What each curve is, for drawing and read-out, and its name behind the symbol ("average 50"),
  /// one entry a curve.
  std::vector<SeriesRole> roles;
  std::vector<std::string> names;

  /// The curves of one fund in price units, one a suffix, chart_days values each, chart day 1
  /// first. The overlay starts on the first day on which its first two curves (its only one) are
  /// not 0; that day and those before it stay empty.
  std::function<std::vector<std::vector<float>>(const FundDays&)> curves;
};

/// The screen that the chart is drawn on; it decides the places of title and plot.
enum class PriceScreen {
  kGraph,        ///< frmGraph, one chart
  kThreeCharts,  ///< frmPer, above an analysis
};

struct PriceChartRequest {
  int end_day = 1;                        ///< wanted last market day
  int LookbackDays = kLeastLookbackDays;  ///< least first day; see LookbackDaysFor
  bool scatter = false;                   ///< markers instead of lines
  bool one_at_a_time = false;             ///< CurrentFund alone instead of all selected funds
  PriceScreen screen = PriceScreen::kGraph;
  double screen_width = 9600.0;  ///< of the display, in twips
  double screen_height = 7200.0;
  std::vector<PriceOverlay> overlays;  ///< in the order of their columns
};

struct PriceChartOutcome {
  bool drawn = false;
  std::string message;           ///< why nothing was drawn; empty when drawn
  int end_day = 0;               ///< the last market day that the build settled on
  std::optional<int> scroll_to;  ///< where the scroll bar goes, also when nothing was drawn
};

/// Draws the price chart on `view`.
///
/// Uses SelectedColumns, SelectedCount, CurrentFund and TimePeriodIndex of `selection` (a selection
/// must have been read) and leaves FirstFund, LastFund, FirstDay, ChartDays and PriceBase behind.
/// Chart row i is market day FirstDay + i - 1 with its date from column 1 of `prices` as label;
/// each fund has its price column and then its overlays'. A price x is drawn as x / base - 1 in
/// double precision, an overlay's value as value / base - 1 in single precision; prices of 0 or
/// less, and overlays while the fund has no base, are empty.
///
/// Refused: a history shorter than LookbackDays (view and selection stay as they were), and more
/// than 12,000 points (the view then has its title and rows, but no column).
PriceChartOutcome BuildPriceChart(const PriceChartRequest& request,
                                  const Sheet& prices,
                                  const MarketCalendar& calendar,
                                  GraphSelection& selection,
                                  ChartView& view);

}  // namespace vistaplot
