// A sheet, or what is selected on it, as text for other programs.
#pragma once

#include <string>
#include <vector>

#include "table/sheet.h"

namespace vistaplot {

enum class CellEnds { kAsTheyStand, kTrimmed };

/// Rows 1 to MaxRow, columns 1 to MaxCol: RFC 4180, every line with CR LF, UTF-8. Imported records
/// pad their fields; kTrimmed drops the blanks at the end of each cell.
std::string SheetCsv(const Sheet& sheet, CellEnds ends);

/// The rows of the selected cells one below the other, each with its selected columns separated by
/// tabs: ranges of the same rows stand side by side, ranges of the same columns below each other.
/// What is between such ranges is left out, a cell there that is not selected stays empty. Parts of
/// ranges outside the sheet's extent do not count.
std::string TabbedText(const Sheet& sheet, const std::vector<CellRange>& ranges);

}  // namespace vistaplot
