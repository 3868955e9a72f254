#include "quoteline/price_text.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string>

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

bool IsAmong(std::string_view text, std::span<const std::string_view> list) {
  return std::any_of(list.begin(), list.end(), [text](std::string_view entry) {
    return EqualsIgnoringCase(text, entry);
  });
}

// `text` without what writers put between groups of digits.
std::string WithoutGrouping(std::string_view text) {
  std::string plain(text);
  for (const std::string_view mark : {",", " ", "'", "\xC2\xA0", "\xE2\x80\xAF"}) {
    for (std::size_t at = 0; (at = plain.find(mark)) != std::string::npos;) {
      plain.erase(at, mark.size());
    }
  }
  return plain;
}

bool HasCurrencySign(std::string_view text) {
  constexpr std::array<std::string_view, 5> kSigns = {
      "$", "\xE2\x82\xAC", "\xC2\xA3", "\xC2\xA5", "\x80"};
  return std::any_of(kSigns.begin(), kSigns.end(), [text](std::string_view sign) {
    return text.starts_with(sign) || text.ends_with(sign);
  });
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

std::string PriceFault(std::string_view text) {
  constexpr std::array<std::string_view, 10> kNoPrices = {
      "null", "none", "nan", "n/a", "#n/a", "na", "nil", "-", "--", "inf"};
  constexpr std::size_t kLongestNumber = 60;
  text = TrimWhite(text);
  if (text.empty()) return "the price is missing";
  const std::string shown = ShownText(text);
  if (IsAmong(text, kNoPrices)) return shown + " is no price; leave out what has none";
  if (const auto number = WholeNumber(text); number && *number > 0.0) {
    return shown + " is beyond what a price can be";
  }
  if (HasCurrencySign(text)) return shown + " has a currency sign; a price is digits and a point";
  if (text.ends_with('%')) return shown + " has a percent sign; a price is digits and a point";
  const std::string plain = text.size() > kLongestNumber ? "" : WithoutGrouping(text);
  if (plain.size() != text.size() && PriceFromText(plain)) {
    // "1,234" may be either; only a point as well tells that commas group.
    const bool grouped = text.find('.') != std::string_view::npos;
    return grouped
               ? shown + " groups its digits; a price is written " + std::string(TrimWhite(plain))
               : shown + " has a comma or blank; a price is digits and a decimal point";
  }
  return shown + " is not a price above 0";
}

}  // namespace vistaplot
