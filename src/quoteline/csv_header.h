// The header line of a price file: which of the three forms it is, and where its columns stand.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

}  // namespace vistaplot
