// One writer of a file at a time, over all programs: lock, read, change, write.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

#include "base/result.h"

namespace vistaplot {

// An open file of the host that closes with its scope.

class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }

  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }

  /// Closes early, because some file systems report a full disk only here. 0 or an errno.
  int Close() {
    const int closed = ::close(std::exchange(number_, -1));
    return closed == 0 ? 0 : errno;
  }

 private:
  int number_ = -1;
};

/// The right to change a file. It ends with the object, and with the program however that ends.
///
/// The lock lies on the file itself, so it holds for whoever replaces that file in one step, too.
/// A device or pipe, and a file system that knows no locks, are taken as locked at once.
class FileLock {
 public:
  /// Waits up to five seconds for another holder, then fails with error 70. A file that is not
  /// there is made, empty; its folder must be there. `path` may be a link: its target is locked.
  static Result<FileLock> Take(const std::string& path);

 private:
  explicit FileLock(Descriptor file) : file_(std::move(file)) {}

  Descriptor file_;
};

/// True while `path` still names the file that `file` has open.
bool IsStillNamed(const Descriptor& file, const std::string& path);

}  // namespace vistaplot
