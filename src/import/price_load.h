// Loading price histories into the data table: dates in column 1 of sheet 1, one issue in each
// column behind it.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/dialogs.h"
#include "base/host_path.h"
#include "marketdata/market_data.h"
#include "marketdata/quoteline_library.h"
#include "table/data_table.h"

namespace vistaplot {

/// What the loads remember from one to the next.
struct PriceLoadState {
  std::int16_t IssueColumnCount = 0;  ///< issue columns written since the load began, at most 255
  std::string FamilyPath;             ///< the family file loaded last
  std::vector<std::string> family_symbols;  ///< its symbols, all of them, in the file's order
};

/// What a load works with; all outlive the call.
struct LoadServices {
  QuotelineApi& api;
  MarketData& market;
  DataTable& table;
  Dialogs& dialogs;
};

/// Begins a load: sheet 1 is active and empty, IssueColumnCount is 0, and the histories are
/// prepared (see PrepareHistories of marketdata/service.h).
void BeginPriceLoad(const LoadServices& services, PriceLoadState& load);

/// Fetches one issue into the next column of sheet 1: symbol in row 1, the price of market day d in
/// row d + 1, -1 where there is none; an issue that the service does not know is -1 on every day.
/// Failures are kept in LastStatus. Does nothing once 255 issues are there.
void LoadIssueColumn(const LoadServices& services, PriceLoadState& load, std::string_view symbol);

/// Loads every issue of the families that `entries` name (entries of ListFamilies), and calls sheet
/// 1 after each in turn. A family without a file, or whose file cannot be read, is reported and
/// ends the loading; what was loaded before stays.
void LoadSelectedFamilies(const LoadServices& services,
                          const PathRoots& roots,
                          PriceLoadState& load,
                          std::span<const std::string> entries);

/// Loads the issues that `entries` name (entries of ListAllIssues); calls sheet 1 "Funds".
void LoadSelectedIssues(const LoadServices& services,
                        PriceLoadState& load,
                        std::span<const std::string> entries);

/// Column 1 of a sheet: row 1 empty, the date of market day d ("mm/dd/yyyy") in row d + 1, for days
/// 1 to MaxNumDays.
void WriteDates(const MarketCalendar& calendar, Sheet& sheet);

/// Ends the price sheet of a load: dates, extent and heading row and column of sheet 1.
void FinishPriceSheet(const LoadServices& services, const PriceLoadState& load);

/// Ends a load whose summary is written: data sheet, summary sheet and an empty spare, sheet 1
/// active.
void FinishPriceLoad(DataTable& table);

}  // namespace vistaplot
