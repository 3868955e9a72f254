#include "base/number_text.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <tuple>
#include <utility>
#include <vector>

namespace vistaplot {
namespace {

TEST(NumberText, ShowsSevenDigitsWithoutExponent) {
  const std::vector<std::pair<float, const char*>> cases = {
      {0.0F, "0"},
      {-0.0F, "0"},
      {0.5F, "0.5"},
      {-0.25F, "-0.25"},
      {23.6F, "23.6"},
      {100.0F, "100"},
      {1.0F / 3.0F, "0.3333333"},
      {1234567.0F, "1234567"},
      {12345678.0F, "12345680"},
      {1e10F, "10000000000"},
      {0.99999994F, "0.9999999"},
      {1.00000012F, "1"},
      {1e-5F, "0.00001"},
      {1.5e-7F, "0.00000015"},
      // Exactly halves of the seventh digit: to the even digit.
      {262144.25F, "262144.2"},
      {262144.75F, "262144.8"},
      {16777215.0F, "16777220"},
      {std::numeric_limits<float>::infinity(), "Infinity"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(NumberText(value), text);
}

// The number of a cell must be what its text reads back as, to the last bit, in and around the
// range of the fast form.
TEST(NumberText, SevenDigitValueIsWhatTheTextReadsBackAs) {
  std::mt19937 random(7);
  std::vector<float> values;
  float edge = 1e-7F;
  for (int decade = 0; decade < 16; ++decade, edge *= 10.0F) {
    values.insert(values.end(), {edge, std::nextafter(edge, 0.0F), std::nextafter(edge, 1e30F)});
  }
  for (int i = 0; i < 200'000; ++i) {
    const float value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    if (std::isfinite(value)) values.push_back(value);
    values.push_back(std::ldexp(1.0F + static_cast<float>(random() % 8'388'608) / 8'388'608.0F,
                                static_cast<int>(random() % 44) - 18));
  }
  for (const float value : values) {
    std::array<char, 40> exact{};
    const auto end = std::to_chars(
        exact.data(), exact.data() + exact.size(), value, std::chars_format::scientific, 6);
    double expected = 0;
    std::from_chars(exact.data(), end.ptr, expected);
    ASSERT_EQ(SevenDigitValue(value), expected) << exact.data();
    ASSERT_EQ(LeadingNumber(NumberText(value)), expected) << exact.data();
  }
}

TEST(FixedText, RoundsTheExactValueHalfAwayFromZero) {
  const std::vector<std::tuple<double, int, const char*>> cases = {
      {0.125, 2, "0.13"},
      {-0.125, 2, "-0.13"},
      {2.5, 0, "3"},
      {0.5, 0, "1"},
      {-0.4, 0, "0"},
      {9.5, 0, "10"},
      {99.9375, 3, "99.938"},
      {1.005, 2, "1.00"},  // the binary value lies below 1.005
      {-0.004, 2, "0.00"},
      {999.995, 2, "1000.00"},  // above it
      {4503599627370495.5, 0, "4503599627370496"},
      {1234567.0, 2, "1234567.00"},
      {1e22, 1, "10000000000000000000000.0"}};
  for (const auto& [value, decimals, text] : cases) EXPECT_EQ(FixedText(value, decimals), text);
}

TEST(LeadingNumber, ReadsTheNumberThatTheTextBeginsWith) {
  const std::vector<std::pair<const char*, double>> whole = {
      {"  -3.25 ", -3.25},
      {"+7", 7},
      {".5", 0.5},
      {"5.", 5},
      {"-.5", -0.5},
      {"1e3", 1000},
      {"9007199254740993", 9007199254740992.0},
      {"0.1000000000000000055511151231257827", 0.1},
      {"1e-999", 0},
      {"-1e999", -std::numeric_limits<double>::infinity()}};
  for (const auto& [text, number] : whole) {
    EXPECT_EQ(LeadingNumber(text), number) << text;
    EXPECT_EQ(WholeNumber(text), number) << text;
  }
  for (const auto& [text, number] : std::vector<std::pair<const char*, double>>{
           {"12 days", 12}, {"1E+2x", 100}, {"2e", 2}, {"1,5", 1}}) {
    EXPECT_EQ(LeadingNumber(text), number) << text;
    EXPECT_EQ(WholeNumber(text), std::nullopt) << text;
  }
  for (const char* text : {"", ".", "-", "+-1", "abc", "nan", "0x10"}) {
    EXPECT_EQ(LeadingNumber(text), 0) << text;
    EXPECT_EQ(WholeNumber(text), std::nullopt) << text;
  }
}

TEST(WholeInteger, TakesSignAndDigitsOnly) {
  EXPECT_EQ(WholeInteger(" +12 "), 12);
  EXPECT_EQ(WholeInteger("-9223372036854775808"), std::numeric_limits<long long>::min());
  for (const char* text : {"", "+", "+-1", "1.0", "1e2", "12x", "9223372036854775808"}) {
    EXPECT_EQ(WholeInteger(text), std::nullopt) << text;
  }
}

TEST(ToInt16, RoundsHalvesToEvenAndNamesWhatOverflows) {
  EXPECT_EQ(ToInt16(2.5).Value(), 2);
  EXPECT_EQ(ToInt16(-3.5).Value(), -4);
  EXPECT_EQ(ToInt16(32767.4).Value(), 32767);
  EXPECT_EQ(ToInt16(-32768.5).Value(), -32768);
  for (const double value : {32767.5, -32769.0, 1e300, std::nan("")}) {
    const auto result = ToInt16(value, "txtDays");
    ASSERT_FALSE(result.Ok()) << value;
    EXPECT_EQ(NumberedText(result.Error()), "6 Overflow");
    EXPECT_EQ(PlainText(result.Error()), "txtDays: Overflow");
  }
}

}  // namespace
}  // namespace vistaplot
