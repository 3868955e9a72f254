#include "base/user_folders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "base/files.h"
#include "base/text.h"

namespace vistaplot {

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
