#include "quoteline/line_blocks.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "quoteline/csv_line.h"

namespace vistaplot {

namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 20U;
constexpr std::size_t kLongestLine = std::size_t{16} << 20U;
constexpr std::size_t kLargestPrices = std::size_t{2} << 30U;
constexpr const char* kTooLarge = "is larger than 2 GiB; a price file of that size is to be split";

// Length of the whole lines at the beginning of `bytes`. A carriage return at the very end may be
// half of a line end and does not count.
std::size_t WholeLines(std::string_view bytes) {
  std::size_t end = bytes.rfind('\n');
  if (end == std::string_view::npos && bytes.size() > 1) end = bytes.rfind('\r', bytes.size() - 2);
  return end == std::string_view::npos ? 0 : end + 1;
}

RuntimeError Refusal(const std::string& path, std::string why) {
  return {.number = kErrorPathFileAccess, .description = std::move(why), .subject = path};
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
      taken_(other.taken_),
      at_end_(other.at_end_),
      failure_(other.failure_),
      refusal_(std::move(other.refusal_)) {}

LineBlocks::~LineBlocks() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

Result<LineBlocks> LineBlocks::Open(const std::string& path) {
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return ErrorFromErrno(errno, path);
  struct stat info {};
  const bool known = ::fstat(descriptor, &info) == 0;
  const bool regular = known && S_ISREG(info.st_mode);
  LineBlocks blocks(path, descriptor, regular ? static_cast<std::size_t>(info.st_size) : 0);
  if (blocks.file_size_ > kLargestPrices) return Refusal(path, kTooLarge);
  const bool device = known && (S_ISCHR(info.st_mode) || S_ISBLK(info.st_mode));
  if (device && ::isatty(descriptor) == 0) return Refusal(path, "is a device, not a price file");
  return blocks;
}

bool LineBlocks::Fill() {
  while (!at_end_ && filled_ < buffer_.size()) {
    const ssize_t got = ::read(descriptor_, buffer_.data() + filled_, buffer_.size() - filled_);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) failure_ = errno;
    at_end_ = got <= 0;
    if (got > 0) filled_ += static_cast<std::size_t>(got);
    if (got > 0) taken_ += static_cast<std::size_t>(got);
  }
  if (taken_ > kLargestPrices) refusal_ = kTooLarge;
  return failure_ == 0 && refusal_.empty();
}

bool LineBlocks::Next() {
  std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(lines_),
            buffer_.begin() + static_cast<std::ptrdiff_t>(filled_),
            buffer_.begin());
  filled_ -= lines_;
  lines_ = 0;
  while (Fill()) {
    const std::string_view bytes = std::string_view(buffer_).substr(0, filled_);
    if (at_end_) filled_ = WithoutEndMark(bytes).size();
    lines_ = at_end_ ? filled_ : WholeLines(bytes);
    if (lines_ > 0 || at_end_) return lines_ > 0;
    if (buffer_.size() >= kLongestLine) {
      refusal_ = "is not a price file: a line of it is longer than 16 MiB";
      return false;
    }
    buffer_.resize(buffer_.size() * 2);
  }
  return false;
}

double LineBlocks::Share() const {
  const bool known = file_size_ > lines_ && lines_ > 0;
  return known ? static_cast<double>(lines_) / static_cast<double>(file_size_) : 1.0;
}

Status LineBlocks::Outcome() const {
  if (!refusal_.empty()) return Refusal(path_, refusal_);
  if (failure_ == 0) return Done{};
  return ErrorFromErrno(failure_, path_);
}

}  // namespace vistaplot
