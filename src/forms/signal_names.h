// The signal files that the calculations screen offers.
#pragma once

#include <string>
#include <vector>

#include "forms/shared_state.h"

namespace vistaplot {

/// File names "*.SIG" of the SIG folder of the service's directory, ascending; none when the folder
/// is missing.
std::vector<std::string> ListSignalFiles(const SharedState& state);

/// Each file name up to its first ".", in upper case, cut or padded to 8 characters.
std::vector<std::string> SignalNames(const std::vector<std::string>& file_names);

}  // namespace vistaplot
