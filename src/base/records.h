// The records of a file as its bytes and the places where they begin: nothing is cut out before
// somebody reads it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/fixed_fields.h"
#include "base/text.h"

namespace vistaplot {

/// A file longer than this many bytes is not held as records: their number fits an int then.
inline constexpr std::size_t kMostRecordBytes = 2'000'000'000;

struct Records {
  std::string bytes = {};                  ///< of the whole file; text is Windows-1252
  std::vector<std::uint32_t> starts = {};  ///< the byte where record i (from 0) begins, in order
  FixedFields fields = {};                 ///< the format's table, which lasts
  std::size_t length = 0;         ///< bytes of a record that hold fields; 0: up to its line's end
  bool are_trimmed = false;       ///< fields read without blanks around
  std::string_view missing = {};  ///< how a field behind `length` reads; lasts
};

/// The bytes of a field in the record that begins at byte `start`. A field that the record cuts is
/// shorter, one behind the end of its line is empty.
inline std::string_view RecordField(const Records& records,
                                    std::uint32_t start,
                                    const FixedField& field) {
  std::string_view record(records.bytes);
  record.remove_prefix(start);
  if (records.length == 0) {
    // Only as far as the field goes: a line may be as long as the file.
    record = record.substr(0, FieldEnd(field));
    record = record.substr(0, record.find_first_of("\r\n"));
  } else if (field.offset >= records.length) {
    return records.missing;
  } else {
    record = record.substr(0, records.length);
  }
  const std::string_view bytes = FieldBytes(record, field);
  return records.are_trimmed ? TrimBlanks(bytes) : bytes;
}

}  // namespace vistaplot
