// A file's bytes in blocks of whole lines. A block of a megabyte that is used again and again stays
// in the processor's cache, which a file read as a whole does not.
//
// What cannot be a file of prices is refused: a device (a terminal may be typed at), more than 2
// GiB, a line of more than 16 MiB. A Ctrl-Z behind the last line does not count.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/result.h"

namespace vistaplot {

class LineBlocks {
 public:
  /// Errors as the host's: 53, 70, 75, 76; 75 also for what is refused.
  static Result<LineBlocks> Open(const std::string& path);

  LineBlocks(LineBlocks&& other) noexcept;
  LineBlocks& operator=(LineBlocks&&) = delete;
  ~LineBlocks();

  /// Reads the next block; false at the end of the file and on a failure (see Outcome).
  bool Next();

  /// The block: whole lines with their ends; only the file's last line may lack its end. Valid
  /// until Next.
  std::string_view Lines() const { return std::string_view(buffer_).substr(0, lines_); }

  /// The part of the file that the block is, above 0 up to 1; 1 when the file's size is unknown.
  double Share() const;

  Status Outcome() const;

 private:
  LineBlocks(std::string path, int descriptor, std::size_t file_size);

  bool Fill();

  std::string path_;
  int descriptor_;
  std::size_t file_size_;
  std::string buffer_;
  std::size_t lines_ = 0;   // bytes of the block's whole lines
  std::size_t filled_ = 0;  // bytes read into the buffer
  std::size_t taken_ = 0;   // bytes read in all
  bool at_end_ = false;
  int failure_ = 0;      // errno
  std::string refusal_;  // why this is read no further
};

}  // namespace vistaplot
