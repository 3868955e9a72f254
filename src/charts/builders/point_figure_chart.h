// The point-and-figure chart of one fund: X and O boxes over forty columns.
#pragma once

#include "analytics/point_figure.h"
#include "charts/builders/chart_parts.h"
#include "charts/builders/graph_selection.h"
#include "charts/view/chart_view.h"
#include "marketdata/market_calendar.h"
#include "table/sheet.h"

namespace vistaplot {

struct PointFigureRequest {
  int end_day = 1;  ///< last market day
  PointFigureSettings settings;
  ChartDisplay display;
};

/// Draws the fund at CurrentFund on `view`.
///
/// Uses SelectedColumns, CurrentFund and TimePeriodIndex of `selection` and leaves FirstDay behind.
/// A row is a box, X boxes first: its column number and its level; the rows behind stand unseen in
/// the columns up to 40. The first X box of each day carries its date. Without a priced day the
/// chart has no points; its WhyEmpty then says so, as it does where no box came. The outcome's
/// `box_dates` name the days of the last X and the last O.
///
/// Refused with an empty view: more than 40 columns; a box value that is not above 0.
BuildOutcome DrawPointAndFigure(const PointFigureRequest& request,
                                const Sheet& prices,
                                const MarketCalendar& calendar,
                                GraphSelection& selection,
                                ChartView& view);

}  // namespace vistaplot
