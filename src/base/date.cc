#include "base/date.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <vector>

#include "base/text.h"

namespace vistaplot {

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

constexpr year_month_day YearMonthDay(const CivilDate& date) {
  return {std::chrono::year(date.year),
          std::chrono::month(static_cast<unsigned>(date.month)),
          std::chrono::day(static_cast<unsigned>(date.day))};
}

constexpr sys_days kOrigin = sys_days(YearMonthDay({.year = 1899, .month = 12, .day = 30}));

constexpr DateSerial SerialOf(sys_days day) {
  return static_cast<DateSerial>((day - kOrigin).count());
}

constexpr DateSerial kFirstSerial =
    SerialOf(YearMonthDay({.year = kFirstYear, .month = 1, .day = 1}));
constexpr DateSerial kLastSerial =
    SerialOf(YearMonthDay({.year = kLastYear, .month = 12, .day = 31}));

void AppendPadded(std::string& text, int number, int width) {
  std::array<char, 4> digits{};
  for (int i = width; i-- > 0; number /= 10) {
    digits[static_cast<std::size_t>(i)] = static_cast<char>('0' + number % 10);
  }
  text.append(digits.data(), static_cast<std::size_t>(width));
}

void AppendBare(std::string& text, int number) {
  AppendPadded(text, number, number < 10 ? 1 : 2);
}

void AppendYearFirst(std::string& text, const CivilDate& date, std::string_view separator) {
  AppendPadded(text, date.year, 4);
  text += separator;
  AppendPadded(text, date.month, 2);
  text += separator;
  AppendPadded(text, date.day, 2);
}

void AppendMonthFirst(std::string& text, const CivilDate& date, int year_digits) {
  AppendPadded(text, date.month, 2);
  text += '/';
  AppendPadded(text, date.day, 2);
  text += '/';
  AppendPadded(text, date.year, year_digits);
}

// The number of a text of one to four digits; -1 for anything else.
int SmallNumber(std::string_view text) {
  if (text.empty() || text.size() > 4) return -1;
  int number = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return -1;
    number = number * 10 + (c - '0');
  }
  return number;
}

int FullYear(int two_digits) {
  return two_digits >= 30 ? 1900 + two_digits : 2000 + two_digits;
}

struct DateParts {
  std::string_view year;
  std::string_view month;
  std::string_view day;
};

// The three parts of a text with two separators; nothing when there are not exactly two.
std::optional<DateParts> SplitDate(std::string_view text) {
  const std::size_t first = text.find_first_of("/-");
  if (first == std::string_view::npos) return std::nullopt;
  const std::size_t second = text.find_first_of("/-", first + 1);
  if (second == std::string_view::npos) return std::nullopt;
  const auto a = text.substr(0, first);
  const auto b = text.substr(first + 1, second - first - 1);
  const auto c = text.substr(second + 1);
  if (a.size() == 4) return DateParts{.year = a, .month = b, .day = c};
  return DateParts{.year = c, .month = a, .day = b};
}

// The date of parts in digits; a year of two digits is of this or the last century.
std::optional<DateSerial> DateOfParts(const DateParts& parts, int month) {
  if (parts.day.size() > 2) return std::nullopt;
  const int year = SmallNumber(parts.year);
  CivilDate date{.year = year, .month = month, .day = SmallNumber(parts.day)};
  if (parts.year.size() == 2 && year >= 0) {
    date.year = FullYear(year);
  } else if (parts.year.size() != 4) {
    return std::nullopt;
  }
  if (!IsValidDate(date)) return std::nullopt;
  return SerialFromDate(date);
}

// 1 to 12 for an English month's name or its beginning, three letters at least; else 0.
int MonthOfName(std::string_view text) {
  constexpr std::array<std::string_view, 12> kMonths = {"January",
                                                        "February",
                                                        "March",
                                                        "April",
                                                        "May",
                                                        "June",
                                                        "July",
                                                        "August",
                                                        "September",
                                                        "October",
                                                        "November",
                                                        "December"};
  if (text.size() < 3) return 0;
  for (std::size_t i = 0; i < kMonths.size(); ++i) {
    if (StartsWithIgnoringCase(kMonths[i], text)) return static_cast<int>(i) + 1;
  }
  return 0;
}

// The parts between blanks and the signs that part dates.
std::vector<std::string_view> DateWords(std::string_view text) {
  constexpr std::string_view kBetween = " \t,./-";
  std::vector<std::string_view> words;
  std::size_t at = text.find_first_not_of(kBetween);
  while (at != std::string_view::npos) {
    const std::size_t end = std::min(text.find_first_of(kBetween, at), text.size());
    words.push_back(text.substr(at, end - at));
    at = text.find_first_not_of(kBetween, end);
  }
  return words;
}

