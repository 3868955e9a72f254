// The service's database: one SQLite file with the market calendar, the issues, their histories
// and the symbol index. docs/formats/quoteline_db.md describes its tables.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/result.h"
#include "quoteline/database.h"
#include "quoteline/history.h"
#include "quoteline/store_contents.h"
#include "quoteline/symbol_index.h"

namespace vistaplot {

/// The database file of a service directory.
std::string DatabasePath(const std::string& directory);

/// Opens a database and checks that it is one of this service, of a form known here; one of the
/// first form is moved over when it is opened for writing or, in memory, for a trial. The error's
/// number is QL_NO_DATABASE or QL_DATABASE_CORRUPT.
Result<Database> OpenStore(const std::string& directory, Access access);

/// The calendar, from its copy where its own row is damaged.
Result<StoreState> LoadState(Database& database);

/// True when the copy of the calendar is whole and says the same.
bool HasSameCopy(Database& database, const StoreState& state);

/// The symbol index. Its absence, or damage to it, is QL_BAD_SYMBOLS; an index of another state of
/// the store is QL_SYMBOLS_MISMATCH.
Result<SymbolIndex> LoadIndex(Database& database, const StoreState& state);

/// The rows of all issues, ascending by symbol, those that are damaged among them.
std::vector<IssueRow> LoadIssues(Database& database, StoreForm form);

/// What is wrong with the structure of the file, at most `limit` sentences. A file with faults is
/// read as far as it goes, and never written: the system would take pages in use for free ones.
std::vector<std::string> StructureFaults(Database& database, int limit);

/// The failure to report in place of a change to a file with such faults, if there are any.
Status CheckBeforeWriting(Database& database);

/// A history without a look at its checksum; nothing when there is no such row, or its parts do
/// not fit each other or the issue's days.
std::optional<History> LoadHistory(Database& database, const IssueRow& issue);

}  // namespace vistaplot
