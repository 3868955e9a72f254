// The header line of a price file: which of the three forms it is, and where its columns stand.
#pragma once

#include <cstddef>
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
  std::size_t price = kNoColumn;     ///< one issue and long
  std::size_t symbol = kNoColumn;    ///< long
  std::size_t name = kNoColumn;      ///< long; may lack
  std::vector<std::string> symbols;  ///< wide: one a column, empty for the date's
};

/// Reads the first line of `bytes`, which carry no byte-order mark any more. Bytes that are no
/// text with a header of the three forms give a refusal that says what they are.
CsvHeader ReadCsvHeader(std::string_view bytes, bool adjusted);

}  // namespace vistaplot
