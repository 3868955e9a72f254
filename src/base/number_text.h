// Numbers to text and back, the same whatever the desktop's locale. The only place that converts.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/result.h"

namespace vistaplot {

/// Plain decimal text of a single-precision value: at most seven significant digits (halves of the
/// exact binary value to even), trailing zeros dropped, never an exponent, "0.5" with its zero,
/// whole values without a point. Not-a-number and infinities give "NaN", "Infinity", "-Infinity".
std::string NumberText(float value);
void AppendNumberText(std::string& text, float value);

/// The number that NumberText(value) reads back as: `value` rounded to seven significant digits; 0
/// for values that are no number.
double SevenDigitValue(float value);

/// `value` with exactly `decimals` decimals, at least one digit before the point, no grouping:
/// the number patterns "###0" (0), "#0.0" (1), "###0.00" (2), "##0.000" (3). Rounds the exact
/// binary value half away from zero; a result that is zero has no sign.
std::string FixedText(double value, int decimals);

/// Shortest text that reads back as exactly this double or float; for dumps ("null" is the
/// caller's business: `value` must be finite).
std::string ExactText(double value);
std::string ExactText(float value);

/// The leading numeric part of the trimmed text: optional sign, digits, point, exponent.
/// "12 days" gives 12, ".5" and "+5." are numbers, "abc" and "" give 0. What a double cannot hold
/// gives infinity or 0.
double LeadingNumber(std::string_view text);

/// The trimmed text as a number when all of it is one; nothing otherwise.
std::optional<double> WholeNumber(std::string_view text);

/// The trimmed text as a whole number when all of it is one (sign and digits); nothing otherwise.
std::optional<long long> WholeInteger(std::string_view text);

/// Nearest 16-bit integer, halves to even. Error 6 (overflow) when out of range or not a number;
/// `subject` names the number's source in the error.
Result<std::int16_t> ToInt16(double value, std::string_view subject = {});

/// Nearest integer, halves to even; `value` must fit.
int RoundHalfEven(double value);

}  // namespace vistaplot
