#include "import/family_records.h"

#include "base/text.h"
#include "marketdata/service.h"

namespace vistaplot {
namespace {

constexpr std::size_t kSymbolWidth = 5;
constexpr std::size_t kNameWidth = 40;
constexpr int kIssuesPerMeterStep = 64;  // a repaint costs more than reading an issue

}  // namespace

void FamilyRecords::Resize(int count, int days) {
  count_ = count;
  days_ = days;
  stride_ = RowLength();
  const auto records = static_cast<std::size_t>(count);
  symbols_.assign(records, {});
  names_.assign(records, {});
  prices_.resize(records * stride_);
}

bool FitsFamilyRecords(const MarketCalendar& calendar, Dialogs& dialogs) {
  if (calendar.MaxNumDays <= kMaxFamilyDays) {
    return true;
  }
  dialogs.Say("The market-data service holds " + std::to_string(calendar.MaxNumDays) +
              " days; family calculations use at most " + std::to_string(kMaxFamilyDays));
  return false;
}

void FillFamilyRecords(QuotelineApi& api,
                       MarketData& market,
                       std::span<const std::string> symbols,
                       FamilyRecords& records,
                       Dialogs& dialogs,
                       Progress& progress) {
  const int count = static_cast<int>(symbols.size());
  records.Resize(count, market.calendar.MaxNumDays);
  for (int k = 1; k <= count; ++k) {
    const std::string& symbol = symbols[static_cast<std::size_t>(k - 1)];
    records.Symbol(k) = PadRight(symbol, kSymbolWidth);
    FetchHistoryOrReport(api, market, symbol, records.Prices(k), dialogs);
    records.Name(k) = PadRight(IssueName(api, market, symbol), kNameWidth);
    if (k % kIssuesPerMeterStep == 0 || k == count) {
      progress.ShowMeter(100.0 * k / count);
    }
  }
}

}  // namespace vistaplot
