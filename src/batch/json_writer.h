// JSON on one line, written piece by piece: {"a": 1, "b": [true, null]}.
#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace vistaplot {

/// The caller keeps the order: a Key before each value of an object, every Begin with its End.
class JsonWriter {
 public:
  JsonWriter& BeginObject() { return Open('{'); }
  JsonWriter& EndObject() { return Close('}'); }
  JsonWriter& BeginArray() { return Open('['); }
  JsonWriter& EndArray() { return Close(']'); }
  JsonWriter& Key(std::string_view key);

  JsonWriter& Text(std::string_view text);
  JsonWriter& Integer(long long number);
  /// Reads back as exactly this number; null when it is not finite.
  JsonWriter& Number(double number);
  JsonWriter& Number(float number);
  JsonWriter& Bool(bool truth);
  JsonWriter& Null();

  /// What was written so far, left empty here.
  std::string Take() { return std::move(text_); }

 private:
  JsonWriter& Open(char bracket);
  JsonWriter& Close(char bracket);
  JsonWriter& Piece(std::string_view piece);  ///< with the comma that it may need

  std::string text_;
  bool needs_comma_ = false;
};

}  // namespace vistaplot
