#include "quoteline/price_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>

namespace vistaplot {
namespace {

TEST(PriceText, TakesNumbersAboveZeroAlone) {
  EXPECT_EQ(PriceFromText(" 12.50 "), 12.5F);
  EXPECT_EQ(PriceFromText("+.5"), 0.5F);
  EXPECT_EQ(PriceFromText("7."), 7.0F);
  EXPECT_EQ(PriceFromText("1.5E3"), 1500.0F);
  for (const char* text :
       {"", ".", "0", "0.000", "-1", "1,5", "1.2.3", "$5", "5 %", "nan", "inf", "1e39", "1e-60"}) {
    EXPECT_FALSE(PriceFromText(text)) << text;
  }
}

// 16777217 lies half-way between the floats 16777216 and 16777218; strtof of the C library rounds
// every decimal text once.
TEST(PriceText, RoundsTheDecimalTextOnce) {
  EXPECT_EQ(PriceFromText("16777217"), 16777216.0F);
  EXPECT_EQ(PriceFromText("16777217.000001"), 16777218.0F);
  EXPECT_EQ(PriceFromText("0.1"), 0.1F);
  std::uint64_t state = 12345;
  for (int i = 0; i < 20'000; ++i) {
    state = state * 6364136223846793005U + 1442695040888963407U;
    const auto digits = (state >> 20U) % (i % 2 == 0 ? 100'000'000U : 1'000'000'000'000'000U);
    std::string text = std::to_string(digits + 1);
    text.insert(text.size() - std::min<std::size_t>(text.size(), (state >> 8U) % 12), 1, '.');
    EXPECT_EQ(PriceFromText(text), std::strtof(text.c_str(), nullptr)) << text;
  }
}

struct QuickCase {
  const char* bytes;  // at least eight
  std::size_t length;
  float price;
};

TEST(PriceText, ReadsTheCommonFormQuicklyAndLeavesOthersAlone) {
  const QuickCase cases[] = {{"1,234567", 1, 1.0F},
                             {"12.34,56", 5, 12.34F},
                             {"1234567,", 7, 1234567.0F},
                             {"123.456,", 7, 123.456F},
                             {".5\n12345", 2, 0.5F},
                             {"5.\r\n1234", 2, 5.0F},
                             {"0.00,123", 4, 0.0F},
                             {",1234567", 0, 0.0F},
                             {"12345678,", 0, 0.0F},
                             {"1;234567", 0, 0.0F},
                             {"-1.5,234", 0, 0.0F},
                             {"1.2.3,45", 0, 0.0F},
                             {"1e5,2345", 0, 0.0F},
                             {"\"1.5\",23", 0, 0.0F},
                             {"1\xB2,23456", 0, 0.0F},
                             {".,123456", 0, 0.0F}};
  for (const QuickCase& quick : cases) {
    const QuickPrice read = ReadQuickPrice(quick.bytes, ',');
    EXPECT_EQ(read.length, quick.length) << quick.bytes;
    EXPECT_EQ(read.price, quick.price) << quick.bytes;
  }
}

TEST(PriceText, BothWaysOfReadingAgreeOnEveryPriceInCents) {
  for (int cents = 1001; cents < 1'000'000; cents += 7) {
    std::string text = std::to_string(cents);
    text.insert(text.size() - 2, 1, '.');
    const auto slow = PriceFromText(text);
    text += ",       ";
    ASSERT_EQ(ReadQuickPrice(text.data(), ',').price, slow.value_or(-1.0F)) << text;
  }
}

}  // namespace
}  // namespace vistaplot
