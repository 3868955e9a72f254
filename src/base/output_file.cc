#include "base/output_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

namespace vistaplot {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMuch = std::size_t{1} << 20U;

// The file that a link leads to; `path` itself otherwise.
std::string BehindLinks(const std::string& path) {
  std::error_code error;
  if (!fs::is_symlink(path, error)) return path;
  const fs::path target = fs::weakly_canonical(path, error);
  return error ? path : target.string();
}

// Opens a draft that is not there yet, under the names that writers of whole files use as well, and
// locks it as they do. -1 and errno when it cannot be made.
int OpenDraft(const std::string& target, std::string& draft) {
  constexpr int kMost = 1000;
  constexpr std::size_t kNameBytes = 200;  // leaves room for the ending in a name of 255 bytes
  const std::string stem = fs::path(target).filename().string().substr(0, kNameBytes) + "." +
                           std::to_string(::getpid()) + "-";
  for (int number = 0; number < kMost; ++number) {
    draft = fs::path(target).replace_filename(stem + std::to_string(number) + ".new").string();
    const int file = ::open(draft.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file >= 0) ::flock(file, LOCK_EX);
    if (file >= 0 || errno != EEXIST) return file;
  }
  return -1;
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

// The folder of the file is missing, not the file.
RuntimeError CreateError(int host_errno, const std::string& path) {
  if (host_errno == ENOENT && !path.empty()) return MakeError(kErrorPathNotFound, path);
  return ErrorFromErrno(host_errno, path);
}

}  // namespace

Result<OutputFile> OutputFile::Create(const std::string& path) {
  OutputFile file;
  file.path_ = path;
  file.target_ = BehindLinks(path);
  struct stat old {};
  const bool exists = ::stat(file.target_.c_str(), &old) == 0;
  if (path.empty()) return CreateError(ENOENT, path);
  if (exists && S_ISDIR(old.st_mode)) return CreateError(EISDIR, path);
  if (exists && ::access(file.target_.c_str(), W_OK) != 0) return CreateError(errno, path);
  file.descriptor_ = exists && !S_ISREG(old.st_mode)
                         ? ::open(file.target_.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY)
                         : OpenDraft(file.target_, file.draft_);
  if (!file.IsOpen()) return CreateError(errno, path);
  if (exists && !file.draft_.empty()) ::fchmod(file.descriptor_, old.st_mode & 07777U);
  return file;
}

OutputFile::OutputFile(OutputFile&& other) noexcept {
  *this = std::move(other);
}

OutputFile& OutputFile::operator=(OutputFile&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
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
  return bytes_.size() >= kMuch ? WriteOut() : Status(Done{});
}

Status OutputFile::WriteOut() {
  if (!IsOpen()) return Done{};
  const int failed = WriteAll(descriptor_, bytes_);
  bytes_.clear();
  if (failed != 0) return ErrorFromErrno(failed, path_);
  return Done{};
}

Status OutputFile::Finish() {
  if (!IsOpen()) return Done{};
  Status written = WriteOut();
  if (!written) {
    GiveUp();
    return written;
  }
  int failed = 0;
  // Renamed while it is locked, so that no other writer takes the draft for a left-over one.
  if (!draft_.empty() && ::rename(draft_.c_str(), target_.c_str()) != 0) failed = errno;
  if (failed == 0) draft_.clear();
  if (::close(std::exchange(descriptor_, -1)) != 0 && failed == 0) failed = errno;
  if (failed != 0) GiveUp();
  if (failed != 0) return ErrorFromErrno(failed, path_);
  return Done{};
}

void OutputFile::GiveUp() {
  if (!draft_.empty()) ::unlink(draft_.c_str());
  if (IsOpen()) ::close(std::exchange(descriptor_, -1));
  draft_.clear();
}

}  // namespace vistaplot
