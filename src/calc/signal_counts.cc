#include "calc/signal_counts.h"

#include <algorithm>
#include <cstddef>

#include "base/files.h"

namespace vistaplot {
namespace {

constexpr int kYearsWrittenAlike = 100;

}  // namespace

SignalCounter::SignalCounter(const MarketCalendar& calendar)
    : calendar_(calendar),
      days_(std::max<int>(calendar.MaxNumDays, 0)),
      changes_(static_cast<std::size_t>(days_) + 1) {
  for (int day = 1; day <= days_; ++day) {
    const auto upto = static_cast<std::size_t>(calendar.DateOf(day) - calendar.DateOf(1)) + 1;
    day_on_or_after_.resize(std::max(upto, day_on_or_after_.size()), day);
  }
}

void SignalCounter::Add(std::span<const Signal> signals) {
  if (signals.size() < 2) {
    return;
  }
  bool is_in = signals[0].is_in;
  int from_day = 1;
  for (const Signal& signal : signals.subspan(1)) {
    const int day = DayOf(signal.date, from_day);
    if (day > days_) {
      continue;
    }
    AddStretch(is_in, from_day, day);
    is_in = signal.is_in;
    from_day = day;
  }
  AddStretch(is_in, from_day, days_ + 1);
}

std::vector<int> SignalCounter::Counts() const {
  std::vector<int> counts(static_cast<std::size_t>(days_));
  int count = 0;
  for (std::size_t i = 0; i < counts.size(); ++i) {
    count += changes_[i];
    counts[i] = count;
  }
  return counts;
}

int SignalCounter::DayOf(DateSerial date, int in_force_day) const {
  const int next = DayOnOrAfter(date);
  const bool is_short = calendar_.DateOf(days_) - calendar_.DateOf(1) < 365 * kYearsWrittenAlike;
  if (is_short && next <= days_ && calendar_.DateOf(next) == date) {
    return std::max(next, in_force_day);
  }
  const int alike = DayWrittenAlike(date, in_force_day);
  return alike <= days_ ? alike : std::max(next, in_force_day);
}

/// The first market day from `in_force_day` on that is `date`, or centuries away from it; the day
/// behind the last one when there is none.
int SignalCounter::DayWrittenAlike(DateSerial date, int in_force_day) const {
  CivilDate civil = DateFromSerial(date);
  const int first_year = DateFromSerial(calendar_.DateOf(in_force_day)).year;
  const int last_year = DateFromSerial(calendar_.DateOf(days_)).year;
  const int ahead = (civil.year - first_year) % kYearsWrittenAlike;
  civil.year = first_year + (ahead < 0 ? ahead + kYearsWrittenAlike : ahead);
  for (; civil.year <= last_year; civil.year += kYearsWrittenAlike) {
    if (!IsValidDate(civil)) {
      continue;
    }
    const DateSerial serial = SerialFromDate(civil);
    const int day = DayOnOrAfter(serial);
    if (day >= in_force_day && calendar_.DateOf(day) == serial) {
      return day;
    }
  }
  return days_ + 1;
}

int SignalCounter::DayOnOrAfter(DateSerial date) const {
  const DateSerial since_first = date - calendar_.DateOf(1);
  if (since_first < 0) {
    return 1;
  }
  const auto index = static_cast<std::size_t>(since_first);
  return index < day_on_or_after_.size() ? day_on_or_after_[index] : days_ + 1;
}

void SignalCounter::AddStretch(bool is_in, int from_day, int before_day) {
  if (is_in) {
    ++changes_[static_cast<std::size_t>(from_day - 1)];
    --changes_[static_cast<std::size_t>(before_day - 1)];
  }
}

Result<std::vector<int>> CountSignalFiles(std::span<const std::string> paths,
                                          const MarketCalendar& calendar) {
  SignalCounter counter(calendar);
  for (const std::string& path : paths) {
    const Result<std::string> bytes = ReadWholeFile(path);
    if (!bytes) {
      return bytes.Error();
    }
    counter.Add(ParseSignalFile(bytes.Value()).signals);
  }
  return counter.Counts();
}

}  // namespace vistaplot
