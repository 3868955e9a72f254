// The lists from which users choose what to load: families of the three family folders, or all
// issues of the service; and finding an entry by typing its beginning.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/dialogs.h"
#include "base/host_path.h"
#include "base/result.h"
#include "formats/family_file.h"
#include "marketdata/market_data.h"
#include "marketdata/quoteline_library.h"

namespace vistaplot {

/// One entry a family: name in upper case padded to 8 characters, a blank, the 72-character title;
/// folder after folder, ascending by file name. A folder that cannot be listed is reported and ends
/// the program: nothing, the caller returns at once.
std::optional<std::vector<std::string>> ListFamilies(const std::string& quoteline_dir,
                                                     const PathRoots& roots,
                                                     Dialogs& dialogs,
                                                     Progress& progress);

/// One entry an issue, in the service's order (ascending by symbol): symbol padded to 6 characters,
/// then at most 40 characters of its name. Statuses are kept in LastStatus and not reported.
std::vector<std::string> ListAllIssues(QuotelineApi& api, MarketData& market, Progress& progress);

/// The family's name in an entry of ListFamilies: the first 8 characters, trimmed.
std::string FamilyNameOfEntry(std::string_view entry);

/// The symbol in an entry of ListAllIssues: the first 5 characters, trimmed.
std::string SymbolOfEntry(std::string_view entry);

/// Where typing `key` moves the selection of a list: the position to select, from 0; nothing when
/// the selection stays. `current` is the selected position (-1: none). `direction` +1 searches
/// downwards from there, anything else upwards, for the first entry that begins with the key, as
/// far as the entry where it would stand; letters are folded, and an entry that begins with "~" is
/// ordered as if it began with "A". Where none is met the whole list is looked through, and only
/// then the neighbour of that place is taken. An empty key finds the first entry.
std::optional<int> FindInList(std::span<const std::string> entries,
                              int current,
                              std::string_view key,
                              int direction);

/// FindInList in the direction in which the key lies from the current entry.
std::optional<int> FindTyped(std::span<const std::string> entries,
                             int current,
                             std::string_view key);

/// Lets the user choose a family file: its full path, or empty when the user gives up.
std::string ChooseFamilyFile(const std::string& quoteline_dir, Dialogs& dialogs);

// Family files of the service's three folders: found by name and read whole.

/// Reads a whole family file. Errors of the host, and 62 for a file without a whole header; one
/// with fewer entries than its header counts gives those that are there. `path` is the host's.
Result<Family> ReadFamilyFile(const std::string& path);

/// Path, old style or the host's, of the family called `name` below the service's directory: in
/// QLDEF, USERDEF or QL4WIN/SQLDEF, in this order. Empty when none of them has it.
std::string FindFamilyFile(std::string_view name,
                           const std::string& quoteline_dir,
                           const PathRoots& roots);

}  // namespace vistaplot
