#include "base/text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace vistaplot {

namespace {

constexpr char32_t kInvalid = 0xFFFFFFFF;

// Code points of the bytes 0x80 to 0x9F; the five that Windows-1252 leaves undefined keep theirs.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}
constexpr char Upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

unsigned Byte(char c) {
  return static_cast<unsigned char>(c);
}

bool IsContinuation(char c) {
  return (Byte(c) & 0xC0U) == 0x80U;
}

constexpr bool IsBlank(char c) {
  return c == ' ';
}
constexpr bool IsWhite(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

std::string_view TrimRight(std::string_view text, bool is_dropped(char)) {
  std::size_t end = text.size();
  while (end > 0 && is_dropped(text[end - 1])) --end;
  return text.substr(0, end);
}

std::string_view Trim(std::string_view text, bool is_dropped(char)) {
  std::size_t begin = 0;
  while (begin < text.size() && is_dropped(text[begin])) ++begin;
  return TrimRight(text.substr(begin), is_dropped);
}

char32_t CodePointOfByte(char c) {
  const unsigned byte = Byte(c);
  return byte >= 0x80 && byte <= 0x9F ? char32_t{kWindows1252[byte - 0x80]} : char32_t{byte};
}

void AppendUtf8(std::string& text, char32_t code) {
  const auto tail = [code](int shift) {
    return static_cast<char>(0x80U | ((code >> shift) & 0x3FU));
  };
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += {static_cast<char>(0xC0U | (code >> 6)), tail(0)};
  } else if (code < 0x10000) {
    text += {static_cast<char>(0xE0U | (code >> 12)), tail(6), tail(0)};
  } else {
    text += {static_cast<char>(0xF0U | (code >> 18)), tail(12), tail(6), tail(0)};
  }
}

struct Decoded {
  char32_t code = kInvalid;
  std::size_t length = 1;
};

// The code point that starts `text`; kInvalid with length 1 where no well-formed sequence starts
// (over-long forms, surrogates and numbers past U+10FFFF are not well-formed).
Decoded DecodeUtf8(std::string_view text) {
  const unsigned lead = Byte(text[0]);
  if (lead < 0x80) return {lead, 1};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return {};
  char32_t code = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if (!IsContinuation(text[i])) return {};
    code = (code << 6) | (Byte(text[i]) & 0x3FU);
  }
  constexpr std::array<char32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  if (code < kLeast[length] || surrogate || code > 0x10FFFF) return {};
  return {code, length};
}

char ByteOfCodePoint(char32_t code) {
  if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return static_cast<char>(code);
  const auto found = std::find(kWindows1252.begin(), kWindows1252.end(), code);
  if (found == kWindows1252.end()) return '?';
  return static_cast<char>(0x80 + (found - kWindows1252.begin()));
}

void AppendJsonCharacter(std::string& json, char32_t code) {
  switch (code) {
    case '"':
      json += "\\\"";
      return;
    case '\\':
      json += "\\\\";
      return;
    case '\n':
      json += "\\n";
      return;
    case '\r':
      json += "\\r";
      return;
    case '\t':
      json += "\\t";
      return;
    default:
      break;
  }
  if (code < 0x20) {
    constexpr std::string_view kHex = "0123456789abcdef";
    json += "\\u00";
    json += kHex[code >> 4];
    json += kHex[code & 15U];
  } else {
    AppendUtf8(json, code);
  }
}

}  // namespace

std::string_view TrimBlanks(std::string_view text) {
  return Trim(text, IsBlank);
}

std::string_view TrimRightBlanks(std::string_view text) {
  return TrimRight(text, IsBlank);
}

std::string_view TrimWhite(std::string_view text) {
  return Trim(text, IsWhite);
}

std::string UpperCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), Upper);
  return result;
}

std::string LowerCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), Lower);
  return result;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && CompareIgnoringCase(a, b) == 0;
}

bool StartsWithIgnoringCase(std::string_view text, std::string_view prefix) {
  return EqualsIgnoringCase(text.substr(0, prefix.size()), prefix);
}

int CompareIgnoringCase(std::string_view a, std::string_view b) {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    const int difference =
        static_cast<int>(Byte(Lower(a[i]))) - static_cast<int>(Byte(Lower(b[i])));
    if (difference != 0) return difference;
  }
  return a.size() < b.size() ? -1 : a.size() > b.size() ? 1 : 0;
}

std::string PadRight(std::string_view text, std::size_t width) {
  std::string result(LeftCharacters(text, width));
  result.append(width - std::min(width, CharacterCount(result)), ' ');
  return result;
}

