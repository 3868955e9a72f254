#include "marketdata/family_files.h"

#include "base/files.h"

namespace vistaplot {

Result<Family> ReadFamilyFile(const std::string& path) {
  const Result<std::string> bytes = ReadWholeFile(path);
  if (!bytes) {
    return bytes.Error();
  }
  Result<Family> family = ParseFamilyFile(bytes.Value());
  if (!family) {
    return MakeError(family.Error().number, path);
  }
  return family;
}

std::string FindFamilyFile(std::string_view name,
                           const std::string& quoteline_dir,
                           const PathRoots& roots) {
  for (const std::string_view folder : {"/QLDEF/", "/USERDEF/", "/QL4WIN/SQLDEF/"}) {
    std::string path = quoteline_dir;
    path.append(folder).append(name).append(".FAM");
    if (FileExists(HostPath(path, roots))) {
      return path;
    }
  }
  return {};
}

}  // namespace vistaplot
