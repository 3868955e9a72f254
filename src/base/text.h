// Small text operations. Texts are UTF-8; upper case and comparison fold ASCII letters only.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vistaplot {

/// Blanks (character 32 only) dropped at both ends, or at one.
std::string_view TrimBlanks(std::string_view text);
std::string_view TrimRightBlanks(std::string_view text);

/// Blanks, tabs, carriage returns and line feeds dropped at both ends.
std::string_view TrimWhite(std::string_view text);

std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);
bool EqualsIgnoringCase(std::string_view a, std::string_view b);
bool StartsWithIgnoringCase(std::string_view text, std::string_view prefix);

/// Less than, equal or greater than 0 as a sorts before, with or after b, letters folded.
int CompareIgnoringCase(std::string_view a, std::string_view b);

/// Cut or padded with blanks on the right to exactly `width` characters (UTF-8 code points).
std::string PadRight(std::string_view text, std::size_t width);

/// The first `count` characters (UTF-8 code points); the whole text when it is shorter.
std::string_view LeftCharacters(std::string_view text, std::size_t count);

/// Number of characters (UTF-8 code points).
std::size_t CharacterCount(std::string_view text);

/// Everything before the first "." (a file's name without its extensions).
std::string_view UpToFirstDot(std::string_view name);

std::vector<std::string_view> Split(std::string_view text, char separator);

/// `text` without the byte-order mark that editors put ahead of UTF-8.
std::string_view WithoutByteOrderMark(std::string_view text);

/// True for well-formed UTF-8 (no over-long forms, no surrogates).
bool IsUtf8(std::string_view text);

/// Windows-1252, the single-byte text of files, to UTF-8 and back; what the byte form cannot hold
/// becomes "?". Bytes that Windows-1252 leaves undefined keep their number as a code point.
std::string Utf8FromWindows1252(std::string_view bytes);
std::string Windows1252FromUtf8(std::string_view text);

/// `text` as part of a message of one line: control characters as "?", cut to `most` characters
/// and "..." when it is longer.
std::string OneLine(std::string_view text, std::size_t most = 1000);

/// The same of 30 characters, in double quotes.
std::string ShownText(std::string_view text);

/// `text` as the inside and the quotes of a JSON string. Bytes that are no UTF-8 are read as
/// Windows-1252, so that the result is always valid.
std::string JsonQuoted(std::string_view text);

// Comma-separated values as RFC 4180 has them.

/// `field` as it stands in a line: in quotes when it holds a comma, a quote or an end of line.
void AppendCsvField(std::string& text, std::string_view field);

/// Reads records one after the other; lines may end with CR LF, LF or CR, a byte-order mark is
/// skipped.
class CsvReader {
 public:
  explicit CsvReader(std::string_view text);

  /// The next record's fields; false at the end, or where a quote is not closed (then Broken).
  bool Next(std::vector<std::string>& fields);
  bool Broken() const { return broken_; }

 private:
  std::string Field();
  std::string QuotedField();

  std::string_view text_;
  std::size_t at_ = 0;
  bool broken_ = false;
};

}  // namespace vistaplot
