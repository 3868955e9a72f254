#include "quoteline/line_blocks.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace vistaplot {

namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 20U;

// Length of the whole lines at the beginning of `bytes`. A carriage return at the very end may be
// half of a line end and does not count.
std::size_t WholeLines(std::string_view bytes) {
  std::size_t end = bytes.rfind('\n');
  if (end == std::string_view::npos && bytes.size() > 1) end = bytes.rfind('\r', bytes.size() - 2);
  return end == std::string_view::npos ? 0 : end + 1;
}

}  // namespace

LineBlocks::LineBlocks(std::string path, int descriptor, std::size_t file_size)
    : path_(std::move(path)),
      descriptor_(descriptor),
      file_size_(file_size),
      buffer_(kBlockSize, '\0') {}

LineBlocks::LineBlocks(LineBlocks&& other) noexcept
    : path_(std::move(other.path_)),
      descriptor_(std::exchange(other.descriptor_, -1)),
      file_size_(other.file_size_),
      buffer_(std::move(other.buffer_)),
      lines_(other.lines_),
      filled_(other.filled_),
      at_end_(other.at_end_),
      failure_(other.failure_) {}

LineBlocks::~LineBlocks() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

Result<LineBlocks> LineBlocks::Open(const std::string& path) {
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return ErrorFromErrno(errno, path);
  struct stat info {};
  const bool known = ::fstat(descriptor, &info) == 0 && S_ISREG(info.st_mode);
  return LineBlocks(path, descriptor, known ? static_cast<std::size_t>(info.st_size) : 0);
}

bool LineBlocks::Fill() {
  while (!at_end_ && filled_ < buffer_.size()) {
    const ssize_t got = ::read(descriptor_, buffer_.data() + filled_, buffer_.size() - filled_);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) failure_ = errno;
    at_end_ = got <= 0;
    if (got > 0) filled_ += static_cast<std::size_t>(got);
  }
  return failure_ == 0;
}

bool LineBlocks::Next() {
  std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(lines_),
            buffer_.begin() + static_cast<std::ptrdiff_t>(filled_),
            buffer_.begin());
  filled_ -= lines_;
  lines_ = 0;
  while (Fill() && filled_ > 0) {
    const std::string_view bytes = std::string_view(buffer_).substr(0, filled_);
    lines_ = at_end_ ? filled_ : WholeLines(bytes);
    if (lines_ > 0) return true;
    buffer_.resize(buffer_.size() * 2);
  }
  return false;
}

double LineBlocks::Share() const {
  const bool known = file_size_ > lines_ && lines_ > 0;
  return known ? static_cast<double>(lines_) / static_cast<double>(file_size_) : 1.0;
}

Status LineBlocks::Outcome() const {
  if (failure_ == 0) return Done{};
  return ErrorFromErrno(failure_, path_);
}

}  // namespace vistaplot
