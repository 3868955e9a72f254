// How many signal files are in the market, day by day.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/result.h"
#include "formats/signal_file.h"
#include "marketdata/market_calendar.h"

namespace vistaplot {

/// Counts the files whose signal in force is "in the market", file after file.
///
/// A file's first signal holds from day 1, whatever its date; each later one from its own day until
/// the day of the next, the last one to the last day. A file of one signal says nothing. A date
/// stands for the first market day from the signal in force on that is written like it, with two or
/// four digits of the year; where there is none, for the next market day, but never for one before
/// the signal in force. A date after the last day has no effect.
class SignalCounter {
 public:
  /// Days 1 to MaxNumDays of `calendar`, which outlives the counter.
  explicit SignalCounter(const MarketCalendar& calendar);

  /// Adds one file's signals, in the order of its lines.
  void Add(std::span<const Signal> signals);

  /// The counts so far; element i is market day i + 1.
  std::vector<int> Counts() const;

 private:
  int DayOf(DateSerial date, int in_force_day) const;
  int DayWrittenAlike(DateSerial date, int in_force_day) const;
  int DayOnOrAfter(DateSerial date) const;
  void AddStretch(bool is_in, int from_day, int before_day);

  const MarketCalendar& calendar_;
  int days_;
  std::vector<int> day_on_or_after_;  ///< by days since the calendar's first date
  std::vector<int> changes_;          ///< count of day i + 1 less that of day i
};

/// Reads the signal files of the host's `paths` and counts them. The error of the first one that
/// cannot be read has its path as subject.
Result<std::vector<int>> CountSignalFiles(std::span<const std::string> paths,
                                          const MarketCalendar& calendar);

}  // namespace vistaplot
