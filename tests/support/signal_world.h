// A market for signal tests, made of a few vectors.
#pragma once

#include <initializer_list>
#include <utility>
#include <vector>

#include "calc/signal_test.h"

namespace vistaplot::test {

struct SignalWorld {
  std::vector<double> in;
  std::vector<double> out;
  std::vector<int> counts;
  std::vector<DateSerial> dates;  ///< a day apart unless set

  SignalWorld(std::vector<double> in_prices, std::vector<double> out_prices, std::vector<int> count)
      : in(std::move(in_prices)), out(std::move(out_prices)), counts(std::move(count)) {
    for (std::size_t i = 0; i < counts.size(); ++i) {
      dates.push_back(33000 + static_cast<DateSerial>(i));
    }
  }

  SignalMarket Market() const { return {in, out, counts, dates}; }

  /// All days, one-dimensional, a delay of 1.
  SignalTest AllDays() const {
    return {.start_day = 1, .end_day = static_cast<int>(counts.size()), .delay = 1};
  }
};

}  // namespace vistaplot::test
