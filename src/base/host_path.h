// The one mapping from a text that names a file (old style "C:\QL\SIG\A.SIG" or the host's) to a
// path of this host. Used at the moment when a file is opened, created, listed or tested.
#pragma once

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
/// the data folder (base/user_folders.h); wine_devices_dir is ~/.wine/dosdevices. QuotelineDir
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

}  // namespace vistaplot
