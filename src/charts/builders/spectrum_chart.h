// The spectrum of one day of a maximum-entropy screen, and what its buttons and clicks do: step the
// day, add a forecast from a day, take added forecasts off.
#pragma once

#include <cstdint>
#include <string>

#include "analytics/spectrum.h"
#include "charts/builders/chart_parts.h"
#include "charts/builders/graph_selection.h"
#include "charts/builders/overlays.h"
#include "charts/view/chart_view.h"
#include "table/sheet.h"

namespace vistaplot {

/// What the buttons and clicks of a maximum-entropy screen need of its last build.
struct SpectrumState {
  std::int16_t MemPeriod = 0;     ///< longest period
  std::int16_t SpectrumDays = 0;  ///< chart days; the upper limit of SpectrumDay
  std::int16_t SpectrumDay = 0;   ///< the chart day whose spectrum is shown
  DailySpectrum PowerSpectrum;
};

/// The views of the screen.
struct ThreeCharts {
  ChartView& prices;    ///< VtChart1
  ChartView& analysis;  ///< VtChart2, of the same rows
  ChartView& spectrum;  ///< VtChart3; filled by the maximum-entropy analysis alone
};

/// Draws the spectrum of SpectrumDay on `view`: row p is the power of a cycle of p days.
///
/// @return  empty, or the message that refuses it; the view is then empty
std::string BuildSpectrumChart(const SpectrumState& state,
                               const ChartDisplay& display,
                               ChartView& view);

/// Moves SpectrumDay by `step` (+1 or -1) within 1 to SpectrumDays, and the marks of that day on
/// the price chart and the powers with it; draws the spectrum again in every case.
///
/// @return  as BuildSpectrumChart
std::string StepSpectrum(int step,
                         const ChartDisplay& display,
                         SpectrumState& state,
                         const ThreeCharts& charts);

/// Adds a series to the price chart of a maximum-entropy screen: the ten days behind chart day
/// `day` as they are predicted from that day. Nothing happens for a day behind SpectrumDays or
/// without a built screen.
///
/// @param mem  the parameter boxes as they are now
/// @return     empty, or "error: 6 Overflow"
std::string AddForecast(int day,
                        const IndicatorNumbers::Mem& mem,
                        const Sheet& prices,
                        const GraphSelection& selection,
                        const SpectrumState& state,
                        ChartView& price_chart);

/// Takes every added forecast off the price chart of a maximum-entropy screen.
void ClearForecasts(ChartView& price_chart);

/// The marker of the day whose spectrum is shown.
inline constexpr double kDayMarkSize = 8.0;
inline constexpr double kPeakMarkSize = 4.0;

/// Marks point `day` of a series as the day whose spectrum is shown.
void MarkDay(ChartSeries& series, int day);

/// Marks point `day` of a series of peaks as a peak.
void MarkPeak(ChartSeries& series, int day);

}  // namespace vistaplot
