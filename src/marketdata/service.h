// Start of the work with the market-data service, and the texts that it writes into buffers.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/dialogs.h"
#include "marketdata/market_data.h"
#include "marketdata/quoteline_library.h"

namespace vistaplot {

/// Opens the service; a bad symbols file is rebuilt once. Its status is in LastStatus afterwards. A
/// failure is reported and ends the program: false, the caller returns at once.
[[nodiscard]] bool OpenQuoteline(QuotelineApi& api, MarketData& market, Dialogs& dialogs);

/// Fills QuotelineDir with the service's directory, byte for byte as the service names it, without
/// the terminator. A failure is reported and leaves it empty.
void ReadQuotelineDir(QuotelineApi& api, MarketData& market, Dialogs& dialogs);

/// `symbol` as the service wants it: Windows-1252 without blanks around.
std::string ServiceSymbol(std::string_view symbol);

/// What the service wrote into a buffer, in UTF-8: up to its terminator, without the blanks behind.
std::string BufferText(std::string_view buffer);

/// The name of an issue in UTF-8, without the blanks behind it; empty when the service gives none.
/// The status is kept in LastStatus.
std::string IssueName(QuotelineApi& api, MarketData& market, std::string_view symbol);

/// Reads the calendar anew (see LoadMarketCalendar) and makes PriceBuffer as long as it wants.
void PrepareHistories(QuotelineApi& api, MarketData& market, Dialogs& dialogs);

/// The history of one issue.
struct IssueHistory {
  std::int32_t status = 0;     ///< of QLgetIssue; also in LastStatus
  std::int32_t start_day = 0;  ///< first market day with a price; 0 or less when unknown
};

/// Fetches a history into `prices` (index = market day, element 0 unused), which must hold
/// MaxNumDays + 1 elements. Every element is kNoPrice before the fetch, so that days that the
/// service does not fill have no price.
IssueHistory FetchHistory(QuotelineApi& api,
                          MarketData& market,
                          std::string_view symbol,
                          std::span<float> prices);

/// FetchHistory for calculations that need a start day. A failed fetch is reported with "Unable to
/// get prices for <symbol>"; an unknown start day with "Unable to get start date for <symbol>", and
/// becomes day 1. The result lies within 1 and the number of days that `prices` holds.
int FetchHistoryOrReport(QuotelineApi& api,
                         MarketData& market,
                         std::string_view symbol,
                         std::span<float> prices,
                         Dialogs& dialogs);

// The service's status codes as texts, and the box that reports them.

/// The text of a status code; empty for a code that has none.
std::string_view QuotelineErrorText(std::int32_t status);

/// Nothing when `status` is 0 or positive. Else a box titled "Error" of three parts with a carriage
/// return between them: `message`, the code's text, "(error <status>)". When `fatal`, the program
/// ends after the box: callers return at once.
void ReportQuotelineError(std::int32_t status,
                          std::string_view message,
                          bool fatal,
                          Dialogs& dialogs);

}  // namespace vistaplot
