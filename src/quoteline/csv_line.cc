#include "quoteline/csv_line.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "base/text.h"

namespace vistaplot {

namespace {

constexpr int kFirstYear = 1900;

// The number that `text` is, digits alone; -1 when it is none.
int Digits(std::string_view text) {
  int number = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return -1;
    number = number * 10 + (c - '0');
  }
  return text.empty() ? -1 : number;
}

std::optional<CivilDate> IsoDate(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  return CivilDate{.year = Digits(text.substr(0, 4)),
                   .month = Digits(text.substr(5, 2)),
                   .day = Digits(text.substr(8, 2))};
}

std::optional<CivilDate> MonthFirstDate(std::string_view text) {
  const std::size_t first = text.find('/');
  if (first == std::string_view::npos || first > 2) return std::nullopt;
  const std::size_t second = text.find('/', first + 1);
  if (second == std::string_view::npos || second - first > 3 || text.size() - second != 5) {
    return std::nullopt;
  }
  return CivilDate{.year = Digits(text.substr(second + 1)),
                   .month = Digits(text.substr(0, first)),
                   .day = Digits(text.substr(first + 1, second - first - 1))};
}

// A day of the calendar, of any year.
std::optional<CivilDate> WrittenDate(std::string_view text) {
  auto date = IsoDate(text);
  if (!date) date = MonthFirstDate(text);
  return date && IsValidDate(*date) ? date : std::nullopt;
}

}  // namespace

std::string_view CsvCursor::NextField() {
  while (at_ != end_ && (*at_ == ' ' || (*at_ == '\t' && delimiter_ != '\t'))) ++at_;
  if (at_ != end_ && *at_ == '"') return QuotedField();
  const char* start = at_;
  while (at_ != end_ && *at_ != delimiter_ && !IsLineEnd(*at_)) ++at_;
  const std::string_view field(start, static_cast<std::size_t>(at_ - start));
  PassDelimiter();
  return TrimWhite(field);
}

std::string_view CsvCursor::QuotedField() {
  const char* const start = at_;
  bool closed = false;
  unquoted_.clear();
  ++at_;
  while (at_ != end_ && !IsLineEnd(*at_)) {
    if (*at_ == '"') {
      ++at_;
      closed = at_ == end_ || *at_ != '"';  // else a doubled quote
      if (closed) break;
    }
    unquoted_ += *at_++;
  }
  const char* const behind = at_;
  while (at_ != end_ && *at_ != delimiter_ && !IsLineEnd(*at_)) ++at_;
  const std::string_view rest(behind, static_cast<std::size_t>(at_ - behind));
  const std::string_view whole(start, static_cast<std::size_t>(at_ - start));
  PassDelimiter();
  return closed && TrimWhite(rest).empty() ? TrimWhite(unquoted_) : TrimWhite(whole);
}

void CsvCursor::NextLine() {
  while (at_ != end_ && !IsLineEnd(*at_)) ++at_;
  if (at_ != end_) {
    const bool two = *at_ == '\r' && at_ + 1 != end_ && at_[1] == '\n';
    at_ += two ? 2 : 1;
    ++line_;
  }
  line_done_ = false;
}

void CsvCursor::SkipEmptyLines() {
  while (at_ != end_) {
    const char* place = at_;
    while (place != end_ && (*place == ' ' || *place == delimiter_)) ++place;
    if (place != end_ && !IsLineEnd(*place)) return;
    at_ = place;
    if (place == end_) return;
    NextLine();
  }
}

std::optional<DateSerial> PriceDate(std::string_view text) {
  const auto date = WrittenDate(text);
  if (!date || date->year < kFirstYear) return std::nullopt;
  return SerialFromDate(*date);
}

std::string DateFault(std::string_view text) {
  if (TrimWhite(text).empty()) return "the date is missing";
  const char* fault = WrittenDate(text) ? " lies before 1900, where dates begin"
                                        : " is not a date (YYYY-MM-DD or M/D/YYYY)";
  return ShownText(text) + fault;
}

std::string_view WithoutEndMark(std::string_view bytes) {
  constexpr char kEndMark = 26;
  const std::size_t last = bytes.find_last_not_of(kEndMark);
  return bytes.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

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
