// What a database holds, with what of it is damaged; and how it is put right from what it holds
// twice: the calendar from its copy, the issues' rows from the symbol index, the index from them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/result.h"
#include "quoteline/database.h"
#include "quoteline/store_row.h"
#include "quoteline/symbol_index.h"

namespace vistaplot {

struct StoreContents {
  StoreState state;
  bool copy_fits = true;             ///< the copy of the calendar says the same
  std::vector<IssueRow> issues;      ///< whose rows are whole, ascending by symbol
  std::vector<IssueRow> damaged;     ///< rows that fail their check values, as they read
  std::vector<IssueRow> lost;        ///< issues of the index without a whole row
  std::optional<SymbolIndex> index;  ///< when it is whole and of this state
};

/// Fails when there is no calendar, or the rows cannot be read at all.
Result<StoreContents> LoadContents(Database& database);

/// A sentence for each damaged row, and for a calendar that has one copy left, which says what to
/// do about it. The symbol index is not looked at: without damage to rows any change renews it.
std::vector<std::string> RowFaults(const StoreContents& contents);

struct RebuildReport {
  int issues = 0;                     ///< that the new index knows
  int restored = 0;                   ///< rows put right from the index
  bool calendar_restored = false;     ///< or its copy
  std::vector<std::string> left_out;  ///< sentences on damaged rows, which stay as they are
};

/// Puts right what the database holds twice and makes the symbol index anew. A damaged row is
/// replaced only by the same row of a whole index; without one it stays as it is, and out of the
/// index.
Result<RebuildReport> RebuildStore(Database& database);

/// Removes the damaged row of this number and its history. Refuses when the row is whole, or can
/// be put right.
Status RemoveDamagedRow(Database& database, std::int64_t id);

}  // namespace vistaplot
