// Writing to the service's database. Each of these belongs into a transaction, which ends with
// WriteState and WriteIndex.
#pragma once

#include <cstdint>
#include <vector>

#include "quoteline/database.h"
#include "quoteline/history.h"
#include "quoteline/store_contents.h"

namespace vistaplot {

/// Makes the tables, those that are not there, and notes the form.
void MakeTables(Database& database);

/// Stores an issue and its history; an id of 0 makes a new row. Sets the issue's id, days, number
/// of prices and check values from the history, which must not be empty; the symbol must be one.
void WriteIssue(Database& database, IssueRow& issue, const History& history);

/// Stores new days of an issue whose prices stay as they are: its row alone.
void MoveIssue(Database& database, IssueRow& issue, const History& history);

/// Stores an issue's row, in place of one of its id.
void WriteRow(Database& database, const IssueRow& issue);

/// Removes an issue's row and its history.
void DeleteIssue(Database& database, std::int64_t id);

/// Stores the calendar and its copy.
void WriteState(Database& database, const StoreState& state);

/// Makes the symbol index of these issues, ascending by symbol.
void WriteIndex(Database& database, const std::vector<IssueRow>& issues, std::int64_t stamp);

}  // namespace vistaplot
