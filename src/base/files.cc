#include "base/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "base/file_lock.h"
#include "base/text.h"

namespace vistaplot {

namespace {

namespace fs = std::filesystem;

bool ParentExists(const std::string& path) {
  const fs::path parent = fs::path(path).parent_path();
  return parent.empty() || FolderExists(parent.string());
}

// A name that is not there is 53; 76 when already its folder is not there.
RuntimeError FileError(int host_errno, const std::string& path) {
  if (host_errno == ENOENT && !ParentExists(path)) return MakeError(kErrorPathNotFound, path);
  return ErrorFromErrno(host_errno, path);
}

RuntimeError TooLarge(const std::string& path, std::size_t most) {
  return {.number = kErrorPathFileAccess,
          .description = "larger than " + std::to_string(most >> 20U) + " MiB",
          .subject = path};
}

// 0 or an errno; EFBIG where there are more than `most` bytes.
int ReadAll(int descriptor, std::size_t most, std::string& content) {
  constexpr std::size_t kBlock = 1U << 16U;
  std::size_t size = 0;
  while (size <= most) {
    if (content.size() - size < kBlock) content.resize(std::max(content.size() * 2, size + kBlock));
    const ssize_t got = ::read(descriptor, content.data() + size, content.size() - size);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return errno;
    if (got == 0) break;
    size += static_cast<std::size_t>(got);
  }
  content.resize(size);
  return size <= most ? 0 : EFBIG;
}

// Names of a folder's entries for which keep(entry) holds, case ignored in their order.
template <class Keep>
Result<std::vector<std::string>> ListNames(const std::string& folder, Keep keep) {
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  std::vector<std::string> names;
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    if (keep(*entry)) names.push_back(entry->path().filename().string());
  }
  if (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory) {
    return MakeError(kErrorPathNotFound, folder);
  }
  if (error) return MakeError(kErrorPathFileAccess, folder);
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    const int order = CompareIgnoringCase(a, b);
    return order != 0 ? order < 0 : a < b;
  });
  return names;
}

}  // namespace

Result<std::string> ReadWholeFile(const std::string& path, std::size_t most) {
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file.IsOpen()) return FileError(errno, path);
  std::string content;
  struct stat info {};
  int failed = 0;
  if (::fstat(file.Number(), &info) == 0 && S_ISREG(info.st_mode)) {
    const auto size = static_cast<std::size_t>(info.st_size);
    if (size > most) failed = EFBIG;
    // One byte block more, so that the end of the file is met without growing.
    if (failed == 0) content.resize(size + (1U << 16U));
  }
  if (failed == 0) failed = ReadAll(file.Number(), most, content);
  if (failed == EFBIG) return TooLarge(path, most);
  if (failed != 0) return FileError(failed, path);
  return content;
}

bool FileExists(const std::string& path) {
  std::error_code error;
  return fs::is_regular_file(path, error);
}

bool FolderExists(const std::string& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

Status MakeFolders(const std::string& path) {
  std::error_code error;
  fs::create_directories(path, error);
  if (!error && FolderExists(path)) return Done{};
  const RuntimeError known = ErrorFromErrno(error.value(), path);
  if (known.number == kErrorPermissionDenied || known.number == kErrorDiskFull) return known;
  return MakeError(kErrorPathFileAccess, path);
}

Result<std::vector<std::string>> ListFiles(const std::string& folder, std::string_view pattern) {
  return ListNames(folder, [pattern](const fs::directory_entry& entry) {
    std::error_code error;
    return entry.is_regular_file(error) &&
           MatchesPattern(entry.path().filename().native(), pattern);
  });
}

Result<std::vector<std::string>> ListFolders(const std::string& folder) {
  return ListNames(folder, [](const fs::directory_entry& entry) {
    std::error_code error;
    return entry.is_directory(error) && !entry.path().filename().native().starts_with('.');
  });
}

bool MatchesPattern(std::string_view name, std::string_view pattern) {
  if (pattern == "*.*") return true;
  // Where the last "*" stood and what it has swallowed so far.
  std::size_t star = std::string_view::npos;
  std::size_t swallowed = 0;
  std::size_t p = 0;
  std::size_t n = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      swallowed = n;
    } else if (p < pattern.size() && pattern[p] == '?') {
      n += LeftCharacters(name.substr(n), 1).size();
      ++p;
    } else if (p < pattern.size() && EqualsIgnoringCase(pattern.substr(p, 1), name.substr(n, 1))) {
      ++p;
      ++n;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      n = ++swallowed;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

std::string JoinPath(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.empty() && path.back() != '/') path += '/';
  path += name;
  return path;
}

}  // namespace vistaplot
