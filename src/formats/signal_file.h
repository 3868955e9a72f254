// Signal files (*.SIG): when a timing system is in the market and when out of it.
// docs/formats/sig.md describes the lines.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"

namespace vistaplot {

struct Signal {
  bool is_in = false;   ///< in the market (the letter "B") or out of it (any other one)
  DateSerial date = 0;  ///< from this day on, until the next signal
};

struct SignalFile {
  std::string title;            ///< UTF-8, without its quotes
  std::vector<Signal> signals;  ///< in the order of the lines
};

/// The title of the composite files that the program writes.
inline constexpr std::string_view kCompositeTitle = "314Vistaplot Composite Signal";

/// Reads the bytes of a signal file. Only a capital "B" is in the market. Lines without a date are
/// passed over, so that any bytes are a file, if one without signals. Dates are not checked for
/// their order.
SignalFile ParseSignalFile(std::string_view bytes);

/// Line 1: the title (UTF-8) in double quotes.
void AppendSignalTitle(std::string& bytes, std::string_view title);

/// One line: "B" or "S", a comma, the date as "mm/dd/yyyy".
void AppendSignal(std::string& bytes, const Signal& signal);

// Signal family files (*.SFM): a chosen list of signal files. docs/formats/sfm.md describes the
// lines.

/// The entries of a file's bytes (UTF-8), in order: each line's first comma-delimited field as it
/// stands between its quotes, blanks included. Empty lines are passed over.
std::vector<std::string> ParseSignalFamily(std::string_view bytes);

/// The bytes of a file: each entry as it stands (a list pads names to 8 characters), in double
/// quotes, on a line of its own.
std::string SignalFamilyBytes(std::span<const std::string> entries);

}  // namespace vistaplot
