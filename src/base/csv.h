// Comma-separated values as RFC 4180 has them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vistaplot {

/// `field` as it stands in a line: in quotes when it holds a comma, a quote or an end of line.
void AppendCsvField(std::string& text, std::string_view field);

/// Reads records one after the other; lines may end with CR LF, LF or CR, a byte-order mark is
/// skipped.
class CsvReader {
 public:
  explicit CsvReader(std::string_view text);

  /// The next record's fields; false at the end, or where a quote is not closed (then Broken).
  bool Next(std::vector<std::string>& fields);
  bool Broken() const { return broken_; }

 private:
  std::string Field();
  std::string QuotedField();

  std::string_view text_;
  std::size_t at_ = 0;
  bool broken_ = false;
};

}  // namespace vistaplot
