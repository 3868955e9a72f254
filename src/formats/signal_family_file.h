// Signal family files (*.SFM): a chosen list of signal files. docs/formats/sfm.md describes the
// lines.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vistaplot {

/// The entries of a file's bytes (UTF-8), in order: each line's first comma-delimited field as it
/// stands between its quotes, blanks included. Empty lines are passed over.
std::vector<std::string> ParseSignalFamily(std::string_view bytes);

/// The bytes of a file: each entry as it stands (a list pads names to 8 characters), in double
/// quotes, on a line of its own.
std::string SignalFamilyBytes(std::span<const std::string> entries);

}  // namespace vistaplot
