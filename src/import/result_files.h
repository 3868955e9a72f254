// Result files of other products, and the program's own, into the active sheet of the table.
//
// Every reader clears the sheet, lays it out and fills it with the file at `path` (the host's),
// showing its action and the meter meanwhile; cursor and selection end at (MaxRow, MaxCol). The
// sheet keeps the file's bytes and cuts its cells when they are read. What a file holds is not
// checked: it is read as far as whole records or lines go. A file that cannot be read leaves the
// sheet empty, with its name: errors of the host, 75 for what is no file or has more than 2 GB, 6
// for millions of lines that hold less than a character each.
#pragma once

#include <string>
#include <string_view>

#include "base/dialogs.h"
#include "base/result.h"
#include "table/data_table.h"

namespace vistaplot {

struct ImportTarget {
  DataTable& table;
  Progress& progress;
};

// Headings, widths and extents of the kinds that have any of their own.
void SetupZephyrineSheet(Sheet& sheet);
void SetupVornaxilSheet(Sheet& sheet, std::string_view kind);  ///< "SM ", else as "APM"
void SetupSummarySheet(Sheet& sheet);
void SetupDetailSheet(Sheet& sheet);

/// *.SUM: headings in rows 1 and 2, a record a row from row 3 on.
Status LoadZephyrineSummary(const ImportTarget& target, const std::string& path);

/// *.VX1: headings in row 1, a line a row from row 2 on. `kind` is that of the file before ("SM ",
/// "APM" or empty). Returns the file's kind, or `kind` where the file tells none.
Result<std::string> LoadVornaxilFile(const ImportTarget& target,
                                     const std::string& path,
                                     std::string_view kind);

/// *.TXT: the title in row 1, the names of the columns in row 2, a line a row from row 3 on.
Status LoadKestrelixFile(const ImportTarget& target, const std::string& path);

/// *.SSM and *.SDT: headings in rows 1 and 2, a record a row from row 3 on.
Status LoadSummaryFile(const ImportTarget& target, const std::string& path);
Status LoadDetailFile(const ImportTarget& target, const std::string& path);

}  // namespace vistaplot
