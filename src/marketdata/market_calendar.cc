#include "marketdata/market_calendar.h"

#include <algorithm>
#include <iterator>

namespace vistaplot {

int MarketDayOnOrBefore(const MarketCalendar& calendar, DateSerial serial) {
  if (calendar.DayDates.empty()) {
    return 0;
  }
  const auto first = calendar.DayDates.begin() + 1;
  return static_cast<int>(
      std::distance(first, std::upper_bound(first, calendar.DayDates.end(), serial)));
}

int MarketDayOf(const MarketCalendar& calendar, DateSerial serial) {
  const int day = MarketDayOnOrBefore(calendar, serial);
  return day > 0 && calendar.DateOf(day) == serial ? day : 0;
}

}  // namespace vistaplot
