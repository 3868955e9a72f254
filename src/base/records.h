// The records of a file as its bytes and the places where they begin: nothing is cut out before
// somebody reads it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"

namespace vistaplot {

// Fields at fixed places of a record of bytes, as the fixed-record files hold them: single-byte
// text padded with blanks, and whole numbers of 16 bits with the low byte first.
//
// Each such file has one constexpr table of FixedField that its reader, its writer, the sheet that
// shows it and its tests share. Nothing here reads or writes outside the bytes that it is given.

struct FixedField {
  std::string_view name;
  std::size_t offset = 0;  ///< first byte, counted from 0 in the record
  std::size_t width = 0;   ///< bytes
  /// What a sheet writes above the field's column, in its first and second heading row; may be
  /// empty.
  std::string_view heading = {};
  std::string_view heading2 = {};
  int column_width = 0;  ///< of the sheet's column, in twips; 0: the sheet keeps its own
};

/// The fields of one kind of file, in the order of a sheet's columns.
using FixedFields = std::span<const FixedField>;

/// The byte just behind a field.
constexpr std::size_t FieldEnd(const FixedField& field) {
  return field.offset + field.width;
}

/// True when each field begins where the one before it ends or behind, and all end within `size`
/// bytes: what a table of fields that must not overlap asserts.
constexpr bool FieldsFit(FixedFields fields, std::size_t size) {
  std::size_t end = 0;
  for (const FixedField& field : fields) {
    if (field.width == 0 || field.offset < end) return false;
    end = FieldEnd(field);
  }
  return end <= size;
}

/// The field's bytes as they stand; shorter, or empty, where the record ends before the field does.
inline std::string_view FieldBytes(std::string_view record, const FixedField& field) {
  if (field.offset >= record.size()) {
    return {};
  }
  return record.substr(field.offset, field.width);
}

/// The field as text (UTF-8), blanks included; zero bytes count as blanks. As short as FieldBytes.
inline std::string FieldText(std::string_view record, const FixedField& field) {
  std::string bytes(FieldBytes(record, field));
  std::replace(bytes.begin(), bytes.end(), '\0', ' ');
  return Utf8FromWindows1252(bytes);
}

/// Writes `bytes` into the field, cut or padded with blanks to its width. `record` must hold it.
inline void SetFieldBytes(std::string& record, const FixedField& field, std::string_view bytes) {
  const std::size_t used = std::min(bytes.size(), field.width);
  record.replace(field.offset, used, bytes.substr(0, used));
  std::fill_n(
      record.begin() + static_cast<std::ptrdiff_t>(field.offset + used), field.width - used, ' ');
}

/// A signed number of 16 bits, low byte first; 0 where the record ends before the field does.
inline std::int16_t FieldInt16(std::string_view record, const FixedField& field) {
  const std::string_view bytes = FieldBytes(record, field);
  if (bytes.size() < 2) {
    return 0;
  }
  const unsigned low = static_cast<unsigned char>(bytes[0]);
  const unsigned high = static_cast<unsigned char>(bytes[1]);
  return static_cast<std::int16_t>(static_cast<std::uint16_t>(low | (high << 8U)));
}

inline void SetFieldInt16(std::string& record, const FixedField& field, std::int16_t value) {
  const auto bits = static_cast<std::uint16_t>(value);
  record[field.offset] = static_cast<char>(bits & 0xFFU);
  record[field.offset + 1] = static_cast<char>((bits >> 8U) & 0xFFU);
}

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