// A name among three words leaves day and year: the year has four digits or comes last.
std::optional<DateSerial> DateWithMonthName(const std::vector<std::string_view>& words) {
  for (std::size_t name = 0; name < words.size(); ++name) {
    const int month = MonthOfName(words[name]);
    if (month == 0) continue;
    const std::string_view first = words[name == 0 ? 1 : 0];
    const std::string_view second = words[name == 2 ? 1 : 2];
    const bool year_first = first.size() == 4;
    return DateOfParts({.year = year_first ? first : second,
                        .month = words[name],
                        .day = year_first ? second : first},
                       month);
  }
  return std::nullopt;
}

}  // namespace

DateSerial SerialFromDate(const CivilDate& date) {
  return SerialOf(YearMonthDay(date));
}

CivilDate DateFromSerial(DateSerial serial) {
  const year_month_day date(kOrigin + days(std::clamp(serial, kFirstSerial, kLastSerial)));
  return {.year = static_cast<int>(date.year()),
          .month = static_cast<int>(static_cast<unsigned>(date.month())),
          .day = static_cast<int>(static_cast<unsigned>(date.day()))};
}

bool IsValidDate(const CivilDate& date) {
  if (date.year < kFirstYear || date.year > kLastYear) return false;
  if (date.month < 1 || date.month > 12 || date.day < 1 || date.day > 31) return false;
  return YearMonthDay(date).ok();
}

std::string DateText(DateSerial serial, DatePattern pattern) {
  std::string text;
  AppendDateText(text, serial, pattern);
  return text;
}

void AppendDateText(std::string& text, DateSerial serial, DatePattern pattern) {
  const CivilDate date = DateFromSerial(serial);
  switch (pattern) {
    case DatePattern::kMonthDayLongYear:
      return AppendMonthFirst(text, date, 4);
    case DatePattern::kMonthDayShortYear:
      return AppendMonthFirst(text, date, 2);
    case DatePattern::kBareShortYear:
      AppendBare(text, date.month);
      text += '/';
      AppendBare(text, date.day);
      text += '/';
      return AppendPadded(text, date.year, 2);
    case DatePattern::kYearMonthDay:
      return AppendYearFirst(text, date, "/");
    case DatePattern::kCompact:
      return AppendYearFirst(text, date, "");
    case DatePattern::kIso:
      return AppendYearFirst(text, date, "-");
  }
}

std::optional<DateSerial> ParseDate(std::string_view text) {
  const auto parts = SplitDate(TrimWhite(text));
  if (!parts || parts->month.size() > 2) return std::nullopt;
  return DateOfParts(*parts, SmallNumber(parts->month));
}

std::optional<DateSerial> ParseTypedDate(std::string_view text) {
  if (const auto date = ParseDate(text)) return date;
  const std::vector<std::string_view> words = DateWords(text);
  if (words.size() != 3) return std::nullopt;
  if (const auto date = DateWithMonthName(words)) return date;
  const bool has_points = text.find('.') != std::string_view::npos;
  if (!has_points || text.find_first_of("/-,") != std::string_view::npos) return std::nullopt;
  if (words[1].size() > 2) return std::nullopt;
  const bool year_first = words[0].size() == 4;
  return DateOfParts(
      {.year = words[year_first ? 0 : 2], .month = words[1], .day = words[year_first ? 2 : 0]},
      SmallNumber(words[1]));
}

DateSerial MonthsBefore(DateSerial serial, int months) {
  const CivilDate date = DateFromSerial(serial);
  const std::int64_t index = std::int64_t{date.year} * 12 + date.month - 1 - months;
  const std::int64_t least = std::int64_t{kFirstYear} * 12;
  const std::int64_t most = std::int64_t{kLastYear} * 12 + 11;
  const auto month_index = static_cast<int>(std::clamp(index, least, most));
  const auto month = std::chrono::year(month_index / 12) /
                     std::chrono::month(static_cast<unsigned>(month_index % 12 + 1));
  const auto last_day = static_cast<unsigned>((month / std::chrono::last).day());
  const auto day = std::min(static_cast<unsigned>(date.day), last_day);
  return SerialOf(month / std::chrono::day(day));
}

Weekday WeekdayOf(DateSerial serial) {
  // Serial 0, 30 December 1899, was a Saturday.
  const int since_saturday = (serial % 7 + 7) % 7;
  return static_cast<Weekday>((since_saturday + 6) % 7);
}

}  // namespace vistaplot
