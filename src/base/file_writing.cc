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
#include "base/output_file.h"

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

// A new draft that is locked, its name in `path`; not open, with errno, when it cannot be made.
// Between making and locking it another writer may take it for a left-over one: then the next is
// made.
Descriptor MakeDraft(const fs::path& target, std::string& path) {
  constexpr int kMost = 1000;
  for (int number = 0; number < kMost; ++number) {
    std::string name = DraftStem(target) + std::to_string(::getpid());
    if (number > 0) name.append("-").append(std::to_string(number));
    path = fs::path(target).replace_filename(name.append(kDraftEnding)).string();
    Descriptor draft(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!draft.IsOpen() && errno == EEXIST) continue;
    if (!draft.IsOpen()) return draft;
    ::flock(draft.Number(), LOCK_EX);  // where there are no locks nobody removes drafts
    if (IsStillNamed(draft, path)) return draft;
  }
  errno = EEXIST;
  return {};
}

// Gives a draft the rights of the file that it will replace. 0 or an errno.
int TakeRights(const Descriptor& draft, const std::string& target) {
  struct stat old {};
  if (::stat(target.c_str(), &old) != 0) return 0;
  return ::fchmod(draft.Number(), old.st_mode & 07777U) == 0 ? 0 : errno;
}

// The folder of the file is missing, not the file.
RuntimeError WritingError(int host_errno, const std::string& path) {
  if (host_errno == ENOENT && !path.empty()) return MakeError(kErrorPathNotFound, path);
  return ErrorFromErrno(host_errno, path);
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

Result<OutputFile> OutputFile::Create(const std::string& path) {
  OutputFile file;
  file.path_ = path;
  file.target_ = LinkTarget(path);
  int failed = path.empty() ? ENOENT : 0;
  if (const auto open_file = OpenFileNamed(file.target_)) {
    file.file_ = Descriptor(::fcntl(*open_file, F_DUPFD_CLOEXEC, 0));
  } else if (IsDevice(file.target_)) {
    file.file_ = Descriptor(::open(file.target_.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY));
  } else if (failed == 0 && (failed = ReplaceError(file.target_)) == 0) {
    RemoveLeftDrafts(file.target_);
    file.file_ = MakeDraft(file.target_, file.draft_);
    if (file.IsOpen()) failed = TakeRights(file.file_, file.target_);
  }
  if (failed == 0 && !file.IsOpen()) failed = errno;
  if (failed != 0) return WritingError(failed, path);
  return file;
}

OutputFile::OutputFile(OutputFile&& other) noexcept {
  *this = std::move(other);
}

OutputFile& OutputFile::operator=(OutputFile&& other) noexcept {
  std::swap(file_, other.file_);
  path_.swap(other.path_);
  target_.swap(other.target_);
  draft_.swap(other.draft_);
  bytes_.swap(other.bytes_);
  return *this;
}

OutputFile::~OutputFile() {
  GiveUp();
}

Status OutputFile::Spill() {
  constexpr std::size_t kMuch = std::size_t{1} << 20U;
  return bytes_.size() >= kMuch ? WriteOut() : Status(Done{});
}

Status OutputFile::WriteOut() {
  if (!IsOpen()) return Done{};
  const int failed = WriteAll(file_.Number(), bytes_);
  bytes_.clear();
  if (failed != 0) return ErrorFromErrno(failed, path_);
  return Done{};
}

Status OutputFile::Finish() {
  if (!IsOpen()) return Done{};
  if (Status written = WriteOut(); !written) {
    GiveUp();
    return written;
  }
  int failed = 0;
  if (!draft_.empty() && ::fsync(file_.Number()) != 0) failed = errno;
  // Renamed while it is locked, so that no other writer takes the draft for a left-over one.
  if (failed == 0 && !draft_.empty() && ::rename(draft_.c_str(), target_.c_str()) != 0) {
    failed = errno;
  }
  if (failed == 0) draft_.clear();
  if (const int closed = file_.Close(); failed == 0) failed = closed;
  GiveUp();
  if (failed != 0) return WritingError(failed, path_);
  return Done{};
}

void OutputFile::GiveUp() {
  if (!draft_.empty()) ::unlink(draft_.c_str());
  draft_.clear();
  file_ = Descriptor();
}

Status WriteFileAtomically(const std::string& path, std::string_view content) {
  Result<OutputFile> file = OutputFile::Create(path);
  if (!file) return file.Error();
  file.Value().Bytes() = content;
  return file.Value().Finish();
}

}  // namespace vistaplot
