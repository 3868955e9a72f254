#include "batch/json_reader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "base/number_text.h"

namespace vistaplot {

namespace {

constexpr int kDeepest = 64;
constexpr std::string_view kWhite = " \t\r\n";

/// Thrown inside this file alone.
struct Fault {
  const char* what;
};

void AppendCodePoint(std::string& text, std::uint32_t code) {
  const auto add = [&text](std::uint32_t byte) { text += static_cast<char>(byte); };
  if (code < 0x80) {
    add(code);
  } else if (code < 0x800) {
    add(0xC0 | (code >> 6));
    add(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    add(0xE0 | (code >> 12));
    add(0x80 | ((code >> 6) & 0x3F));
    add(0x80 | (code & 0x3F));
  } else {
    add(0xF0 | (code >> 18));
    add(0x80 | ((code >> 12) & 0x3F));
    add(0x80 | ((code >> 6) & 0x3F));
    add(0x80 | (code & 0x3F));
  }
}

class Parser {
 public:
  explicit Parser(std::string_view text) : text_(text) {}

  JsonValue Whole() {
    JsonValue value = Value(0);
    SkipWhite();
    if (at_ != text_.size()) throw Fault{"more text behind the value"};
    return value;
  }

  std::string Position() const {
    const std::string_view before = text_.substr(0, at_);
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const std::size_t start = before.rfind('\n');  // npos + 1 is 0, the first line's start
    return "line " + std::to_string(line) + ", column " + std::to_string(at_ - (start + 1) + 1);
  }

 private:
  void SkipWhite() { at_ = std::min(text_.find_first_not_of(kWhite, at_), text_.size()); }

  bool Take(std::string_view token) {
    if (!text_.substr(at_).starts_with(token)) return false;
    at_ += token.size();
    return true;
  }

  JsonValue Value(int depth) {
    if (depth > kDeepest) throw Fault{"nested too deeply"};
    SkipWhite();
    JsonValue value;
    if (Take("{")) {
      value.kind = JsonValue::Kind::kObject;
      Members(value, depth);
    } else if (Take("[")) {
      value.kind = JsonValue::Kind::kArray;
      Items(value, depth);
    } else if (Take("\"")) {
      value.kind = JsonValue::Kind::kText;
      value.text = Text();
    } else {
      Literal(value);
    }
    return value;
  }

  void Literal(JsonValue& value) {
    if (Take("null")) return;
    if (Take("true")) {
      value.kind = JsonValue::Kind::kBool;
      value.truth = true;
    } else if (Take("false")) {
      value.kind = JsonValue::Kind::kBool;
    } else {
      const std::size_t end =
          std::min(text_.find_first_not_of("+-.0123456789eE", at_), text_.size());
      const auto number = WholeNumber(text_.substr(at_, end - at_));
      if (!number) throw Fault{"a value is expected"};
      value.kind = JsonValue::Kind::kNumber;
      value.number = *number;
      at_ = end;
    }
  }

  // True when another element follows, false at the closing bracket.
  bool More(std::string_view bracket) {
    SkipWhite();
    if (Take(bracket)) return false;
    if (!Take(",")) throw Fault{"a comma or a closing bracket is expected"};
    return true;
  }

  void Items(JsonValue& array, int depth) {
    SkipWhite();
    if (Take("]")) return;
    do {
      array.items.push_back(Value(depth + 1));
    } while (More("]"));
  }

  void Members(JsonValue& object, int depth) {
    SkipWhite();
    if (Take("}")) return;
    do {
      SkipWhite();
      if (!Take("\"")) throw Fault{"a key in double quotes is expected"};
      std::string key = Text();
      SkipWhite();
      if (!Take(":")) throw Fault{"a colon is expected"};
      object.keys.push_back(std::move(key));
      object.items.push_back(Value(depth + 1));
    } while (More("}"));
  }

  std::string Text() {
    std::string text;
    for (;;) {
      const std::size_t end = text_.find_first_of("\"\\", at_);
      if (end == std::string_view::npos) throw Fault{"a text is not closed"};
      text += text_.substr(at_, end - at_);
      at_ = end + 1;
      if (text_[end] == '"') return text;
      Escape(text);
    }
  }

  void Escape(std::string& text) {
    constexpr std::string_view kLetters = "\"\\/bfnrt";
    constexpr std::string_view kMeanings = "\"\\/\b\f\n\r\t";
    const char letter = at_ < text_.size() ? text_[at_] : '\0';
    ++at_;
    if (letter == 'u') {
      AppendCodePoint(text, EscapedCodePoint());
      return;
    }
    const std::size_t index = kLetters.find(letter);
    if (index == std::string_view::npos) throw Fault{"an unknown escape"};
    text += kMeanings[index];
  }

  std::uint32_t EscapedCodePoint() {
    const std::uint32_t high = FourHexDigits();
    if (high < 0xD800 || high > 0xDBFF || !Take("\\u")) return high;
    const std::uint32_t low = FourHexDigits();
    if (low < 0xDC00 || low > 0xDFFF) throw Fault{"half of a surrogate pair"};
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
  }

  std::uint32_t FourHexDigits() {
    constexpr std::string_view kDigits = "0123456789abcdef0123456789ABCDEF";
    std::uint32_t code = 0;
    for (int i = 0; i < 4; ++i) {
      const std::size_t digit =
          at_ < text_.size() ? kDigits.find(text_[at_]) : std::string_view::npos;
      if (digit == std::string_view::npos) throw Fault{"four hexadecimal digits are expected"};
      code = code * 16 + static_cast<std::uint32_t>(digit % 16);
      ++at_;
    }
    return code;
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace

const JsonValue* JsonValue::Find(std::string_view key) const {
  const auto found = std::find(keys.begin(), keys.end(), key);
  return found == keys.end() ? nullptr : &items[static_cast<std::size_t>(found - keys.begin())];
}

ParsedJson ParseJson(std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  Parser parser(text);
  ParsedJson parsed;
  try {
    parsed.value = parser.Whole();
  } catch (const Fault& fault) {
    parsed.error = parser.Position() + ": " + fault.what;
  }
  return parsed;
}

}  // namespace vistaplot
