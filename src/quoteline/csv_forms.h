// The readers of the lines behind a price file's header.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "quoteline/csv_header.h"
#include "quoteline/csv_line.h"
#include "quoteline/csv_prices.h"

namespace vistaplot {

/// Takes in the lines of a file, block after block, and puts them into a PriceFile.
class LineReader {
 public:
  virtual ~LineReader() = default;

  /// Reads the lines from the cursor's place to its end. `share` is the part of the file's bytes
  /// that they are, above 0 up to 1: a hint of how many lines are to come.
  virtual void Read(CsvCursor& cursor, double share) = 0;

  /// After the last block: brings dates into order, finds second prices, and delivers.
  virtual void Finish() = 0;
};

/// For a wide file. Fills date_lists, series and bad_lines; both arguments outlive the reader.
std::unique_ptr<LineReader> MakeWideReader(const CsvHeader& header, PriceFile& file);

/// For a file of one issue or of an issue a line. In the first case file.series holds that issue
/// already, with symbol and name and without prices.
std::unique_ptr<LineReader> MakeIssueReader(const CsvHeader& header, PriceFile& file);

/// Positions of the dates in ascending order, lines of one date in the order of the file; empty
/// when they ascend without repetition as they stand.
std::vector<std::size_t> AscendingOrder(const std::vector<DateLine>& dates);

/// Notes a line that gives an issue a second, different price on a date.
void AddSecondPrice(BadLines& bad_lines,
                    std::string_view symbol,
                    const DateLine& first,
                    const DateLine& second);

/// A name as it is kept: UTF-8, where it is none from Windows-1252; control characters are blanks.
std::string CleanName(std::string_view bytes);

/// Notes a line with `fields` fields where the header has `columns`.
void AddTooFewFields(BadLines& bad_lines,
                     std::uint32_t line,
                     std::size_t fields,
                     std::size_t columns);

}  // namespace vistaplot
