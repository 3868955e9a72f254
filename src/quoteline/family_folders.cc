#include "quoteline/family_folders.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "base/files.h"
#include "base/host_path.h"
#include "base/text.h"
#include "quoteline/quoteline.h"
#include "quoteline/service.h"
#include "quoteline/symbol_index.h"

namespace vistaplot {

namespace {

RuntimeError Refusal(std::string text, std::string subject = {}) {
  return {
      .number = QL_GENERAL_FAILURE, .description = std::move(text), .subject = std::move(subject)};
}

bool IsNameCharacter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         std::string_view("$^-_~!#%&@").find(c) != std::string_view::npos;
}

Status CheckNames(const FamilyHeader& header) {
  if (header.name.empty() || header.name.size() > kFamilyName.width ||
      !std::all_of(header.name.begin(), header.name.end(), IsNameCharacter)) {
    return Refusal("a family's name has 1 to 8 letters, digits or - _ $ ^ ~ ! # % & @",
                   "\"" + header.name + "\"");
  }
  const std::size_t length = Windows1252FromUtf8(header.title).size();
  if (length > kFamilyTitle.width) {
    return Refusal("the title has " + std::to_string(length) + " characters; a family holds 72",
                   header.name);
  }
  return Done{};
}

// Upper case; every symbol must be known to the service.
Status CheckSymbols(const std::string& directory, Family& family) {
  auto service = Service::Open(directory);
  if (!service) return service.Error();
  std::string unknown;
  for (std::string& symbol : family.symbols) {
    const auto key = KeyOf(symbol);
    if (!key || !service.Value()->Find(*key)) {
      unknown += (unknown.empty() ? "" : ", ") + symbol;
    } else {
      symbol = SymbolText(*key);
    }
  }
  if (unknown.empty()) return Done{};
  return Refusal("no such issue; the family was not written", unknown);
}

}  // namespace

std::optional<std::string_view> FamilyFolder(std::string_view text) {
  std::string plain(text);
  std::replace(plain.begin(), plain.end(), '\\', '/');
  while (plain.ends_with('/')) plain.pop_back();
  const auto found =
      std::find_if(kFamilyFolders.begin(), kFamilyFolders.end(), [&](std::string_view folder) {
        return EqualsIgnoringCase(folder, plain);
      });
  if (found == kFamilyFolders.end()) return std::nullopt;
  return *found;
}

std::string ServicePath(const std::string& service_directory, std::string_view below) {
  return PathIgnoringCase(service_directory, below);
}

std::vector<std::string> FamilyFilesNamed(const std::string& service_directory,
                                          std::string_view name) {
  std::vector<std::string> files;
  for (const std::string_view folder : {"QLDEF", "USERDEF", "QL4WIN/SQLDEF"}) {
    std::string file = JoinPath(folder, std::string(name) + ".FAM");
    if (FileExists(ServicePath(service_directory, file))) files.push_back(std::move(file));
  }
  return files;
}

Result<std::string> WriteFamily(const std::string& service_directory,
                                std::string_view folder,
                                Family family) {
  const auto known = FamilyFolder(folder);
  if (!known) {
    return Refusal("is no family folder (QLDEF, QL4WIN/SQLDEF or USERDEF)", std::string(folder));
  }
  FamilyHeader& header = family.header;
  header.name = UpperCase(header.name);
  if (auto checked = CheckNames(header); !checked) return checked.Error();
  if (auto checked = CheckSymbols(service_directory, family); !checked) return checked.Error();
  const auto bytes = FamilyFileBytes(header, family.symbols);
  if (!bytes) return Refusal("a family holds at most 32767 symbols", header.name);
  if (auto made = MakeFolders(ServicePath(service_directory, *known)); !made) return made.Error();
  const std::string path = ServicePath(service_directory, JoinPath(*known, header.name + ".FAM"));
  if (auto written = WriteFileAtomically(path, bytes.Value()); !written) return written.Error();
  return path;
}

}  // namespace vistaplot
