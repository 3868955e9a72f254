// The price chart: the selected funds' daily values over a window of market days, each rebased to
// its first value drawn, with overlays such as averages and bands, or with the trend and forecast
// of the maximum-entropy analysis.
#pragma once

#include "analytics/spectrum.h"
#include "charts/builders/chart_parts.h"
#include "charts/builders/graph_selection.h"
#include "charts/builders/overlays.h"
#include "charts/view/chart_view.h"
#include "marketdata/market_calendar.h"
#include "table/sheet.h"

namespace vistaplot {

/// The screen that the chart is drawn on; it decides the places of title and plot.
enum class PriceScreen {
  kGraph,        ///< frmGraph, one chart
  kThreeCharts,  ///< frmPer, above an analysis
};

struct PriceChartRequest {
  int end_day = 1;             ///< wanted last market day
  bool scatter = false;        ///< markers instead of lines
  bool one_at_a_time = false;  ///< CurrentFund alone instead of all selected funds
  PriceScreen screen = PriceScreen::kGraph;
  ChartDisplay display;
  IndicatorNumbers indicators;
};

struct PriceChartOutcome : BuildOutcome {
  /// The spectra behind the trend; of the maximum-entropy analysis alone.
  DailySpectrum spectrum;
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
/// With the maximum-entropy analysis one fund is drawn, with its trend as second column and ten
/// forecast rows behind the days, where its price column goes on; other overlays are left out. A
/// marker stands on the last day.
///
/// Refused with an empty view: a parameter beyond 16 bits, a history shorter than the indicators
/// need (the selection stays as it was), and more than 12,000 points.
PriceChartOutcome BuildPriceChart(const PriceChartRequest& request,
                                  const Sheet& prices,
                                  const MarketCalendar& calendar,
                                  GraphSelection& selection,
                                  ChartView& view);

}  // namespace vistaplot
