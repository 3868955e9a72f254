#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/file_lock.h"
#include "base/files.h"
#include "base/number_text.h"

namespace vistaplot {

namespace {

namespace fs = std::filesystem;

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

// The open file of this program that `path` is the system's name of, as "/proc/self/fd/1" is.
std::optional<int> OpenFileNamed(const fs::path& path) {
  std::error_code error;
  const fs::path folder = fs::canonical(path.parent_path(), error);
  if (error || folder != "/proc/" + std::to_string(::getpid()) + "/fd") return std::nullopt;
  const auto number = WholeInteger(path.filename().string());
  if (!number || ::fcntl(static_cast<int>(*number), F_GETFD) < 0) return std::nullopt;
  return static_cast<int>(*number);
}

// Neither a regular file nor absent; folders are no business of this.
bool IsDevice(const std::string& target) {
  struct stat info {};
  return ::stat(target.c_str(), &info) == 0 && !S_ISREG(info.st_mode) && !S_ISDIR(info.st_mode);
}

// 0 or an errno.
int WriteIntoDevice(const std::string& path, std::string_view content) {
  Descriptor device(::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY));
  if (!device.IsOpen()) return errno;
  if (const int failed = WriteAll(device.Number(), content); failed != 0) return failed;
  return device.Close();
}

// Why a file that is there may not be replaced: it is a folder, or protected against writing.
int ReplaceError(const std::string& target) {
  struct stat info {};
  if (::stat(target.c_str(), &info) != 0) return 0;
  if (S_ISDIR(info.st_mode)) return EISDIR;
  return ::access(target.c_str(), W_OK) == 0 ? 0 : errno;
}

// What the names of a target's drafts begin with: "NAME."; behind it digits, "-", ".new".
std::string DraftStem(const fs::path& target) {
  constexpr std::size_t kNameBytes = 200;  // leaves room for the ending in a name of 255 bytes
  return target.filename().string().substr(0, kNameBytes) + ".";
}

constexpr std::string_view kDraftEnding = ".new";

bool IsDraftName(std::string_view name, std::string_view stem) {
  if (!name.starts_with(stem) || !name.ends_with(kDraftEnding)) return false;
  if (name.size() <= stem.size() + kDraftEnding.size()) return false;
  const auto middle = name.substr(stem.size(), name.size() - stem.size() - kDraftEnding.size());
  return middle.find_first_not_of("0123456789-") == std::string_view::npos;
}

// A live writer holds a lock on its draft, which ends with the program.
void RemoveIfLeftOver(const std::string& path) {
  const Descriptor draft(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
  if (!draft.IsOpen() || ::flock(draft.Number(), LOCK_EX | LOCK_NB) != 0) return;
  struct stat info {};
  const bool ours = ::fstat(draft.Number(), &info) == 0 && S_ISREG(info.st_mode) &&
                    info.st_uid == ::geteuid() && IsStillNamed(draft, path);
  if (ours) ::unlink(path.c_str());
}

void RemoveLeftDrafts(const fs::path& target) {
  const std::string stem = DraftStem(target);
  const fs::path folder = target.parent_path().empty() ? fs::path(".") : target.parent_path();
  std::error_code error;
  for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    if (IsDraftName(entry->path().filename().native(), stem)) RemoveIfLeftOver(entry->path());
  }
}

struct Draft {
  Descriptor file;
  std::string path;
};

// A new draft that is locked; 0 or an errno. Between making and locking it another writer may take
// it for a left-over one: then the next is made.
int MakeDraft(const fs::path& target, Draft& draft) {
  constexpr int kMost = 1000;
  for (int number = 0; number < kMost; ++number) {
    std::string name = DraftStem(target) + std::to_string(::getpid());
    if (number > 0) name.append("-").append(std::to_string(number));
    draft.path = fs::path(target).replace_filename(name.append(kDraftEnding)).string();
    draft.file =
        Descriptor(::open(draft.path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!draft.file.IsOpen() && errno == EEXIST) continue;
    if (!draft.file.IsOpen()) return errno;
    ::flock(draft.file.Number(), LOCK_EX);  // where there are no locks nobody removes drafts
    if (IsStillNamed(draft.file, draft.path)) return 0;
  }
  return EEXIST;
}

// Writes the content with the rights of the file that it will replace. 0 or an errno.
int FillDraft(Draft& draft, const std::string& target, std::string_view content) {
  struct stat old {};
  const int file = draft.file.Number();
  if (::stat(target.c_str(), &old) == 0 && ::fchmod(file, old.st_mode & 07777U) != 0) return errno;
  if (const int failed = WriteAll(file, content); failed != 0) return failed;
  return ::fsync(file) == 0 ? 0 : errno;
}

// 0 or an errno.
int WriteBesideAndRename(const std::string& target, std::string_view content) {
  RemoveLeftDrafts(target);
  Draft draft;
  if (const int failed = MakeDraft(target, draft); failed != 0) return failed;
  int failed = FillDraft(draft, target, content);
  // Renamed while it is locked, so that no other writer takes it for a left-over one.
  if (failed == 0 && ::rename(draft.path.c_str(), target.c_str()) != 0) failed = errno;
  if (failed != 0) ::unlink(draft.path.c_str());
  return failed;
}

int WriteTarget(const std::string& target, std::string_view content) {
  if (const auto open_file = OpenFileNamed(target)) return WriteAll(*open_file, content);
  if (IsDevice(target)) return WriteIntoDevice(target, content);
  if (const int failed = ReplaceError(target); failed != 0) return failed;
  return WriteBesideAndRename(target, content);
}

}  // namespace

std::string LinkTarget(const std::string& path) {
  constexpr int kMostLinks = 40;  // the system's own limit
  fs::path target = path;
  for (int links = 0; links < kMostLinks && !OpenFileNamed(target); ++links) {
    std::error_code error;
    const fs::path next = fs::read_symlink(target, error);
    if (error) break;
    target = target.parent_path() / next;
  }
  return target.string();
}

Status WriteFileAtomically(const std::string& path, std::string_view content) {
  const int failed = WriteTarget(LinkTarget(path), content);
  if (failed == ENOENT) return MakeError(kErrorPathNotFound, path);
  if (failed != 0) return ErrorFromErrno(failed, path);
  return Done{};
}

}  // namespace vistaplot
