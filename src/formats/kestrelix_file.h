// Kestrelix text files (*.TXT): a title, a line that says nothing, the columns' names, then one
// line a test case. docs/formats/kestrelix.md describes the lines.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "base/records.h"

namespace vistaplot {

// clang-format off
inline constexpr std::array<FixedField, 9> kKestrelixFields{{
    {"field 1", 0, 3},
    {"field 2", 3, 7},
    {"field 3", 10, 8},
    {"field 4", 18, 8},
    {"field 5", 26, 9},
    {"field 6", 35, 9},
    {"field 7", 44, 9},
    {"field 8", 53, 9},
    {"field 9", 62, 9},
}};
// clang-format on
static_assert(FieldsFit(kKestrelixFields, 71));

/// The line, counted from 1, that names the columns; rows follow it.
inline constexpr int kKestrelixNamesLine = 3;

struct KestrelixFile {
  std::string title;  ///< line 1 whole, UTF-8
  /// The names (line 3) and the rows behind them, without the last line; blanks around fields are
  /// dropped. The bytes are let go where there are none of these.
  Records records;
};

/// Reads a file's bytes, at most kMostRecordBytes.
KestrelixFile ReadKestrelixFile(std::string bytes);

/// Appends a line of nine texts (UTF-8), each right-aligned in its field and cut to its width,
/// and CR LF.
void AppendKestrelixLine(std::string& bytes, std::span<const std::string> texts);

}  // namespace vistaplot
