// The service's database: one SQLite file with the market calendar, the issues, their histories
// and the symbol index. docs/formats/quoteline_db.md describes its tables.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "base/result.h"
#include "quoteline/database.h"
#include "quoteline/history.h"
#include "quoteline/symbol_index.h"

namespace vistaplot {

inline constexpr int kMaxMarketDays = 32'767;

/// What changes with every change of the store as a whole.
struct StoreState {
  std::int64_t stamp = 0;        ///< grows with every change
  std::vector<DateSerial> days;  ///< the calendar, ascending; element 0 is market day 1
};

/// An issue as its row has it.
struct IssueRow {
  std::int64_t id = 0;
  std::string symbol;
  std::string name;  ///< UTF-8; empty when it has none
  int first_day = 0;
  int last_day = 0;
  int prices = 0;
  std::uint32_t checksum = 0;
};

/// True when the issue's days are a run of days of a calendar of `days` days.
bool HasSoundDays(const IssueRow& issue, std::size_t days);

/// The database file of a service directory.
std::string DatabasePath(const std::string& directory);

/// Makes an empty database. Fails when a file of that name is there.
Status CreateStore(const std::string& directory);

/// Opens a database and checks that it is one of this service, of a version known here. The
/// error's number is QL_NO_DATABASE or QL_DATABASE_CORRUPT.
Result<Database> OpenStore(const std::string& directory, Access access);

Result<StoreState> LoadState(Database& database);

/// The symbol index. Its absence, or damage to it, is QL_BAD_SYMBOLS; an index of another state of
/// the store is QL_SYMBOLS_MISMATCH.
Result<SymbolIndex> LoadIndex(Database& database, std::int64_t stamp);

/// All issues, ascending by symbol.
std::vector<IssueRow> LoadIssues(Database& database);

/// A history without a look at its checksum; nothing when there is no such row, or its parts do
/// not fit each other or the issue's days.
std::optional<History> LoadHistory(Database& database, const IssueRow& issue);

/// True when the history is the one that the issue's checksum was taken of.
bool IsIntact(const History& history, const IssueRow& issue);

// Writing. Each belongs into a transaction that ends with WriteState and WriteIndex.

/// Stores an issue and its history; an id of 0 makes a new row. Sets the issue's id, days, number
/// of prices and checksum from the history, which must not be empty.
void WriteIssue(Database& database, IssueRow& issue, const History& history);

/// Stores new days of an issue whose prices stay as they are.
void MoveIssue(Database& database, const IssueRow& issue);

void DeleteIssue(Database& database, std::int64_t id);
void WriteState(Database& database, const StoreState& state);

/// Makes the symbol index of these issues, ascending by symbol.
void WriteIndex(Database& database, const std::vector<IssueRow>& issues, std::int64_t stamp);

/// Makes the symbol index anew from the issues; the rest of the database stays as it is. Returns
/// the number of issues.
Result<int> RebuildIndex(Database& database);

}  // namespace vistaplot
