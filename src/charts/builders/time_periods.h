// The time periods of the charts of prices and the window of market days that each stands for.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "base/result.h"
#include "marketdata/market_calendar.h"

namespace vistaplot {

inline constexpr int kTimePeriods = 10;
inline constexpr int kAllDays = kTimePeriods - 1;  ///< the period "All"

/// The least first day of a price chart: the day before it must exist.
inline constexpr int kLeastLookbackDays = 2;

struct TimePeriod {
  int market_days = 0;          ///< 0 for all days
  int months = 0;               ///< calendar span; 0 for all days
  int divisions_per_label = 1;  ///< rows from one date label of a price chart to the next
  int divisions_per_tick = 1;
};

/// Period `index`, 0 to 9; the nearest one for other numbers.
const TimePeriod& TimePeriodAt(int index);

/// The first market day that a chart may draw when it needs `periods` (in market days) of history:
/// the largest period + 2, rounded to the nearest (halves to even), and at least
/// kLeastLookbackDays. Error 6 when one is beyond 16 bits.
Result<std::int16_t> LookbackDaysFor(std::span<const double> periods);

struct DayWindow {
  int first_day = 0;
  int end_day = 0;  ///< included
  bool operator==(const DayWindow&) const = default;
};

/// The market days of a price chart that shall end at `end_day`.
///
/// The window begins `market_days` before its end, or earlier, on the last market day on or before
/// the date that lies the calendar span before the end's date. Where that would be before
/// `lookback_days`, it begins there and moves as a whole. It never ends after MaxNumDays;
/// kAllDays always ends there. An `end_day` outside 1 to MaxNumDays counts as the nearest in it.
/// Nothing when the history is shorter than `lookback_days`.
std::optional<DayWindow> PriceWindow(int time_period,
                                     int end_day,
                                     int lookback_days,
                                     const MarketCalendar& calendar);

/// The market days of a chart of bars or boxes that ends at `end_day`, which needs no history.
///
/// It begins `market_days` before its end but not before day 1, or earlier, as PriceWindow does.
/// kAllDays takes every day up to MaxNumDays; an `end_day` outside 1 to MaxNumDays counts as the
/// nearest in it. Without a market day it ends at day 0, before it begins.
DayWindow BarWindow(int time_period, int end_day, const MarketCalendar& calendar);

}  // namespace vistaplot
