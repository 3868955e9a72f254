#include "base/host_path.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/files.h"
#include "base/text.h"

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

namespace {

std::string Variable(const EnvironmentLookup& environment, const char* name) {
  const char* value = environment(name);
  return value == nullptr ? std::string() : std::string(value);
}

// The folder that a variable names, else `below_home` of the home.
std::string BaseFolder(const EnvironmentLookup& environment,
                       const char* variable,
                       std::string_view below_home) {
  std::string folder = Variable(environment, variable);
  if (folder.starts_with('/')) return folder;
  return JoinPath(HomeFolder(environment), below_home);
}

// The folder in a line XDG_DOCUMENTS_DIR="$HOME/Texts" of the file; empty where none says so.
std::string NamedDocuments(const std::string& file, const std::string& home) {
  constexpr std::string_view kBegin = "XDG_DOCUMENTS_DIR=\"";
  constexpr std::string_view kHome = "$HOME";
  const Result<std::string> lines = ReadWholeFile(file);
  if (!lines) return {};
  std::string folder;
  for (std::string_view line : Split(lines.Value(), '\n')) {
    line = TrimBlanks(line);
    if (!line.starts_with(kBegin) || !line.ends_with('"')) continue;
    line.remove_prefix(kBegin.size());
    line.remove_suffix(1);
    folder =
        line.starts_with(kHome) ? home + std::string(line.substr(kHome.size())) : std::string(line);
  }
  return folder;
}

}  // namespace

EnvironmentLookup ProcessEnvironment() {
  return [](const char* name) -> const char* { return std::getenv(name); };
}

std::string HomeFolder(const EnvironmentLookup& environment) {
  std::string home = Variable(environment, "HOME");
  if (home.starts_with('/')) return home;
  const passwd* user = ::getpwuid(::getuid());
  return user != nullptr && user->pw_dir != nullptr ? std::string(user->pw_dir) : std::string("/");
}

std::string DataFolder(const EnvironmentLookup& environment) {
  return BaseFolder(environment, "XDG_DATA_HOME", ".local/share");
}

std::string ConfigFolder(const EnvironmentLookup& environment) {
  return BaseFolder(environment, "XDG_CONFIG_HOME", ".config");
}

std::string DocumentsFolder(const EnvironmentLookup& environment) {
  const std::string home = HomeFolder(environment);
  std::string named = NamedDocuments(JoinPath(ConfigFolder(environment), "user-dirs.dirs"), home);
  if (FolderExists(named)) return named;
  std::string usual = JoinPath(home, "Documents");
  return FolderExists(usual) ? usual : home;
}

std::string DefaultServiceFolder(const EnvironmentLookup& environment) {
  std::string named = Variable(environment, "QUOTELINE_DIR");
  return named.empty() ? JoinPath(DataFolder(environment), "quoteline") : named;
}

std::string AbsolutePath(const std::string& path) {
  std::string from_root = path;
  if (!path.starts_with('/')) {
    std::error_code error;
    const std::string current = std::filesystem::current_path(error).string();
    if (error) return path;
    from_root = JoinPath(current, path);
  }
  std::string absolute;
  for (const std::string_view component : Split(from_root, '/')) {
    if (component.empty() || component == ".") continue;
    absolute += '/';
    absolute += component;
  }
  return absolute.empty() ? "/" : absolute;
}

}  // namespace vistaplot
