#include "base/number_text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/text.h"

namespace vistaplot {

namespace {

constexpr int kDigits = 7;

// 10^0 to 10^15, all exact in double.
constexpr std::array<double, 16> kPowersOfTen = {
    1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// The range in which seven digits come from one exact product: |value| x 10^k with k from 0 to 11
// has 24 + 26 bits at most and fits a double.
constexpr float kFastLow = 1e-5F;
constexpr float kFastHigh = 1e7F;

constexpr int kLowestBinaryExponent = -17;  // of 1e-5
constexpr int kBinaryExponents = 41;        // up to 23, that of the values below 1e7

// k = 6 - floor(log10(2^e)) for the binary exponents e of the fast range. A value with that
// exponent takes k, or k - 1 where it reaches the next power of ten.
constexpr std::array<int, kBinaryExponents> MakeScales() {
  std::array<int, kBinaryExponents> scales{};
  for (int i = 0; i < kBinaryExponents; ++i) {
    const int exponent = kLowestBinaryExponent + i;
    double power = 1.0;
    for (int j = 0; j < exponent; ++j) power *= 2.0;
    for (int j = 0; j > exponent; --j) power /= 2.0;
    // floor(log10(2^e)): the powers of two from 2^-17 to 2^23, scaled by 10^6 they are at least 1.
    int decimal = -6;
    double scaled = power * 1e6;
    while (scaled >= 10.0) {
      scaled /= 10.0;
      ++decimal;
    }
    scales[static_cast<std::size_t>(i)] = kDigits - 1 - decimal;
  }
  return scales;
}
constexpr auto kScales = MakeScales();

// The seven digits of a value of the fast range: value = digits / 10^scale, digits a whole number
// from 1,000,000 to 10,000,000 (the latter where the rounding carries).
struct SevenDigits {
  double digits;
  int scale;
};

SevenDigits FastDigits(float magnitude) {
  const int exponent = static_cast<int>(std::bit_cast<std::uint32_t>(magnitude) >> 23) - 127;
  int scale = kScales[static_cast<std::size_t>(exponent - kLowestBinaryExponent)];
  const double value = magnitude;
  double product = value * kPowersOfTen[static_cast<std::size_t>(scale)];
  if (product >= 1e7) {
    --scale;
    product = value * kPowersOfTen[static_cast<std::size_t>(scale)];
  }
  // Adding and taking away 1.5 x 2^52 leaves a whole number, halves to even.
  constexpr double kRounder = 0x1.8p52;
  return {(product + kRounder) - kRounder, scale};
}

bool InFastRange(float magnitude) {
  return magnitude >= kFastLow && magnitude < kFastHigh;
}

// Writes the digits d1d2d3... with the point behind digit number `point` (0 or less: zeros lead).
void AppendPlain(std::string& text, std::string_view digits, int point) {
  while (digits.size() > 1 && digits.back() == '0') digits.remove_suffix(1);
  if (point <= 0) {
    text += "0.";
    text.append(static_cast<std::size_t>(-point), '0');
    text += digits;
    return;
  }
  const auto whole = static_cast<std::size_t>(point);
  text += digits.substr(0, whole);
  if (digits.size() <= whole) {
    text.append(whole - digits.size(), '0');
  } else {
    text += '.';
    text += digits.substr(whole);
  }
}

void AppendFastDigits(std::string& text, const SevenDigits& seven) {
  std::array<char, 12> buffer{};
  const auto end = std::to_chars(
      buffer.data(), buffer.data() + buffer.size(), static_cast<std::int32_t>(seven.digits));
  const auto length = static_cast<std::size_t>(end.ptr - buffer.data());
  AppendPlain(text, {buffer.data(), length}, static_cast<int>(length) - seven.scale);
}

// Any finite value above 0: the library rounds the exact binary value, halves to even.
void AppendSlowDigits(std::string& text, float magnitude) {
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(),
                                 buffer.data() + buffer.size(),
                                 magnitude,
                                 std::chars_format::scientific,
                                 kDigits - 1);
  // "d.dddddde+XX"
  std::string digits(1, buffer[0]);
  digits.append(buffer.data() + 2, kDigits - 1);
  const char* exponent_text = buffer.data() + kDigits + 2;
  if (*exponent_text == '+') ++exponent_text;
  int exponent = 0;
  std::from_chars(exponent_text, end.ptr, exponent);
  AppendPlain(text, digits, exponent + 1);
}

// Texts of values that have no digits; empty for the others.
std::string_view NonFiniteText(double value) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value < 0 ? "-Infinity" : "Infinity";
  return {};
}

// Adds one to the last digit of an unsigned decimal text.
void IncrementDecimal(std::string& text) {
  for (std::size_t i = text.size(); i-- > 0;) {
    if (text[i] == '.') continue;
    if (text[i] != '9') {
      ++text[i];
      return;
    }
    text[i] = '0';
  }
  text.insert(0, 1, '1');
}

std::string FixedDigits(double magnitude, int decimals) {
  std::array<char, 512> buffer{};
  const auto end = std::to_chars(
      buffer.data(), buffer.data() + buffer.size(), magnitude, std::chars_format::fixed, decimals);
  return {buffer.data(), end.ptr};
}

// A value lies exactly between two texts of `decimals` decimals only when it is a multiple of
// 2^-(decimals + 1); then decimals + 1 decimals hold it exactly, and the last of them is 5.
bool EndsInExactHalf(double magnitude, int decimals, std::string& exact) {
  const double scaled = std::ldexp(magnitude, decimals + 1);
  if (scaled != std::floor(scaled)) return false;
  exact = FixedDigits(magnitude, decimals + 1);
  return exact.back() == '5';
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// The number at the beginning of a text: sign, digits with a point, exponent.
struct Scan {
  std::size_t length = 0;    // 0 when no number stands there
  std::uint64_t digits = 0;  // all digits as one whole number; meaningless past 19 of them
  std::size_t count = 0;     // digits ahead of and behind the point
  std::size_t decimals = 0;  // digits behind the point
  bool has_power = false;
};

std::size_t ScanDigits(std::string_view text, std::size_t at, Scan& scan) {
  const std::size_t start = at;
  for (; at < text.size() && IsDigit(text[at]); ++at) {
    scan.digits = scan.digits * 10 + static_cast<std::uint64_t>(text[at] - '0');
  }
  scan.count += at - start;
  return at;
}

bool IsSign(char c) {
  return c == '+' || c == '-';
}

Scan ScanNumber(std::string_view text) {
  Scan scan;
  std::size_t end = ScanDigits(text, !text.empty() && IsSign(text[0]) ? 1 : 0, scan);
  if (end < text.size() && text[end] == '.') {
    const std::size_t after_point = ScanDigits(text, end + 1, scan);
    scan.decimals = after_point - end - 1;
    end = after_point;
  }
  if (scan.count == 0) return {};
  if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
    const std::size_t power = end + 1 < text.size() && IsSign(text[end + 1]) ? end + 2 : end + 1;
    Scan power_scan;
    const std::size_t power_end = ScanDigits(text, power, power_scan);
    scan.has_power = power_scan.count > 0;
    if (scan.has_power) end = power_end;
  }
  scan.length = end;
  return scan;
}

// Any unsigned number that ScanNumber accepts. Too large gives infinity, too small 0.
double ReadMagnitude(std::string_view text) {
  double magnitude = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), magnitude);
  if (read.ec != std::errc::result_out_of_range) return magnitude;
  const std::size_t power = text.find_first_of("eE");
  const bool tiny = power == std::string_view::npos ? text.find_first_of("123456789") > 300
                                                    : text[power + 1] == '-';
  return tiny ? 0.0 : std::numeric_limits<double>::infinity();
}

