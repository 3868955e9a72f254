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
