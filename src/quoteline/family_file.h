// Family files *.FAM: named groups of issues. docs/formats/fam.md has their bytes.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace vistaplot {

/// The folders below the service directory that hold families.
inline constexpr std::array<std::string_view, 3> kFamilyFolders = {
    "QLDEF", "QL4WIN/SQLDEF", "USERDEF"};

inline constexpr std::size_t kFamilyNameLength = 8;
inline constexpr std::size_t kFamilyTitleLength = 72;

struct Family {
  std::string name;   ///< 1 to 8 characters, upper case
  std::string title;  ///< UTF-8, at most 72 characters
  std::vector<std::string> symbols;
};

/// The bytes of a family file: a header of 116 and 19 a symbol.
/// REQUIRES: at most 32,767 symbols of at most 5 characters.
std::string FamilyFileBytes(const Family& family);

/// The family in these bytes. The error's description says what is wrong with them.
Result<Family> ParseFamilyFile(std::string_view bytes);

/// FOLDER as one of kFamilyFolders ("\" counts as "/", case ignored); nothing for another one.
std::optional<std::string_view> FamilyFolder(std::string_view text);

/// Checks name, title and symbols and writes FOLDER/NAME.FAM below the service directory; an
/// older family of that name is replaced. Symbols must be issues of the service, which
/// `service_directory` must hold. Returns the path written. The error's description names every
/// symbol that is unknown.
Result<std::string> WriteFamily(const std::string& service_directory,
                                std::string_view folder,
                                Family family);

}  // namespace vistaplot
