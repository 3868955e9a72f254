// Price files: comma-separated text with one issue a file, one issue a line ("long") or one issue
// a column ("wide"), told apart by the header line. Read into memory, nothing is stored here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "base/result.h"

namespace vistaplot {

struct PriceFileOptions {
  bool adjusted = false;  ///< take the column "Adj Close"
  std::string symbol;     ///< of a file that holds one issue; empty: from the file's name
  std::string name;       ///< its name; may be empty
};

struct DateLine {
  DateSerial date = 0;
  std::uint32_t line = 0;  ///< of the file, from 1
};

/// The prices of one issue in a file.
struct PriceSeries {
  std::string symbol;
  std::string name;           ///< UTF-8; empty when the file names none
  std::size_t dates = 0;      ///< which of the file's date lists its prices belong to
  std::vector<float> prices;  ///< one a date of that list; 0 where there is no price
};

struct BadLine {
  std::uint32_t line = 0;
  std::string text;
};

/// The bad lines of a file. Only so many are kept in full; all are counted.
class BadLines {
 public:
  void Add(std::uint32_t line, std::string text);
  std::size_t Count() const { return count_; }
  const std::vector<BadLine>& Kept() const { return kept_; }

 private:
  std::vector<BadLine> kept_;
  std::size_t count_ = 0;
};

struct PriceFile {
  std::string path;     ///< as the caller named it
  std::string refusal;  ///< why the file as a whole is none; empty when it is one
  BadLines bad_lines;
  /// Ascending dates without repetition. The issues of a wide file share one list.
  std::vector<std::vector<DateLine>> date_lists;
  std::vector<PriceSeries> series;  ///< in the order of the file; symbols without repetition
};

/// Reads a price file. Prices are rounded to the nearest float. With a refusal or bad lines the
/// series may be incomplete: such a file is not to be stored. Fails when it cannot be read at all.
Result<PriceFile> ReadPriceFile(const std::string& path, const PriceFileOptions& options);

/// The same of bytes in memory; `path` gives the name in messages and the symbol.
PriceFile ParsePriceFile(const std::string& path,
                         std::string_view bytes,
                         const PriceFileOptions& options);

}  // namespace vistaplot
