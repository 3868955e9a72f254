// The symbols of issues: up to five characters, in upper case.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vistaplot {

inline constexpr std::size_t kSymbolLength = 5;

/// A symbol filled up with zero bytes: compares in the order of the texts.
using SymbolKey = std::array<char, 8>;

/// The key of a caller's text: blanks at its ends dropped, letters in upper case. Nothing when it
/// is empty or longer than a symbol.
std::optional<SymbolKey> KeyOf(std::string_view text);

std::string SymbolText(const SymbolKey& key);

/// `text` as the symbol of a price history: 1 to 5 letters, digits, "$", "^", "." or "-", in upper
/// case. Nothing when it is none.
std::optional<std::string> SymbolFromText(std::string_view text);

}  // namespace vistaplot