// The number that `scan` found at the beginning of `text`.
double ReadNumber(std::string_view text, const Scan& scan) {
  // Up to 15 digits and the power of ten are exact in double, so that one division rounds once.
  constexpr std::size_t kExactDigits = 15;
  const std::size_t sign = IsSign(text[0]) ? 1 : 0;
  const double magnitude = scan.count <= kExactDigits && !scan.has_power
                               ? static_cast<double>(static_cast<std::int64_t>(scan.digits)) /
                                     kPowersOfTen[scan.decimals]
                               : ReadMagnitude(text.substr(sign, scan.length - sign));
  return text[0] == '-' ? -magnitude : magnitude;
}

template <class Float>
std::string ShortestText(Float value) {
  std::array<char, 40> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  return {buffer.data(), end.ptr};
}

}  // namespace

std::string NumberText(float value) {
  std::string text;
  AppendNumberText(text, value);
  return text;
}

void AppendNumberText(std::string& text, float value) {
  if (!std::isfinite(value)) {
    text += NonFiniteText(value);
    return;
  }
  if (value == 0.0F) {
    text += '0';
    return;
  }
  if (value < 0.0F) text += '-';
  const float magnitude = std::fabs(value);
  if (InFastRange(magnitude)) {
    AppendFastDigits(text, FastDigits(magnitude));
  } else {
    AppendSlowDigits(text, magnitude);
  }
}

