#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "quoteline/history.h"

namespace vistaplot {
namespace {

std::span<const std::byte> BytesOf(std::string_view text) {
  return std::as_bytes(std::span(text));
}

// The check value of the catalogue of CRC algorithms, and RFC 3720, appendix B.4.
TEST(Crc32c, HasThePublishedValues) {
  std::string ascending;
  for (char c = 0; c < 32; ++c) ascending += c;
  const struct {
    std::string text;
    std::uint32_t value;
  } cases[] = {{"", 0},
               {"123456789", 0xE3069283U},
               {std::string(32, '\0'), 0x8A9136AAU},
               {std::string(32, '\xFF'), 0x62A8AB43U},
               {ascending, 0x46DD794EU}};
  for (const auto& one : cases) {
    EXPECT_EQ(Crc32c(BytesOf(one.text)), one.value);
    EXPECT_EQ(Crc32cByTable(BytesOf(one.text)), one.value);
  }
}

TEST(Crc32c, TableAndInstructionAgreeAtEveryLengthAndPlace) {
  std::string text;
  std::uint32_t seed = 1;
  for (int i = 0; i < 60'000; ++i) {
    seed = seed * 1664525U + 1013904223U;
    text += static_cast<char>(seed >> 24U);
  }
  const auto bytes = BytesOf(text);
  for (std::size_t length = 0; length < 900; ++length) {
    const auto part = bytes.subspan(length % 16, length);
    ASSERT_EQ(Crc32c(part), Crc32cByTable(part)) << length;
  }
  // Around whole triples of the longer blocks, and in two pieces.
  for (const std::size_t length : {3071U, 3072U, 3073U, 3456U, 6144U, 48'000U, 59'999U}) {
    const auto part = bytes.first(length);
    const std::uint32_t value = Crc32cByTable(part);
    EXPECT_EQ(Crc32c(part), value) << length;
    EXPECT_EQ(Crc32c(part.subspan(1000), Crc32c(part.first(1000))), value) << length;
  }
}

}  // namespace
}  // namespace vistaplot
