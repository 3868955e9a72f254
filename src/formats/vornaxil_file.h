// Vornaxil fixed files (*.VX1): seven lines of report heading, then one line a test case, in two
// kinds that line 2 tells apart. docs/formats/vx1.md describes the lines.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/records.h"

namespace vistaplot {

// The two kinds by their agreed texts.
inline constexpr std::string_view kVornaxilSm = "SM ";   ///< three parameters
inline constexpr std::string_view kVornaxilApm = "APM";  ///< two parameters

// The last two fields of kind "SM " share a byte, by the format.
// clang-format off
inline constexpr std::array<FixedField, 8> kVornaxilSmFields{{
    {"parameter 1", 2, 8, "PARM 1", "", 2000},
    {"parameter 2", 11, 8, " PARM 2", "", 2800},
    {"parameter 3", 20, 8, " PARM 3", "", 2800},
    {"Ra", 32, 8, "   Ra", "", 2800},
    {"Mr", 41, 8, "   Mr", "", 2800},
    {"Tr", 50, 8, "   Tr", "", 2800},
    {"SY", 60, 8, "   SY  ", "", 2800},
    {"Rsk", 67, 6, "   Rsk", "", 2800},
}};
inline constexpr std::array<FixedField, 7> kVornaxilApmFields{{
    {"parameter 1", 2, 8, "PARM 1", "", 2000},
    {"parameter 2", 11, 8, " PARM 2", "", 2800},
    {"Ra", 23, 8, "   Ra", "", 2800},
    {"Mr", 32, 8, "   Mr", "", 2800},
    {"Tr", 41, 8, "   Tr", "", 2800},
    {"SY", 50, 8, "   SY  ", "", 2800},
    {"Rsk", 58, 6, "   Rsk", "", 2800},
}};
// clang-format on
static_assert(FieldsFit(kVornaxilApmFields, 64));

/// Line 2 tells the kind; rows begin in this line, counted from 1.
inline constexpr int kVornaxilKindLine = 2;
inline constexpr int kFirstVornaxilLine = 8;

struct VornaxilFile {
  /// "SM " or "APM"; nothing where line 2 is missing or the last one, which is never looked at.
  std::optional<std::string_view> kind = {};
  Records records = {};  ///< lines 8 on without the last one; fields of the kind
};

/// Reads a file's bytes, at most kMostRecordBytes.
VornaxilFile ReadVornaxilFile(std::string bytes);

/// The kind that line 2 tells: "SM " where its characters 6 and 7 are "MA" or "St", else "APM".
std::string_view VornaxilKindOf(std::string_view line2);

/// The fields of a kind; those of "APM" for any text but "SM ".
FixedFields VornaxilFields(std::string_view kind);

/// Appends a row: texts[i] (UTF-8) in field i, left-aligned and cut to its width, blanks between,
/// CR LF. Where two fields share a byte the later one has it.
void AppendVornaxilRow(std::string& bytes, FixedFields fields, std::span<const std::string> texts);

}  // namespace vistaplot
