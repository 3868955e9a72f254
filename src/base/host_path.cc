#include "base/host_path.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "base/files.h"
#include "base/text.h"
#include "base/user_folders.h"

namespace vistaplot {

namespace {

namespace fs = std::filesystem;

bool Exists(const std::string& path) {
  std::error_code error;
  return fs::symlink_status(path, error).type() != fs::file_type::not_found && !error;
}

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// The name in `folder` that equals `name` with case ignored, the first in name order; empty when
// there is none.
std::string NameIgnoringCase(const std::string& folder, std::string_view name) {
  std::error_code error;
  fs::directory_iterator entry(folder.empty() ? "." : folder, error);
  std::string found;
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    std::string candidate = entry->path().filename().string();
    if (EqualsIgnoringCase(candidate, name) && (found.empty() || candidate < found)) {
      found = std::move(candidate);
    }
  }
  return found;
}

// Walks from `base` through the components. What is not there is taken as written.
std::string Walk(std::string base, const std::vector<std::string_view>& components) {
  bool there = true;
  for (const std::string_view component : components) {
    std::string next = JoinPath(base, component);
    if (there && !Exists(next)) {
      const std::string name = NameIgnoringCase(base, component);
      there = !name.empty();
      if (there) next = JoinPath(base, name);
    }
    base = std::move(next);
  }
  return base;
}

std::vector<std::string_view> Components(std::string_view text) {
  std::vector<std::string_view> parts = Split(text, '/');
  std::erase_if(parts, [](std::string_view part) { return part.empty(); });
  return parts;
}

// The folder of a drive letter; empty when the drive does not exist.
std::string DriveFolder(char letter, const PathRoots& roots) {
  const std::string name = LowerCase(std::string(1, letter));
  if (!roots.drives_dir.empty()) {
    std::string folder = Walk(roots.drives_dir, {name});
    if (FolderExists(folder)) return folder;
  }
  if (!roots.wine_devices_dir.empty()) {
    std::string link = JoinPath(roots.wine_devices_dir, name + ":");
    if (FolderExists(link)) return link;
  }
  return {};
}

// `text` is "X:..." with "/" as separator.
std::string DrivePath(std::string_view text, const PathRoots& roots) {
  std::vector<std::string_view> components = Components(text.substr(2));
  const bool on_c = EqualsIgnoringCase(text.substr(0, 1), "c");
  if (on_c && !roots.QuotelineDir.empty() && !components.empty() &&
      EqualsIgnoringCase(components[0], "ql")) {
    components.erase(components.begin());
    return Walk(roots.QuotelineDir, components);
  }
  const std::string folder = DriveFolder(text[0], roots);
  if (!folder.empty()) return Walk(folder, components);
  if (roots.drives_dir.empty()) return std::string(text);
  return Walk(JoinPath(roots.drives_dir, LowerCase(text.substr(0, 1))), components);
}

}  // namespace

PathRoots RootsFromEnvironment() {
  PathRoots roots;
  const char* named = std::getenv("VISTAPLOT_DRIVES");
  roots.drives_dir = named == nullptr ? "" : named;
  if (roots.drives_dir.empty()) roots.drives_dir = JoinPath(DataFolder(), "vistaplot/drives");
  roots.wine_devices_dir = JoinPath(HomeFolder(), ".wine/dosdevices");
  return roots;
}

std::string PathIgnoringCase(const std::string& folder, std::string_view below) {
  return Walk(folder, Components(below));
}

std::string HostPath(std::string_view text, const PathRoots& roots) {
  std::string path(TrimRightBlanks(text));
  if (path.empty() || Exists(path)) return path;
  std::replace(path.begin(), path.end(), '\\', '/');
  if (path.size() >= 2 && IsLetter(path[0]) && path[1] == ':') return DrivePath(path, roots);
  return Walk(path.front() == '/' ? "/" : "", Components(path));
}

}  // namespace vistaplot
