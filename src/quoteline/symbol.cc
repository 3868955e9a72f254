#include "quoteline/symbol.h"

#include <algorithm>

#include "base/text.h"

namespace vistaplot {

namespace {

bool IsSymbolCharacter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '$' || c == '^' || c == '.' ||
         c == '-';
}

char UpperLetter(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

}  // namespace

std::optional<SymbolKey> KeyOf(std::string_view text) {
  text = TrimBlanks(text);
  if (text.empty() || text.size() > kSymbolLength) return std::nullopt;
  SymbolKey key{};
  std::transform(text.begin(), text.end(), key.begin(), UpperLetter);
  return key;
}

std::string SymbolText(const SymbolKey& key) {
  return {key.begin(), std::find(key.begin(), key.end(), '\0')};
}

std::optional<std::string> SymbolFromText(std::string_view text) {
  const auto key = KeyOf(TrimWhite(text));
  if (!key) return std::nullopt;
  std::string symbol = SymbolText(*key);
  if (!std::all_of(symbol.begin(), symbol.end(), IsSymbolCharacter)) return std::nullopt;
  return symbol;
}

}  // namespace vistaplot
