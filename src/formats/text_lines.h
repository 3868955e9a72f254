// The lines and comma-delimited fields of the text files that users exchange. Nothing is copied:
// what is taken is a part of the bytes given.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/records.h"

namespace vistaplot {

/// Takes the next line, without its end, off the front of `bytes`. Lines end with CR LF, LF or CR;
/// an end of line at the end of the bytes opens no further line. REQUIRES: `bytes` is not empty.
std::string_view TakeLine(std::string_view& bytes);

/// Takes the next comma-delimited field and its comma off the front of `line`: what stands between
/// double quotes where it begins with one (commas inside do not end it), else the text up to the
/// comma without blanks and tabs around. Empty where the line has no further field.
std::string_view TakeField(std::string_view& line);

/// How many lines `bytes` have.
std::size_t CountLines(std::string_view bytes);

/// Where the lines of `bytes` (at most kMostRecordBytes) begin, in order.
std::vector<std::uint32_t> LineStarts(std::string_view bytes);

/// Line `line` (from 0) of bytes whose lines begin at `starts`, without its end.
std::string_view LineAt(std::string_view bytes,
                        const std::vector<std::uint32_t>& starts,
                        std::size_t line);

// Records of text fields at fixed places, each field behind one separator byte and the last one
// before a tail of 4 bytes: what the files *.SUM, *.SSM and *.SDT consist of.

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
