#include "base/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <thread>

#include "base/files.h"

namespace vistaplot {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kPatience(5000);
constexpr milliseconds kPause(10);

bool IsRegular(const Descriptor& file) {
  struct stat info {};
  return ::fstat(file.Number(), &info) == 0 && S_ISREG(info.st_mode);
}

// False while another program holds the lock.
bool Lock(const Descriptor& file) {
  while (::flock(file.Number(), LOCK_EX | LOCK_NB) != 0) {
    if (errno != EINTR) return errno != EWOULDBLOCK;
  }
  return true;
}

Descriptor OpenOrMake(const std::string& path) {
  const int there = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (there >= 0 || errno != ENOENT) return Descriptor(there);
  return Descriptor(::open(path.c_str(), O_RDONLY | O_CREAT | O_CLOEXEC, 0666));
}

}  // namespace

bool IsStillNamed(const Descriptor& file, const std::string& path) {
  struct stat open_one {};
  struct stat named {};
  return ::fstat(file.Number(), &open_one) == 0 && ::stat(path.c_str(), &named) == 0 &&
         open_one.st_ino == named.st_ino && open_one.st_dev == named.st_dev;
}

Result<FileLock> FileLock::Take(const std::string& path) {
  const std::string target = LinkTarget(path);
  // The holder before may have put another file in this one's place: then that one is to be locked.
  for (milliseconds waited(0); waited <= kPatience; waited += kPause) {
    Descriptor file = OpenOrMake(target);
    if (!file.IsOpen()) {
      return ErrorFromErrno(errno == ENOENT ? ENOTDIR : errno, path);
    }
    if (!IsRegular(file)) return FileLock(Descriptor());
    if (!Lock(file)) {
      std::this_thread::sleep_for(kPause);
    } else if (IsStillNamed(file, target)) {
      return FileLock(std::move(file));
    }
  }
  return RuntimeError{.number = kErrorPermissionDenied,
                      .description = "another program keeps it locked",
                      .subject = path};
}

}  // namespace vistaplot