std::string_view LeftCharacters(std::string_view text, std::size_t count) {
  std::size_t characters = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (IsContinuation(text[i])) continue;
    if (characters == count) return text.substr(0, i);
    ++characters;
  }
  return text;
}

std::size_t CharacterCount(std::string_view text) {
  const auto tails = std::count_if(text.begin(), text.end(), IsContinuation);
  return text.size() - static_cast<std::size_t>(tails);
}

std::string_view UpToFirstDot(std::string_view name) {
  return name.substr(0, name.find('.'));
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = text.find(separator, start);
    if (end == std::string_view::npos) break;
    parts.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  parts.push_back(text.substr(start));
  return parts;
}

std::string_view WithoutByteOrderMark(std::string_view text) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  return text.starts_with(kMark) ? text.substr(kMark.size()) : text;
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const Decoded decoded = DecodeUtf8(text);
    if (decoded.code == kInvalid) return false;
    text.remove_prefix(decoded.length);
  }
  return true;
}

std::string Utf8FromWindows1252(std::string_view bytes) {
  // Most texts are ASCII from end to end.
  const auto is_wide = [](char c) { return Byte(c) >= 0x80; };
  const auto plain = std::find_if(bytes.begin(), bytes.end(), is_wide);
  std::string text;
  // Most others have two bytes; a text that grows would take twice the room for a while.
  text.reserve(bytes.size() + static_cast<std::size_t>(std::count_if(plain, bytes.end(), is_wide)));
  text.assign(bytes.begin(), plain);
  std::for_each(plain, bytes.end(), [&text](char c) { AppendUtf8(text, CodePointOfByte(c)); });
  return text;
}

std::string Windows1252FromUtf8(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  while (!text.empty()) {
    const Decoded decoded = DecodeUtf8(text);
    bytes += ByteOfCodePoint(decoded.code);
    text.remove_prefix(decoded.length);
  }
  return bytes;
}

std::string OneLine(std::string_view text, std::size_t most) {
  // Bytes that only continue characters would be cut nowhere.
  constexpr std::size_t kLongestCharacter = 4;
  std::string_view head = text.substr(0, kLongestCharacter * (most + 1));
  head = LeftCharacters(head, most);
  std::string line(head);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return Byte(c) < ' ' || c == 127; }, '?');
  if (head.size() < text.size()) line += "...";
  return line;
}

std::string ShownText(std::string_view text) {
  constexpr std::size_t kShown = 30;
  std::string shown = "\"";
  shown.append(OneLine(text, kShown));
  shown += '"';
  return shown;
}

std::string JsonQuoted(std::string_view text) {
  std::string json = "\"";
  json.reserve(text.size() + 2);
  while (!text.empty()) {
    const Decoded decoded = DecodeUtf8(text);
    AppendJsonCharacter(json, decoded.code == kInvalid ? CodePointOfByte(text[0]) : decoded.code);
    text.remove_prefix(decoded.length);
  }
  json += '"';
  return json;
}

void AppendCsvField(std::string& text, std::string_view field) {
  if (field.find_first_of(",\"\r\n") == std::string_view::npos) {
    text += field;
    return;
  }
  text += '"';
  for (const char c : field) {
    if (c == '"') text += '"';
    text += c;
  }
  text += '"';
}

CsvReader::CsvReader(std::string_view text) : text_(WithoutByteOrderMark(text)) {}

bool CsvReader::Next(std::vector<std::string>& fields) {
  fields.clear();
  if (at_ >= text_.size() || broken_) return false;
  for (;;) {
    fields.push_back(Field());
    if (broken_) return false;
    if (at_ >= text_.size()) return true;
    const char end = text_[at_++];
    if (end == ',') continue;
    if (end == '\r' && at_ < text_.size() && text_[at_] == '\n') ++at_;
    return true;
  }
}

std::string CsvReader::Field() {
  std::string field;
  if (at_ < text_.size() && text_[at_] == '"') field = QuotedField();
  // What follows a closing quote up to the comma belongs to the field, as spreadsheets read it.
  const std::size_t end = std::min(text_.find_first_of(",\r\n", at_), text_.size());
  field += text_.substr(at_, end - at_);
  at_ = end;
  return field;
}

std::string CsvReader::QuotedField() {
  std::string field;
  ++at_;
  for (;;) {
    const std::size_t quote = text_.find('"', at_);
    if (quote == std::string_view::npos) {
      broken_ = true;
      return field;
    }
    field += text_.substr(at_, quote - at_);
    at_ = quote + 1;
    if (at_ >= text_.size() || text_[at_] != '"') return field;
    field += '"';
    ++at_;
  }
}

}  // namespace vistaplot
