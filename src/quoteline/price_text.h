// Prices as price files write them, read at the speed that files of millions of cells need.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace vistaplot {

/// The price that a text is as a whole (blanks around it dropped): digits with a decimal point, an
/// exponent if need be. Nothing unless it is a number above 0 that a float can hold.
///
/// The result is the float nearest to the decimal text, halves to even, for texts of up to 15
/// significant digits and 12 decimals, where rounding to double on the way cannot produce a value
/// half-way between two floats that the text is not. Longer texts may be off by that rounding.
std::optional<float> PriceFromText(std::string_view text);

/// What keeps PriceFromText from taking `text`, for a message: a comma, a currency sign, a word...
std::string PriceFault(std::string_view text);

/// 10^0 to 10^10, all exact in single precision (5^10 has 24 bits).
inline constexpr std::array<float, 11> kExactPowersOfTen = {
    1e0F, 1e1F, 1e2F, 1e3F, 1e4F, 1e5F, 1e6F, 1e7F, 1e8F, 1e9F, 1e10F};

/// A price at the beginning of a run of bytes.
struct QuickPrice {
  float price = 0.0F;
  std::size_t length = 0;  ///< bytes of the number; 0: not one that is read quickly
};

/// Reads up to seven digits with at most one point among them, ended by the delimiter, a carriage
/// return or a line feed, all within eight bytes: the common form of a cell.
/// REQUIRES: eight bytes can be read at `bytes`.
///
/// Digits and power of ten are below 2^24 or exact in single precision, so that their quotient is
/// rounded once: it is the float nearest to the text.
inline QuickPrice ReadQuickPrice(const char* bytes, char delimiter) {
  std::uint64_t word = 0;
  std::memcpy(&word, bytes, sizeof word);
  // Digits become 0 to 9; every other byte gets its high bit set in `others`. A byte above 127
  // may disturb the bytes behind it, but it is no valid byte of the form itself.
  const std::uint64_t values = word ^ 0x3030303030303030U;
  const std::uint64_t others = ((values + 0x7676767676767676U) | values) & 0x8080808080808080U;
  if (others == 0) return {};
  auto digits = static_cast<unsigned>(std::countr_zero(others)) & ~7U;  // in bits from here on
  unsigned end = digits;
  unsigned decimals = 0;
  std::uint64_t number = values & ((std::uint64_t{1} << digits) - 1);
  if (bytes[digits / 8] == '.') {
    const std::uint64_t behind = others & (others - 1);
    if (behind == 0) return {};
    end = static_cast<unsigned>(std::countr_zero(behind)) & ~7U;
    decimals = end - digits - 8;
    const std::uint64_t upper = (values >> 8U) & ((std::uint64_t{1} << (end - 8)) - 1);
    number |= upper & ~((std::uint64_t{1} << digits) - 1);
    digits = end - 8;
  }
  const char stop = bytes[end / 8];
  const bool ends = stop == delimiter || stop == '\n' || stop == '\r';
  if (!ends || digits == 0) return {};
  // Eight digits, the first in the lowest byte, joined by pairs.
  number <<= 64 - digits;
  number = (number * 10 + (number >> 8U)) & 0x00FF00FF00FF00FFU;
  number = (number * 100 + (number >> 16U)) & 0x0000FFFF0000FFFFU;
  number = (number * 10'000 + (number >> 32U)) & 0xFFFFFFFFU;
  const auto whole = static_cast<float>(static_cast<std::int32_t>(number));
  return {.price = whole / kExactPowersOfTen[decimals / 8], .length = end / 8};
}

}  // namespace vistaplot
