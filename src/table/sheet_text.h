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

// How a sheet is to be shown, beside its cells: decided here, so that a window, a printed page and
// a script say the same.

/// The row that a sheet opens at: of a sheet of prices the first one in which any issue has a price
/// (is not -1), of any other one, or without a price, the first row behind the headings. At least
/// 1.
int FirstRowToShow(const Sheet& sheet);

/// True for the first cell of a heading row where nothing else stands in it, as the title of a
/// file: its text runs on over the columns behind.
bool IsTitle(const Sheet& sheet, int row, int col);

/// True for a cell of a price column that tells nothing new: -1, or the price of the row above
/// again, as days without a price of their own have it.
bool IsFaint(const Sheet& sheet, int row, int col);

/// What the column means, for the reader who rests at its heading: what a loader has set in
/// `heading_tips`, of prices whose they are; empty where nothing is known.
std::string HeadingTip(const Sheet& sheet, int col);

/// Digits and points behind the decimal point of a number's text, the point included ("12.50" has
/// 3): numbers of a column stand on their points. 0 for a whole number or another text.
int PlacesFromPoint(const std::string& text);

}  // namespace vistaplot
