// What the program holds of the market-data service: the last status, the calendar, the history
// fetched last and the service's directory.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/dialogs.h"
#include "marketdata/market_calendar.h"
#include "marketdata/quoteline_library.h"

namespace vistaplot {

/// The price of a day on which an issue has none.
inline constexpr float kNoPrice = -1.0F;

struct MarketData {
  std::int32_t LastStatus = 0;
  MarketCalendar calendar;
  std::vector<float> PriceBuffer;  ///< price of market day d at index d; element 0 unused
  std::string QuotelineDir;        ///< the service's directory, no separator at its end
};

/// Reads MaxDays, MaxNumDays and DayDates anew. Failures are reported and do not stop it: a
/// negative count leaves an empty calendar.
void LoadMarketCalendar(QuotelineApi& api, MarketData& market, Dialogs& dialogs);

}  // namespace vistaplot
