#include "marketdata/market_data.h"

#include <algorithm>
#include <string_view>

#include "base/number_text.h"
#include "base/result.h"
#include "marketdata/service.h"

namespace vistaplot {
namespace {

/// A count of days as it is kept: 16 bits, 0 for a failure. Too many are reported and count as
/// none, because day numbers beyond 16 bits could not be kept either.
std::int16_t TakeCount(std::int32_t status,
                       std::string_view message,
                       MarketData& market,
                       Dialogs& dialogs) {
  market.LastStatus = status;
  ReportQuotelineError(status, message, false, dialogs);
  const Result<std::int16_t> count = ToInt16(std::max(status, 0));
  if (!count) {
    dialogs.Say("error: " + NumberedText(count.Error()));
    return 0;
  }
  return count.Value();
}

}  // namespace

void LoadMarketCalendar(QuotelineApi& api, MarketData& market, Dialogs& dialogs) {
  MarketCalendar& calendar = market.calendar;
  calendar.MaxDays = TakeCount(api.QLgetMaxDays(), "Unable to get max days", market, dialogs);
  calendar.MaxNumDays =
      TakeCount(api.QLgetMaxNumDays(), "Unable to get max num days", market, dialogs);
  // Days without a date cannot be shown: they come from a service that broke between the two calls.
  calendar.MaxNumDays = std::min(calendar.MaxNumDays, calendar.MaxDays);
  calendar.DayDates.assign(static_cast<std::size_t>(calendar.MaxDays) + 1, 0);
  for (int day = 1; day <= calendar.MaxDays; ++day) {
    const DateSerial serial = api.QLgetJulian(day);
    calendar.DayDates[static_cast<std::size_t>(day)] = serial;
    if (serial < 0) {
      ReportQuotelineError(
          serial, "Unable to get Julian day " + std::to_string(day), false, dialogs);
    }
  }
}

}  // namespace vistaplot
