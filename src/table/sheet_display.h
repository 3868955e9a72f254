// How a sheet is to be shown, beside its cells: decided here, so that a window, a printed page and
// a script say the same.
#pragma once

#include <string>

#include "table/sheet.h"

namespace vistaplot {

/// The row that a sheet opens at: of a sheet of prices the first one in which any issue has a price
/// (is not -1), of any other one, or without a price, the first row behind the headings. At least
/// 1.
int FirstRowToShow(const Sheet& sheet);

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
