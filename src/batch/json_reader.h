// Reads JSON (RFC 8259) back into values, for comparing dumps.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vistaplot {

struct JsonValue {
  enum class Kind { kNull, kBool, kNumber, kText, kArray, kObject };

  Kind kind = Kind::kNull;
  bool truth = false;
  double number = 0.0;
  std::string text;
  std::vector<JsonValue> items;   ///< of an array or an object, in order
  std::vector<std::string> keys;  ///< of an object: the key of each item

  /// The member of that key; null when there is none.
  const JsonValue* Find(std::string_view key) const;
};

struct ParsedJson {
  JsonValue value;
  std::string error;  ///< "line 1, column 7: ..."; empty when all is well

  bool Ok() const { return error.empty(); }
};

/// One value with nothing but white space around it; a byte-order mark is skipped. Nesting beyond
/// 64 levels is refused.
ParsedJson ParseJson(std::string_view text);

}  // namespace vistaplot
