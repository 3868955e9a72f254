// The one mapping from a text that names a file (old style "C:\QL\SIG\A.SIG" or the host's) to a
// path of this host, used at the moment when a file is opened, created, listed or tested; and where
// a user's files lie.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace vistaplot {

/// Where old-style drives lie on this host.
struct PathRoots {
  std::string QuotelineDir;  ///< stands for c:\ql (whole component, any case)
  /// Folder with one folder a drive letter ("c", "d", ...); empty when there is none.
  std::string drives_dir;
  /// Folder with one link a drive ("c:", "d:", ...), looked at last; empty when there is none.
  std::string wine_devices_dir;
};

/// The roots that the environment gives: drives_dir is $VISTAPLOT_DRIVES, else vistaplot/drives in
/// the data folder; wine_devices_dir is ~/.wine/dosdevices. QuotelineDir
/// stays empty.
PathRoots RootsFromEnvironment();

/// The host's path of `text`.
///
/// Blanks at the end are dropped. A text that names something as it stands is taken so; else "\"
/// counts as "/". "c:\ql" is QuotelineDir; any other "X:" is the folder x below drives_dir, else
/// the link x: below wine_devices_dir; where neither exists the drive does not exist and the
/// result lies below drives_dir (or is the text itself), so that opening it fails by name.
/// Each component is matched exactly first, then ignoring case (first in name order); a last
/// component that is not there is taken as written.
std::string HostPath(std::string_view text, const PathRoots& roots);

/// The path of "A/B/C" below `folder`, which is taken as it stands: each component exactly, else
/// ignoring case (first in name order), else as written.
std::string PathIgnoringCase(const std::string& folder, std::string_view below);

// Where a user's files lie: the one answer to it, for both programs.

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
