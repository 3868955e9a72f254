// Records of text fields at fixed places, each field behind one separator byte and the last one
// before a tail of 4 bytes: what the files *.SUM, *.SSM and *.SDT consist of.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/fixed_fields.h"
#include "base/records.h"

namespace vistaplot {

/// What ends a record: carriage return, line feed and two blanks.
inline constexpr std::string_view kRecordTail = "\r\n  ";

struct TextRecordForm {
  FixedFields fields;
  std::size_t size = 0;  ///< bytes of a record, its tail included
  char separator = ' ';
};

/// Appends one record: texts[i] (UTF-8) in field i, left-aligned, cut or padded with blanks to its
/// width. REQUIRES: as many texts as fields.
void AppendTextRecord(std::string& bytes,
                      const TextRecordForm& form,
                      std::span<const std::string> texts);

/// The records of a file's bytes in file order; an incomplete last one is left out. `bytes` are at
/// most kMostRecordBytes.
Records ReadTextRecords(std::string bytes, const TextRecordForm& form);

/// The texts (UTF-8) of a record's fields as they stand, blanks included; what a short record lacks
/// is empty. Separators and tail are not looked at.
std::vector<std::string> ReadTextRecord(std::string_view record, FixedFields fields);

}  // namespace vistaplot
