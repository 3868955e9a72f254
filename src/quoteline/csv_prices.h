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
  bool wide = false;      ///< every column but the date's is an issue, whatever it is called
  std::string symbol;     ///< of a file that holds one issue, which it then is; empty: its name
  std::string name;       ///< of that issue; may be empty
};

/// Characters of an issue's name, at most, wherever it comes from.
inline constexpr std::size_t kLongestName = 80;

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
  /// Columns of a file of one issue that nothing was taken from, ready to be shown.
  std::vector<std::string> left_out;
};

/// Reads a price file. Prices are rounded to the nearest float. With a refusal or bad lines the
/// series may be incomplete: such a file is not to be stored. Fails when it cannot be read at all,
/// is a device, or is beyond all measure (quoteline/line_blocks.h).
Result<PriceFile> ReadPriceFile(const std::string& path, const PriceFileOptions& options);

/// The same of bytes in memory; `path` gives the name in messages and the symbol.
PriceFile ParsePriceFile(const std::string& path,
                         std::string_view bytes,
                         const PriceFileOptions& options);

}  // namespace vistaplot
