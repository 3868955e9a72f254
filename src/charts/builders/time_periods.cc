#include "charts/builders/time_periods.h"

#include <algorithm>
#include <array>

#include "base/number_text.h"

namespace vistaplot {
namespace {

constexpr std::array<TimePeriod, kTimePeriods> kPeriods = {{{20, 1, 3, 1},
                                                            {40, 2, 5, 1},
                                                            {60, 3, 7, 1},
                                                            {120, 6, 13, 2},
                                                            {180, 9, 19, 3},
                                                            {240, 12, 25, 4},
                                                            {480, 24, 48, 7},
                                                            {720, 36, 75, 10},
                                                            {1200, 60, 120, 18},
                                                            {0, 0, 200, 40}}};

// The last day on or before `target`, searched from `first_day` back to `least_day`.
int AlignedDay(int first_day, int least_day, DateSerial target, const MarketCalendar& calendar) {
  int day = first_day;
  while (day > least_day && calendar.DateOf(day) > target) --day;
  return day;
}

}  // namespace

const TimePeriod& TimePeriodAt(int index) {
  return kPeriods[static_cast<std::size_t>(std::clamp(index, 0, kAllDays))];
}

Result<std::int16_t> LookbackDaysFor(std::span<const double> periods) {
  std::int16_t days = kLeastLookbackDays;
  for (const double period : periods) {
    Result<std::int16_t> needed = ToInt16(period + kLeastLookbackDays);
    if (!needed) return needed;
    days = std::max(days, needed.Value());
  }
  return days;
}

std::optional<DayWindow> PriceWindow(int time_period,
                                     int end_day,
                                     int lookback_days,
                                     const MarketCalendar& calendar) {
  const int newest = calendar.MaxNumDays;
  if (newest < lookback_days) return std::nullopt;
  const TimePeriod& period = TimePeriodAt(time_period);
  const bool all = period.market_days == 0;
  const int end = all ? newest : std::clamp(end_day, 1, newest);
  const int wanted = all ? 1 : end - period.market_days;
  const int first = std::max(wanted, lookback_days);
  const DateSerial target =
      all ? calendar.DateOf(1) : MonthsBefore(calendar.DateOf(end), period.months);
  return DayWindow{.first_day = AlignedDay(first, lookback_days, target, calendar),
                   .end_day = std::min(end + first - wanted, newest)};
}

DayWindow BarWindow(int time_period, int end_day, const MarketCalendar& calendar) {
  const int newest = calendar.MaxNumDays;
  const TimePeriod& period = TimePeriodAt(time_period);
  if (newest < 1) return {.first_day = 1, .end_day = 0};
  if (period.market_days == 0) return {.first_day = 1, .end_day = newest};
  const int end = std::clamp(end_day, 1, newest);
  const int wanted = std::max(end - period.market_days, 1);
  const DateSerial target = MonthsBefore(calendar.DateOf(end), period.months);
  return {.first_day = AlignedDay(wanted, 1, target, calendar), .end_day = end};
}

}  // namespace vistaplot
