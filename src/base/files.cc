#include "base/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "base/text.h"

namespace vistaplot {

namespace {

namespace fs = std::filesystem;

// Closes a file descriptor when the scope ends.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }

  // Closes early, because some file systems report a full disk only here. 0 or an errno.
  int Close() {
    const int closed = ::close(number_);
    number_ = -1;
    return closed == 0 ? 0 : errno;
  }

 private:
  int number_;
};

bool ParentExists(const std::string& path) {
  const fs::path parent = fs::path(path).parent_path();
  return parent.empty() || FolderExists(parent.string());
}

// A name that is not there is 53; 76 when already its folder is not there.
RuntimeError FileError(int host_errno, const std::string& path) {
  if (host_errno == ENOENT && !ParentExists(path)) return MakeError(kErrorPathNotFound, path);
  return ErrorFromErrno(host_errno, path);
}

// 0 or an errno.
int WriteAll(int descriptor, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = ::write(descriptor, content.data(), content.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

// 0 or an errno.
int ReadAll(int descriptor, std::string& content) {
  constexpr std::size_t kBlock = 1U << 16U;
  std::size_t size = 0;
  for (;;) {
    if (content.size() - size < kBlock) content.resize(std::max(content.size() * 2, size + kBlock));
    const ssize_t got = ::read(descriptor, content.data() + size, content.size() - size);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return errno;
    if (got == 0) break;
    size += static_cast<std::size_t>(got);
  }
  content.resize(size);
  return 0;
}

// The file that a link leads to, so that the link stays one; `path` itself otherwise.
std::string FinalTarget(const std::string& path) {
  std::error_code error;
  if (!fs::is_symlink(path, error)) return path;
  const fs::path target = fs::weakly_canonical(path, error);
  return error ? path : target.string();
}

// Why a file that is there may not be replaced: it is a folder, or protected against writing.
int ReplaceError(const std::string& target) {
  struct stat info {};
  if (::stat(target.c_str(), &info) != 0) return 0;
  if (S_ISDIR(info.st_mode)) return EISDIR;
  return ::access(target.c_str(), W_OK) == 0 ? 0 : errno;
}

// Writes the whole content to a new file with the rights of the file it will replace.
int WriteNewFile(const std::string& path, const std::string& target, std::string_view content) {
  Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
  if (!file.IsOpen()) return errno;
  struct stat old {};
  if (::stat(target.c_str(), &old) == 0 && ::fchmod(file.Number(), old.st_mode & 07777U) != 0) {
    return errno;
  }
  if (const int failed = WriteAll(file.Number(), content); failed != 0) return failed;
  if (::fsync(file.Number()) != 0) return errno;
  return file.Close();
}

// 0 or an errno. A leftover of the same name from a process that died is replaced.
int WriteBesideAndRename(const std::string& target, std::string_view content) {
  constexpr std::size_t kNameBytes = 200;  // leaves room for the ending in a name of 255 bytes
  const std::string name = fs::path(target).filename().string().substr(0, kNameBytes);
  const fs::path beside_path =
      fs::path(target).replace_filename(name + "." + std::to_string(::getpid()) + ".new");
  const std::string beside = beside_path.string();
  ::unlink(beside.c_str());
  int failed = WriteNewFile(beside, target, content);
  if (failed == 0 && ::rename(beside.c_str(), target.c_str()) != 0) failed = errno;
  if (failed != 0) ::unlink(beside.c_str());
  return failed;
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

Result<std::string> ReadWholeFile(const std::string& path) {
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file.IsOpen()) return FileError(errno, path);
  std::string content;
  struct stat info {};
  if (::fstat(file.Number(), &info) == 0 && S_ISREG(info.st_mode)) {
    // One byte block more, so that the end of the file is met without growing.
    content.resize(static_cast<std::size_t>(info.st_size) + (1U << 16U));
  }
  if (const int failed = ReadAll(file.Number(), content); failed != 0) {
    return FileError(failed, path);
  }
  return content;
}

Status WriteFileAtomically(const std::string& path, std::string_view content) {
  const std::string target = FinalTarget(path);
  int failed = ReplaceError(target);
  if (failed == 0) failed = WriteBesideAndRename(target, content);
  if (failed == ENOENT) return MakeError(kErrorPathNotFound, path);
  if (failed != 0) return ErrorFromErrno(failed, path);
  return Done{};
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
