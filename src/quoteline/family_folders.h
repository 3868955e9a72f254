// The folders of family files below the service directory, and what writes a family into one.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "formats/family_file.h"

namespace vistaplot {

/// The folders below the service directory that hold families.
inline constexpr std::array<std::string_view, 3> kFamilyFolders = {
    "QLDEF", "QL4WIN/SQLDEF", "USERDEF"};

/// FOLDER as one of kFamilyFolders ("\" counts as "/", case ignored); nothing for another one.
std::optional<std::string_view> FamilyFolder(std::string_view text);

/// The path of "QLDEF" or "USERDEF/MINE.FAM" below the service directory: as it is there in
/// whatever case, else as written.
std::string ServicePath(const std::string& service_directory, std::string_view below);

/// The family files called `name`, each as "FOLDER/NAME.FAM", in the order in which a family is
/// searched for: the first is loaded, the others never are.
std::vector<std::string> FamilyFilesNamed(const std::string& service_directory,
                                          std::string_view name);

/// Checks name (1 to 8 characters), title (72 at most) and symbols and writes FOLDER/NAME.FAM, in
/// upper case, below the service directory; an older family of that name is replaced. Symbols must
/// be issues of the service, which `service_directory` must hold. Returns the path written. The
/// error's description names every symbol that is unknown.
Result<std::string> WriteFamily(const std::string& service_directory,
                                std::string_view folder,
                                Family family);

}  // namespace vistaplot
