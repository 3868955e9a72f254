// What a signal test works on: two funds, the counts of the signal files and the calendar.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/result.h"
#include "calc/signal_test.h"
#include "marketdata/market_data.h"
#include "marketdata/quoteline_library.h"

namespace vistaplot {

/// Owns what SignalMarket looks at; element i is market day i + 1.
struct SignalData {
  std::vector<double> in_prices;
  std::vector<double> out_prices;
  std::vector<int> counts;
  std::vector<DateSerial> dates;

  SignalMarket Market() const { return {in_prices, out_prices, counts, dates}; }
};

/// Reads the signal files of the host's `paths`, then the two funds, over the calendar as it was
/// loaded last. Prices are the numbers that a cell's text of at most seven digits has, -1 where
/// there is none; a fund that the service does not know has none at all. The error of the first
/// signal file that cannot be read has its path as subject.
Result<SignalData> ReadSignalData(QuotelineApi& api,
                                  MarketData& market,
                                  const std::string& in_fund,
                                  const std::string& out_fund,
                                  std::span<const std::string> paths);

/// What went wrong in the arithmetic of a case: error 11 where a fund was entered at a price of 0,
/// 6 where a value is too large, 5 where a negative value has no root; the subject says when.
std::optional<RuntimeError> FaultOf(const CaseWalk& walk,
                                    const SignalMarket& market,
                                    const SignalTest& test);

}  // namespace vistaplot
