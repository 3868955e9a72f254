// The charts of the screen of three: the price chart, and below it the Hurst exponent, the
// correlation, or the powers of the maximum-entropy analysis with the spectrum of one day.
#pragma once

#include "charts/builders/chart_parts.h"
#include "charts/builders/price_chart.h"
#include "charts/builders/spectrum_chart.h"

namespace vistaplot {

/// Builds the price chart and the chart of the analysis that the request's indicators name; with
/// the maximum-entropy analysis the spectrum of the last day too, SpectrumDay then is ChartDays.
///
/// `request.screen` must be kThreeCharts. Refused with empty views as the price chart is, and a
/// correlation of fewer than two funds. The notice of a drawn screen tells of poles below 1, or of
/// a spectrum of more than 6,000 periods, which alone stays empty.
BuildOutcome BuildAnalysisCharts(const PriceChartRequest& request,
                                 const Sheet& prices,
                                 const MarketCalendar& calendar,
                                 GraphSelection& selection,
                                 SpectrumState& state,
                                 const ThreeCharts& charts);

}  // namespace vistaplot
