#include "calc/signal_data.h"

#include <algorithm>
#include <cmath>

#include "base/number_text.h"
#include "calc/signal_counts.h"
#include "marketdata/service.h"

namespace vistaplot {
namespace {

constexpr int kErrorInvalidCall = 5;

std::vector<double> ReadPrices(QuotelineApi& api, MarketData& market, const std::string& symbol) {
  std::vector<float>& buffer = market.PriceBuffer;
  buffer.resize(static_cast<std::size_t>(std::max<int>(market.calendar.MaxNumDays, 0)) + 1);
  const IssueHistory history = FetchHistory(api, market, symbol, buffer);
  const auto days = static_cast<int>(buffer.size()) - 1;
  const int without_price = history.start_day > 0 ? std::min(history.start_day - 1, days) : days;
  std::vector<double> prices(buffer.size() - 1);
  std::transform(buffer.begin() + 1, buffer.end(), prices.begin(), SevenDigitValue);
  std::fill_n(prices.begin(), without_price, static_cast<double>(kNoPrice));
  return prices;
}

/// The first day of the test on which a fund has the price 0; 0 when there is none.
int DayOfZeroPrice(const SignalMarket& market, const SignalTest& test) {
  for (int day = test.start_day; day <= test.end_day; ++day) {
    if (market.InPrice(day) == 0.0 || market.OutPrice(day) == 0.0) {
      return day;
    }
  }
  return 0;
}

}  // namespace

Result<SignalData> ReadSignalData(QuotelineApi& api,
                                  MarketData& market,
                                  const std::string& in_fund,
                                  const std::string& out_fund,
                                  std::span<const std::string> paths) {
  const MarketCalendar& calendar = market.calendar;
  Result<std::vector<int>> counts = CountSignalFiles(paths, calendar);
  if (!counts) {
    return counts.Error();
  }
  SignalData data;
  data.counts = std::move(counts.Value());
  data.in_prices = ReadPrices(api, market, in_fund);
  data.out_prices = ReadPrices(api, market, out_fund);
  for (int day = 1; day <= calendar.MaxNumDays; ++day) {
    data.dates.push_back(calendar.DateOf(day));
  }
  return data;
}

std::optional<RuntimeError> FaultOf(const CaseWalk& walk,
                                    const SignalMarket& market,
                                    const SignalTest& test) {
  if (std::isfinite(walk.equity) && walk.equity >= 0.0F) {
    return std::nullopt;
  }
  const auto on = [&market](int day) {
    return "on " + DateText(market.DateOf(day), DatePattern::kMonthDayLongYear);
  };
  if (std::isfinite(walk.equity)) {
    return RuntimeError{kErrorInvalidCall, "Invalid procedure call or argument", on(test.end_day)};
  }
  const int zero_day = DayOfZeroPrice(market, test);
  return zero_day > 0 ? MakeError(kErrorDivisionByZero, on(zero_day))
                      : MakeError(kErrorOverflow, on(test.end_day));
}

}  // namespace vistaplot
