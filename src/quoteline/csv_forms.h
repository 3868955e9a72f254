// The readers of the lines behind a price file's header, one a form.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "quoteline/csv_header.h"
#include "quoteline/csv_line.h"
#include "quoteline/csv_prices.h"

namespace vistaplot {

/// Reads the lines of a wide file into file.date_lists, file.series and file.bad_lines. `cursor`
/// stands behind the header line.
void ReadWideLines(CsvCursor& cursor, const CsvHeader& header, PriceFile& file);

/// The same for a file of one issue or of an issue a line. In the first case file.series holds
/// that issue, with symbol and name and without prices.
void ReadIssueLines(CsvCursor& cursor, const CsvHeader& header, PriceFile& file);

/// Positions of the dates in ascending order, lines of one date in the order of the file; empty
/// when they ascend without repetition as they stand.
std::vector<std::size_t> AscendingOrder(const std::vector<DateLine>& dates);

/// Notes a line that gives an issue a second, different price on a date.
void AddSecondPrice(BadLines& bad_lines,
                    std::string_view symbol,
                    const DateLine& first,
                    const DateLine& second);

/// Notes a line with `fields` fields where the header has `columns`.
void AddTooFewFields(BadLines& bad_lines,
                     std::uint32_t line,
                     std::size_t fields,
                     std::size_t columns);

}  // namespace vistaplot
