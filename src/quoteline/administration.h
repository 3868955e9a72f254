// What the owner of a service directory does with it beside importing prices.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "quoteline/store_contents.h"
#include "quoteline/store_creation.h"

namespace vistaplot {

/// Makes the directory, its folders (QLDEF, QL4WIN/SQLDEF, USERDEF, SIG) and an empty database.
/// What is there already stays as it is, and a failure leaves nothing new. True when the database
/// is new. Programs that do so at once wait for each other.
Result<bool> InitService(const std::string& directory);

/// The same as a part of a larger making.
Result<bool> InitService(const std::string& directory, DirectoryMaking& making);

/// One line an issue whose symbol matches ("*" and "?", case ignored; empty: all): symbol, first
/// and last date with a price, number of prices, name. Issues of FNU files included.
Result<std::vector<std::string>> ListIssues(const std::string& directory, std::string_view pattern);

/// An issue's history as CSV, "Day,Date,Price": every market day from its first with a price to
/// the last of the calendar, days without a price of their own included.
Result<std::string> HistoryCsv(const std::string& directory, std::string_view symbol);

/// Removes issues of the database, all or none; returns how many there were. Fails naming the
/// symbols that are unknown. "#7", alone, is the damaged row 7, as RowFaults names it.
Result<std::size_t> RemoveIssues(const std::string& directory,
                                 const std::vector<std::string>& symbols);

/// Puts right what the database holds twice, and makes the symbol index anew.
Result<RebuildReport> RebuildSymbols(const std::string& directory);

}  // namespace vistaplot
