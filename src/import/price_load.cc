#include "import/price_load.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "base/text.h"
#include "marketdata/issue_lists.h"
#include "marketdata/service.h"

namespace vistaplot {
namespace {

void NameSheet(DataTable& table, std::string_view name) {
  table.SheetAt(kPriceSheet).SheetName = name;
  table.NotifySheets();
}

/// Loads the issues of one family. The error that stopped it, if any, comes after the issues that
/// could be read.
Status LoadFamily(const LoadServices& services,
                  const PathRoots& roots,
                  PriceLoadState& load,
                  const std::string& path) {
  Result<Family> family = ReadFamilyFile(HostPath(path, roots));
  if (!family) {
    return family.Error();
  }
  load.FamilyPath = path;
  load.family_symbols = family.Value().symbols;
  for (const std::string& symbol : load.family_symbols) {
    LoadIssueColumn(services, load, symbol);
  }
  if (family.Value().cut_off) {
    return MakeError(kErrorInputPastEnd, path);
  }
  return Done{};
}

}  // namespace

void BeginPriceLoad(const LoadServices& services, PriceLoadState& load) {
  DataTable& table = services.table;
  table.SetActiveSheet(kPriceSheet);
  table.Active().ClearAll();
  table.NotifyContent(kPriceSheet);
  load.IssueColumnCount = 0;
  PrepareHistories(services.api, services.market, services.dialogs);
}

void LoadIssueColumn(const LoadServices& services, PriceLoadState& load, std::string_view symbol) {
  if (load.IssueColumnCount >= kMaxIssues) {
    return;
  }
  ++load.IssueColumnCount;
  MarketData& market = services.market;
  const std::string_view trimmed = TrimBlanks(symbol);
  const int days = market.calendar.MaxNumDays;
  market.PriceBuffer.resize(static_cast<std::size_t>(days) + 1);
  const IssueHistory history = FetchHistory(services.api, market, trimmed, market.PriceBuffer);

  std::vector<float> prices(market.PriceBuffer.begin() + 1, market.PriceBuffer.end());
  const int without_price = history.start_day > 0 ? std::min(history.start_day - 1, days) : days;
  std::fill_n(prices.begin(), without_price, kNoPrice);
  services.table.SheetAt(kPriceSheet)
      .SetPriceColumn(load.IssueColumnCount + 1, trimmed, std::move(prices));
}

void LoadSelectedFamilies(const LoadServices& services,
                          const PathRoots& roots,
                          PriceLoadState& load,
                          std::span<const std::string> entries) {
  for (const std::string& entry : entries) {
    const std::string name = FamilyNameOfEntry(entry);
    NameSheet(services.table, name);
    const std::string path = FindFamilyFile(name, services.market.QuotelineDir, roots);
    if (path.empty()) {
      services.dialogs.Say(
          "Family not found.  Please check to make sure your family name is 8 characters or less");
      return;
    }
    const Status loaded = LoadFamily(services, roots, load, path);
    if (!loaded) {
      services.dialogs.Say("Error selected families: " + NumberedText(loaded.Error()));
      return;
    }
  }
}

void LoadSelectedIssues(const LoadServices& services,
                        PriceLoadState& load,
                        std::span<const std::string> entries) {
  NameSheet(services.table, "Funds");
  for (const std::string& entry : entries) {
    LoadIssueColumn(services, load, SymbolOfEntry(entry));
  }
}

void WriteDates(const MarketCalendar& calendar, Sheet& sheet) {
  std::vector<std::string> texts(static_cast<std::size_t>(calendar.MaxNumDays) + 1);
  for (int day = 1; day <= calendar.MaxNumDays; ++day) {
    AppendDateText(
        texts[static_cast<std::size_t>(day)], calendar.DateOf(day), DatePattern::kMonthDayLongYear);
  }
  sheet.SetTextColumn(1, std::move(texts));
}

void FinishPriceSheet(const LoadServices& services, const PriceLoadState& load) {
  const MarketCalendar& calendar = services.market.calendar;
  Sheet& sheet = services.table.SheetAt(kPriceSheet);
  WriteDates(calendar, sheet);
  sheet.MaxRow = calendar.MaxNumDays + 1;
  sheet.MaxCol = load.IssueColumnCount + 1;
  sheet.FixedRows = 1;
  sheet.FixedCols = 1;
  services.table.NotifyContent(kPriceSheet);
}

void FinishPriceLoad(DataTable& table) {
  table.SetSheetCount(2);
  table.SetSheetCount(3);
  table.SetActiveSheet(kPriceSheet);
}

}  // namespace vistaplot
