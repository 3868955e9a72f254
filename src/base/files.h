// Host files: read whole, written whole (file_writing.cc), listed by pattern.
// Paths here are the host's; texts that users type go through base/host_path.h first.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace vistaplot {

/// Far more than any file that is read as a whole; a device that never ends is told by it.
inline constexpr std::size_t kLargestFile = std::size_t{256} << 20U;

/// All bytes of a file, pipe or device. Errors 53, 76, 70, 75 as the host's; a folder is 75, and so
/// is what has more than `most` bytes, "larger than N MiB".
Result<std::string> ReadWholeFile(const std::string& path, std::size_t most = kLargestFile);

/// Replaces a file's content in one step, as an OutputFile does: written to a draft beside the
/// target, synced, renamed. On failure the old file is whole and nothing is left behind. Errors 53,
/// 61, 70, 75, 76.
Status WriteFileAtomically(const std::string& path, std::string_view content);

/// The path that the links in the last component of `path` lead to; nothing need be there. Folders
/// on the way stay as written.
std::string LinkTarget(const std::string& path);

bool FileExists(const std::string& path);    ///< a regular file (or a link to one)
bool FolderExists(const std::string& path);  ///< a folder (or a link to one)

/// Makes a folder and those above it. Errors 75, 70.
Status MakeFolders(const std::string& path);

/// Names (not paths) of a folder's regular files that match `pattern` ("*" and "?", case ignored;
/// "*.*" matches every name), in ascending order with case ignored. Error 76 when there is no such
/// folder, 75 when it cannot be read.
Result<std::vector<std::string>> ListFiles(const std::string& folder, std::string_view pattern);

/// Names of the folders in a folder, in the same order; hidden ones left out. Errors as above.
Result<std::vector<std::string>> ListFolders(const std::string& folder);

/// True when `name` matches a pattern of "*" and "?" as ListFiles reads it.
bool MatchesPattern(std::string_view name, std::string_view pattern);

/// folder + "/" + name, without a second "/" where the folder ends in one.
std::string JoinPath(std::string_view folder, std::string_view name);

}  // namespace vistaplot
