// The header line of a price file: which of the three forms it is, and where its columns stand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "quoteline/csv_line.h"
#include "quoteline/csv_prices.h"

namespace vistaplot {

enum class CsvForm { kOneIssue, kLong, kWide };

struct CsvHeader {
  static constexpr std::size_t kNoColumn = static_cast<std::size_t>(-1);

  std::string refusal;  ///< why this is no price file; empty when it is one
  CsvForm form = CsvForm::kOneIssue;
  char delimiter = ',';
  std::size_t columns = 0;
  std::size_t date = kNoColumn;
  std::size_t price = kNoColumn;      ///< one issue and long
  std::size_t symbol = kNoColumn;     ///< long; of one issue: may be there, with one symbol
  std::size_t name = kNoColumn;       ///< long; may lack
  std::vector<std::string> symbols;   ///< wide: one a column, empty for the date's
  std::vector<std::string> left_out;  ///< one issue: the names of the other columns
};

/// Takes what stands ahead of a header off `bytes`: lines of blanks and delimiters alone, and the
/// line "sep=;" by which spreadsheets name the delimiter. Returns how many lines these were.
std::size_t SkipPreamble(std::string_view& bytes, std::optional<char>& delimiter);

/// Reads the first line of `bytes`, which carry no byte-order mark any more; without a `delimiter`
/// it is the one that stands most often. Bytes that are no text with a header of the three forms
/// give a refusal that says what they are.
///
/// A price column makes it a file of one issue, or with a column "Symbol" a long one. Without one
/// it is wide when all other columns are symbols and not all of them are what price files call
/// their columns. options.wide and options.symbol (one issue) say outright what it is.
CsvHeader ReadCsvHeader(std::string_view bytes,
                        const PriceFileOptions& options,
                        std::optional<char> delimiter);

// The readers of the lines behind a price file's header.

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
