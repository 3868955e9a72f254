// Calendar dates as serial numbers: 0 is 30 December 1899, one a day, no time and no time zone.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vistaplot {

using DateSerial = std::int32_t;

struct CivilDate {
  int year = 1899;
  int month = 12;  ///< 1 to 12
  int day = 30;    ///< 1 to 31
};

/// How a date is written; the enumerator's name lists its parts in order.
enum class DatePattern {
  kMonthDayLongYear,   ///< "mm/dd/yyyy": 01/05/1990
  kMonthDayShortYear,  ///< "mm/dd/yy": 01/05/90
  kBareShortYear,      ///< "m/d/yy": 1/5/90
  kYearMonthDay,       ///< "yyyy/mm/dd": 1990/01/05, sorts as text
  kCompact,            ///< "yyyymmdd": 19900105, sorts as text
  kIso                 ///< "yyyy-mm-dd": 1990-01-05
};

DateSerial SerialFromDate(const CivilDate& date);
CivilDate DateFromSerial(DateSerial serial);

/// True for a day that the (proleptic Gregorian) calendar has; years 100 to 9999.
bool IsValidDate(const CivilDate& date);

/// The date's text in one of the patterns.
std::string DateText(DateSerial serial, DatePattern pattern);
void AppendDateText(std::string& text, DateSerial serial, DatePattern pattern);

/// A date as a user or a file writes it: month/day/year with one or two digits for month and day
/// and a year of two (30 to 99 are 19xx, 00 to 29 are 20xx) or four digits, or yyyy-mm-dd or
/// yyyy/mm/dd. "/" and "-" count alike; blanks around are dropped. Nothing when it is no date.
std::optional<DateSerial> ParseDate(std::string_view text);

/// A date as a person types it into a box: all that ParseDate takes, and dates with an English
/// month's name or its first letters, at least three ("Dec 24, 1999", "24-Dec-1999",
/// "24 December 99"), and dates with points, which have the day first ("24.12.1999"). Nothing when
/// it is no date.
std::optional<DateSerial> ParseTypedDate(std::string_view text);

/// Months earlier: the same day of that month, or its last day where the month is shorter
/// (31 March less one month is 28 or 29 February). A year is 12 months.
DateSerial MonthsBefore(DateSerial serial, int months);

enum class Weekday { kSunday, kMonday, kTuesday, kWednesday, kThursday, kFriday, kSaturday };
Weekday WeekdayOf(DateSerial serial);

}  // namespace vistaplot
