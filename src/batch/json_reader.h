// Reads JSON (RFC 8259) back into values, for comparing dumps.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vistaplot {

struct JsonValue {
  enum class Kind { kNull, kBool, kNumber, kText, kArray, kObject };

  Kind kind = Kind::kNull;
  bool truth = false;
  double number = 0.0;
  std::string text;
  std::vector<JsonValue> items;                            ///< of an array, in order
  std::vector<std::pair<std::string, JsonValue>> members;  ///< of an object, in order

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
