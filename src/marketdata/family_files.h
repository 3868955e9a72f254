// Family files of the service's three folders: found by name and read whole.
#pragma once

#include <string>
#include <string_view>

#include "base/host_path.h"
#include "base/result.h"
#include "formats/family_file.h"

namespace vistaplot {

/// Reads a whole family file. Errors of the host, and 62 for a file without a whole header; one
/// with fewer entries than its header counts gives those that are there. `path` is the host's.
Result<Family> ReadFamilyFile(const std::string& path);

/// Path, old style or the host's, of the family called `name` below the service's directory: in
/// QLDEF, USERDEF or QL4WIN/SQLDEF, in this order. Empty when none of them has it.
std::string FindFamilyFile(std::string_view name,
                           const std::string& quoteline_dir,
                           const PathRoots& roots);

}  // namespace vistaplot
