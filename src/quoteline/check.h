// The verification of a service directory.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vistaplot {

struct CheckReport {
  std::vector<std::string> faults;  ///< one sentence each, named after the file or the issue
  std::vector<std::string> notes;   ///< what is no fault but worth knowing
  std::size_t issues = 0;
  std::size_t days = 0;
  std::size_t fnu_series = 0;
  std::size_t families = 0;
};

/// Looks at everything: the structure of the database, the calendar, every history (its checksum,
/// prices above 0, carried values), the symbol index, FNU files and family files.
CheckReport CheckService(const std::string& directory);

}  // namespace vistaplot
