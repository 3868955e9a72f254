// Price histories for tests of indicators.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "analytics/chart_prices.h"

namespace vistaplot::test {

/// Prices that a ChartPrices may look at while this lives.
struct PriceHistory {
  std::vector<float> prices;
  int history = 0;

  ChartPrices Chart() const { return {.values = prices, .history = history}; }
};

/// A walk from 40.00 in cents that any program can repeat: x = (1103515245 x + 12345) mod 2^31 from
/// 12345 on, and a step of (x / 65536) mod 201 - 100 cents a day.
inline std::vector<float> CentWalk(int days) {
  std::vector<float> prices;
  std::uint64_t x = 12345;
  int cents = 4000;
  for (int day = 0; day < days; ++day) {
    x = (x * 1103515245 + 12345) % (std::uint64_t{1} << 31U);
    cents += static_cast<int>((x >> 16U) % 201) - 100;
    prices.push_back(static_cast<float>(static_cast<double>(cents) / 100.0));
  }
  return prices;
}

/// 260 days of it, 159 of them history, that the expected values of several tests belong to.
inline PriceHistory HundredDays() {
  return {.prices = CentWalk(260), .history = 159};
}

}  // namespace vistaplot::test
