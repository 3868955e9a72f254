#include "analytics/candles.h"

#include <cstddef>

namespace vistaplot {
namespace {

/// The bar of a week that may not have begun.
struct RunningBar {
  Candle candle;
  bool started = false;

  void Take(float value) {
    if (!started) candle.open = value;
    started = true;
    if (value > candle.high) candle.high = value;
    if (value < candle.low || candle.low == 0.0F) candle.low = value;
    candle.close = value;
  }
};

}  // namespace

std::vector<std::int16_t> ComputeWeekEndFlags(std::span<const DateSerial> dates) {
  std::vector<std::int16_t> flags(dates.size(), 0);
  for (std::size_t d = 0; d < dates.size(); ++d) {
    const Weekday weekday = WeekdayOf(dates[d]);
    const bool has_next = d + 1 < dates.size();
    const bool closes =
        weekday == Weekday::kFriday ||
        (weekday == Weekday::kThursday && has_next && WeekdayOf(dates[d + 1]) != Weekday::kFriday);
    flags[d] = closes ? 1 : 0;
  }
  return flags;
}

WeeklyCandles ComputeWeeklyCandles(std::span<const float> prices,
                                   std::span<const std::int16_t> week_ends) {
  WeeklyCandles candles;
  RunningBar bar;
  for (std::size_t i = 0; i < prices.size(); ++i) {
    const float price = prices[i];
    if (price > 0.0F) {
      if (!(candles.base > 0.0F)) candles.base = price;
      bar.Take(price / candles.base);
    }
    if (week_ends[i] == 0) continue;
    bar.candle.day = static_cast<int>(i);
    if (bar.started) candles.bars.push_back(bar.candle);
    bar = {};
  }
  return candles;
}

}  // namespace vistaplot
