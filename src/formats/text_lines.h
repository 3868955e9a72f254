// The lines and comma-delimited fields of the text files that users exchange. Nothing is copied:
// what is taken is a part of the bytes given.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace vistaplot {

/// Takes the next line, without its end, off the front of `bytes`. Lines end with CR LF, LF or CR;
/// an end of line at the end of the bytes opens no further line. REQUIRES: `bytes` is not empty.
std::string_view TakeLine(std::string_view& bytes);

/// Takes the next comma-delimited field and its comma off the front of `line`: what stands between
/// double quotes where it begins with one (commas inside do not end it), else the text up to the
/// comma without blanks and tabs around. Empty where the line has no further field.
std::string_view TakeField(std::string_view& line);

/// Where the lines of `bytes` (at most kMostRecordBytes) begin, in order.
std::vector<std::uint32_t> LineStarts(std::string_view bytes);

/// Line `line` (from 0) of bytes whose lines begin at `starts`, without its end.
std::string_view LineAt(std::string_view bytes,
                        const std::vector<std::uint32_t>& starts,
                        std::size_t line);

}  // namespace vistaplot
