#include "marketdata/market_calendar.h"

#include <algorithm>
#include <iterator>

#include "base/date.h"

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

namespace {

/// The first day of 1 to `days` whose "yyyy/mm/dd" does not sort below `text`; `days` + 1 when all
/// do.
int FirstDayNotBefore(std::string_view text, const MarketCalendar& calendar, int days) {
  int low = 1;
  int high = days + 1;
  while (low < high) {
    const int middle = low + (high - low) / 2;
    if (DateText(calendar.DateOf(middle), DatePattern::kYearMonthDay) < text) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low;
}

}  // namespace

std::optional<DateEntry> SnapDateEntry(std::string_view typed, const MarketCalendar& calendar) {
  const int days = std::min<int>(calendar.MaxNumDays, calendar.MaxDays);
  if (days < 1) {
    return std::nullopt;
  }
  const std::optional<DateSerial> date = ParseTypedDate(typed);
  const std::string text = date ? DateText(*date, DatePattern::kYearMonthDay) : std::string(typed);
  DateEntry entry;
  entry.is_date = date.has_value();
  entry.day = std::min(FirstDayNotBefore(text, calendar, days), days);
  const DateSerial serial = calendar.DateOf(entry.day);
  entry.exact = date == serial;
  entry.text = entry.exact ? std::string(typed) : DateText(serial, DatePattern::kMonthDayLongYear);
  return entry;
}

}  // namespace vistaplot
