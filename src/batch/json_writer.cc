#include "batch/json_writer.h"

#include <cmath>

#include "base/number_text.h"
#include "base/text.h"

namespace vistaplot {

JsonWriter& JsonWriter::Key(std::string_view key) {
  Piece(JsonQuoted(key));
  text_ += ": ";
  needs_comma_ = false;
  return *this;
}

JsonWriter& JsonWriter::Text(std::string_view text) {
  return Piece(JsonQuoted(text));
}

JsonWriter& JsonWriter::Integer(long long number) {
  return Piece(std::to_string(number));
}

JsonWriter& JsonWriter::Number(double number) {
  return std::isfinite(number) ? Piece(ExactText(number)) : Null();
}

JsonWriter& JsonWriter::Number(float number) {
  return std::isfinite(number) ? Piece(ExactText(number)) : Null();
}

JsonWriter& JsonWriter::Bool(bool truth) {
  return Piece(truth ? "true" : "false");
}

JsonWriter& JsonWriter::Null() {
  return Piece("null");
}

JsonWriter& JsonWriter::Open(char bracket) {
  Piece({&bracket, 1});
  needs_comma_ = false;
  return *this;
}

JsonWriter& JsonWriter::Close(char bracket) {
  text_ += bracket;
  needs_comma_ = true;
  return *this;
}

JsonWriter& JsonWriter::Piece(std::string_view piece) {
  if (needs_comma_) text_ += ", ";
  text_ += piece;
  needs_comma_ = true;
  return *this;
}

}  // namespace vistaplot
