// One writer of a file at a time, over all programs: lock, read, change, write.
#pragma once

#include <string>

#include "base/descriptor.h"
#include "base/result.h"

namespace vistaplot {

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
