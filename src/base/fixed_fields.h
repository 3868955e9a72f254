// Fields at fixed places of a record of bytes, as the fixed-record files hold them: single-byte
// text padded with blanks, and whole numbers of 16 bits with the low byte first.
//
// Each such file has one constexpr table of FixedField that its reader, its writer, the sheet that
// shows it and its tests share. Nothing here reads or writes outside the bytes that it is given.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace vistaplot {

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

}  // namespace vistaplot
