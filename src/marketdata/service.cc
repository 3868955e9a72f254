#include "marketdata/service.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstddef>
#include <string>
#include <utility>

#include "base/text.h"
#include "quoteline/quoteline.h"

namespace vistaplot {

namespace {

constexpr std::string_view kOpenFailed = "Unable to open Quoteline DLL";

/// A buffer for a text of the service: blanks, and room for a terminator whatever size it named.
std::string BlankBuffer(std::int32_t size) {
  return std::string(static_cast<std::size_t>(std::max(size, 0)) + 1, ' ');
}

}  // namespace

bool OpenQuoteline(QuotelineApi& api, MarketData& market, Dialogs& dialogs) {
  market.LastStatus = api.QLopen();
  if (market.LastStatus == QL_BAD_SYMBOLS) {
    market.LastStatus = api.QLrebuildSymbols();
  }
  ReportQuotelineError(market.LastStatus, kOpenFailed, true, dialogs);
  return market.LastStatus >= 0;
}

void ReadQuotelineDir(QuotelineApi& api, MarketData& market, Dialogs& dialogs) {
  std::string buffer = BlankBuffer(api.QLgetPathSize());
  market.LastStatus = api.QLgetQLDir(buffer.data());
  ReportQuotelineError(market.LastStatus, "Unable to get Quoteline directory", false, dialogs);
  std::string_view text = TrimBlanks(buffer);
  if (!text.empty()) {
    text.remove_suffix(1);  // the terminator that the service writes behind the path
  }
  market.QuotelineDir = text;
}

std::string ServiceSymbol(std::string_view symbol) {
  return Windows1252FromUtf8(TrimBlanks(symbol));
}

std::string BufferText(std::string_view buffer) {
  return Utf8FromWindows1252(TrimRightBlanks(buffer.substr(0, buffer.find('\0'))));
}

std::string IssueName(QuotelineApi& api, MarketData& market, std::string_view symbol) {
  std::string buffer = BlankBuffer(api.QLgetNameSize());
  market.LastStatus = api.QLgetIssueName(ServiceSymbol(symbol).c_str(), buffer.data());
  return BufferText(buffer);
}

void PrepareHistories(QuotelineApi& api, MarketData& market, Dialogs& dialogs) {
  LoadMarketCalendar(api, market, dialogs);
  market.PriceBuffer.assign(static_cast<std::size_t>(market.calendar.MaxNumDays) + 1, kNoPrice);
}

IssueHistory FetchHistory(QuotelineApi& api,
                          MarketData& market,
                          std::string_view symbol,
                          std::span<float> prices) {
  assert(prices.size() > static_cast<std::size_t>(market.calendar.MaxNumDays));
  const std::string name = ServiceSymbol(symbol);
  std::fill(prices.begin(), prices.end(), kNoPrice);
  IssueHistory history;
  history.status = api.QLgetIssue(name.c_str(), prices.data());
  market.LastStatus = history.status;
  history.start_day = api.QLgetStartDateBySym(name.c_str());
  return history;
}

int FetchHistoryOrReport(QuotelineApi& api,
                         MarketData& market,
                         std::string_view symbol,
                         std::span<float> prices,
                         Dialogs& dialogs) {
  const IssueHistory history = FetchHistory(api, market, symbol, prices);
  const std::string trimmed(TrimBlanks(symbol));
  ReportQuotelineError(history.status, "Unable to get prices for " + trimmed, false, dialogs);
  int start = history.start_day;
  if (start <= 0) {
    dialogs.Say("Unable to get start date for " + trimmed + "\rusing 1");
    start = 1;
  }
  start = std::clamp(start, 1, std::max(static_cast<int>(prices.size()) - 1, 1));
  std::fill_n(prices.begin(), std::min(prices.size(), static_cast<std::size_t>(start)), kNoPrice);
  return start;
}

namespace {

constexpr std::array<std::pair<std::int32_t, std::string_view>, 10> kTexts{{
    {QL_NO_DATABASE, "unable to open database file"},
    {QL_DATABASE_CORRUPT, "database file corrupt"},
    {QL_BAD_INI, "bad INI file"},
    {QL_BAD_SYMBOLS, "bad symbols file"},
    {QL_NO_SUCH_ISSUE, "no such issue"},
    {QL_ISSUE_CORRUPT, "issue corrupt"},
    {QL_SYMBOLS_MISMATCH, "symbols file-database mismatch"},
    {QL_OUT_OF_BOUNDS, "index out of bounds"},
    {QL_GENERAL_FAILURE, "general failure"},
    {QL_SYSTEM_FAILURE, "system failure"},
}};

}  // namespace

std::string_view QuotelineErrorText(std::int32_t status) {
  for (const auto& [code, text] : kTexts) {
    if (code == status) {
      return text;
    }
  }
  return {};
}

void ReportQuotelineError(std::int32_t status,
                          std::string_view message,
                          bool fatal,
                          Dialogs& dialogs) {
  if (status >= 0) {
    return;
  }
  std::string text(message);
  text += '\r';
  text += QuotelineErrorText(status);
  text += "\r(error " + std::to_string(status) + ")";
  dialogs.ShowMessage({.text = std::move(text), .title = "Error", .buttons = Buttons::kOk});
  if (fatal) {
    dialogs.EndProgram(true);
  }
}

}  // namespace vistaplot
