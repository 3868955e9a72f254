// Lines and fields of comma-separated text in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/date.h"
#include "base/result.h"

namespace vistaplot {

/// Walks over the lines of a text and the fields of each line. Fields may be quoted; a quoted
/// field ends with its line at the latest. One that is not closed, or goes on behind its closing
/// quote, keeps its quotes and so is no date, price or symbol. Lines end with CR LF, LF or CR.
class CsvCursor {
 public:
  /// `line` is the number of the first line in `bytes`.
  CsvCursor(std::string_view bytes, char delimiter, std::uint32_t line = 1)
      : at_(bytes.data()), end_(bytes.data() + bytes.size()), delimiter_(delimiter), line_(line) {}

  bool AtEnd() const { return at_ == end_; }
  std::uint32_t Line() const { return line_; }  ///< of the next field, from 1

  /// True where the line ends: no further field stands on it.
  bool AtLineEnd() const { return line_done_; }

  /// The next field of the line, blanks and tabs around it dropped, quotes taken away. Valid until
  /// the next call. REQUIRES: !AtLineEnd().
  std::string_view NextField();

  /// Goes on to the next line.
  void NextLine();

  /// Passes over empty lines: those of blanks and delimiters alone, as spreadsheets leave them.
  void SkipEmptyLines();

  // For readers of their own: the place of the next field, the bytes left, and the way past a
  // field of `length` bytes that a delimiter or an end of line follows.
  const char* Place() const { return at_; }
  std::size_t Left() const { return static_cast<std::size_t>(end_ - at_); }
  void PassField(std::size_t length) {
    at_ += length;
    PassDelimiter();
  }

 private:
  static bool IsLineEnd(char c) { return c == '\n' || c == '\r'; }
  void PassDelimiter() {
    if (at_ != end_ && *at_ == delimiter_) {
      ++at_;
    } else {
      line_done_ = true;
    }
  }
  std::string_view QuotedField();

  const char* at_;
  const char* end_;
  char delimiter_;
  bool line_done_ = false;
  std::uint32_t line_;
  std::string unquoted_;
};

/// A date written YYYY-MM-DD or M/D/YYYY, from 1 January 1900 on.
std::optional<DateSerial> PriceDate(std::string_view text);

/// What keeps PriceDate from taking `text`, for a message.
std::string DateFault(std::string_view text);

/// `bytes` without the Ctrl-Z (26) that older programs put behind a text's end.
std::string_view WithoutEndMark(std::string_view bytes);

// A file's bytes in blocks of whole lines. A block of a megabyte that is used again and again stays
// in the processor's cache, which a file read as a whole does not.
//
// What cannot be a file of prices is refused: a device (a terminal may be typed at), more than 2
// GiB, a line of more than 16 MiB. A Ctrl-Z behind the last line does not count.

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
