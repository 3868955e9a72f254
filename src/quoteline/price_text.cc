#include "quoteline/price_text.h"

#include <cmath>

#include "base/number_text.h"
#include "base/text.h"

namespace vistaplot {

namespace {

constexpr std::uint64_t kExactInDouble = std::uint64_t{1} << 53U;

// 10^0 to 10^22, all exact in double.
constexpr std::array<double, 23> kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

struct Decimal {
  std::uint64_t digits = 0;
  std::size_t decimals = 0;
};

// The digits of a text without exponent; nothing when it is none or has more than 19 digits.
std::optional<Decimal> PlainDecimal(std::string_view text) {
  Decimal decimal;
  bool point = false;
  std::size_t digits = 0;
  for (const char c : text) {
    if (c == '.' && !point) {
      point = true;
      continue;
    }
    if (c < '0' || c > '9' || ++digits > 19) return std::nullopt;
    decimal.digits = decimal.digits * 10 + static_cast<std::uint64_t>(c - '0');
    if (point) ++decimal.decimals;
  }
  if (digits == 0) return std::nullopt;
  return decimal;
}

std::optional<float> AsPrice(double value) {
  const auto price = static_cast<float>(value);
  if (!(price > 0.0F) || !std::isfinite(price)) return std::nullopt;
  return price;
}

}  // namespace

std::optional<float> PriceFromText(std::string_view text) {
  text = TrimWhite(text);
  const auto decimal = PlainDecimal(text);
  if (decimal && decimal->digits < kExactInDouble && decimal->decimals < kPowersOfTen.size()) {
    return AsPrice(static_cast<double>(decimal->digits) / kPowersOfTen[decimal->decimals]);
  }
  const auto number = WholeNumber(text);
  return number ? AsPrice(*number) : std::nullopt;
}

}  // namespace vistaplot
