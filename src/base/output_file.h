// A file that is written piece by piece, beside its target, and takes the target's name when it is
// done. Paths are the host's.
#pragma once

#include <string>

#include "base/file_lock.h"
#include "base/result.h"

namespace vistaplot {

/// Until Finish the old file is whole; a file that is given up leaves nothing behind, and drafts of
/// writers that were killed are removed. A link stays, the file that it leads to is replaced. What
/// is no regular file (a device, a pipe) is written into, and so is the open file that
/// "/dev/stdout" or "/dev/fd/N" stands for, behind what was written there already.
class OutputFile {
 public:
  /// Errors 70, 75, 76 as the host's; 53 for an empty path.
  static Result<OutputFile> Create(const std::string& path);

  OutputFile() = default;  ///< not open; all calls do nothing
  OutputFile(OutputFile&& other) noexcept;
  OutputFile& operator=(OutputFile&& other) noexcept;
  ~OutputFile();

  bool IsOpen() const { return file_.IsOpen(); }

  /// True while both would take the name of one file, so that one of them would be lost.
  bool SharesTarget(const OutputFile& other) const {
    return !draft_.empty() && !other.draft_.empty() && target_ == other.target_;
  }

  /// What is still to be written; append to it.
  std::string& Bytes() { return bytes_; }

  /// Writes out what Bytes holds once that is much. Error 61 and others.
  Status Spill();

  /// Writes the rest, syncs it and puts the file in its place. On failure the old file stays.
  Status Finish();

 private:
  Status WriteOut();
  void GiveUp();

  Descriptor file_;
  std::string path_;    ///< as given
  std::string target_;  ///< behind links
  std::string draft_;   ///< empty: the target itself is written into
  std::string bytes_;
};

}  // namespace vistaplot