double SevenDigitValue(float value) {
  const float magnitude = std::fabs(value);
  if (InFastRange(magnitude)) {
    const SevenDigits seven = FastDigits(magnitude);
    const double rounded = seven.digits / kPowersOfTen[static_cast<std::size_t>(seven.scale)];
    return value < 0.0F ? -rounded : rounded;
  }
  return value == 0.0F ? 0.0 : LeadingNumber(NumberText(value));
}

std::string FixedText(double value, int decimals) {
  if (!std::isfinite(value)) return std::string(NonFiniteText(value));
  assert(decimals >= 0 && decimals <= 30);
  const double magnitude = std::fabs(value);
  std::string text;
  if (EndsInExactHalf(magnitude, decimals, text)) {
    text.pop_back();
    if (text.back() == '.') text.pop_back();
    IncrementDecimal(text);
  } else {
    text = FixedDigits(magnitude, decimals);
  }
  const bool is_zero = text.find_first_not_of("0.") == std::string::npos;
  if (value < 0 && !is_zero) text.insert(0, 1, '-');
  return text;
}

std::string ExactText(double value) {
  return ShortestText(value);
}

std::string ExactText(float value) {
  return ShortestText(value);
}

double LeadingNumber(std::string_view text) {
  const std::string_view trimmed = TrimWhite(text);
  const Scan scan = ScanNumber(trimmed);
  return scan.length == 0 ? 0.0 : ReadNumber(trimmed, scan);
}

std::optional<double> WholeNumber(std::string_view text) {
  const std::string_view trimmed = TrimWhite(text);
  const Scan scan = ScanNumber(trimmed);
  if (scan.length == 0 || scan.length != trimmed.size()) return std::nullopt;
  return ReadNumber(trimmed, scan);
}

std::optional<long long> WholeInteger(std::string_view text) {
  std::string_view trimmed = TrimWhite(text);
  if (trimmed.size() > 1 && trimmed[0] == '+' && IsDigit(trimmed[1])) trimmed.remove_prefix(1);
  long long number = 0;
  const char* end = trimmed.data() + trimmed.size();
  const auto read = std::from_chars(trimmed.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return number;
}

Result<std::int16_t> ToInt16(double value, std::string_view subject) {
  const double rounded = std::nearbyint(value);
  if (!(rounded >= std::numeric_limits<std::int16_t>::min() &&
        rounded <= std::numeric_limits<std::int16_t>::max())) {
    return MakeError(kErrorOverflow, std::string(subject));
  }
  return static_cast<std::int16_t>(rounded);
}

int RoundHalfEven(double value) {
  const double rounded = std::nearbyint(value);
  assert(rounded >= std::numeric_limits<int>::min() && rounded <= std::numeric_limits<int>::max());
  return static_cast<int>(rounded);
}

}  // namespace vistaplot
