// The candlestick chart: weekly open-high-low-close bars of the selected funds, each relative to
// its fund's first price in the window.
#pragma once

#include "charts/builders/chart_parts.h"
#include "charts/builders/graph_selection.h"
#include "charts/view/chart_view.h"
#include "marketdata/market_calendar.h"
#include "table/sheet.h"

namespace vistaplot {

struct CandleChartRequest {
  int end_day = 1;             ///< wanted last market day
  bool bars = false;           ///< "Candlestick Bar" instead of "Candlestick line"
  bool one_at_a_time = false;  ///< CurrentFund alone instead of all selected funds
  ChartDisplay display;
};

/// Draws the chart on `view`.
///
/// Uses SelectedColumns, SelectedCount, CurrentFund and TimePeriodIndex of `selection` (a selection
/// must have been read) and leaves FirstFund, LastFund, FirstDay and PriceBase behind; no history
/// is needed ahead of the window. Rows are the weeks that end in the window and an empty one; each
/// fund has four columns, open, high, low and close, as multiples of its base. Bar b of a fund is
/// row b: a fund without a price in some week has its later bars one row up, and the labels are
/// those of the fund drawn last.
///
/// Refused with an empty view: more than 12,000 values.
BuildOutcome BuildCandleChart(const CandleChartRequest& request,
                              const Sheet& prices,
                              const MarketCalendar& calendar,
                              GraphSelection& selection,
                              ChartView& view);

}  // namespace vistaplot
