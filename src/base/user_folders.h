// Where a user's files lie: the one answer to it, for both programs.
#pragma once

#include <functional>
#include <string>

namespace vistaplot {

/// The value of an environment variable; null when it is not set.
using EnvironmentLookup = std::function<const char*(const char* name)>;

/// The process's own environment.
EnvironmentLookup ProcessEnvironment();

/// $HOME when that is an absolute path, else the home of the user's account, else "/". A folder
/// that is not there is given all the same, here and below.
std::string HomeFolder(const EnvironmentLookup& environment = ProcessEnvironment());

/// $XDG_DATA_HOME when that is an absolute path, else .local/share below the home.
std::string DataFolder(const EnvironmentLookup& environment = ProcessEnvironment());

/// $XDG_CONFIG_HOME when that is an absolute path, else .config below the home.
std::string ConfigFolder(const EnvironmentLookup& environment = ProcessEnvironment());

/// Where documents are kept: what user-dirs.dirs of the configuration folder names
/// (XDG_DOCUMENTS_DIR), else Documents below the home where that is there, else the home.
std::string DocumentsFolder(const EnvironmentLookup& environment = ProcessEnvironment());

/// The market-data service's directory when nobody names one: $QUOTELINE_DIR unless that is empty
/// (a relative one counts from the current folder), else "quoteline" in the data folder.
std::string DefaultServiceFolder(const EnvironmentLookup& environment = ProcessEnvironment());

/// `path` from the root on: a relative one behind the current folder. Separators at its end and
/// components "." are dropped; ".." stays, as it means the parent of where a link leads.
std::string AbsolutePath(const std::string& path);

}  // namespace vistaplot
