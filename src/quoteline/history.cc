#include "quoteline/history.h"

#include <nmmintrin.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#if defined(__x86_64__)
#endif

namespace vistaplot {

History PackHistory(std::span<const float> days) {
  const auto has_price = [](float price) { return price > 0.0F; };
  const auto first = std::find_if(days.begin(), days.end(), has_price);
  if (first == days.end()) return {};
  const auto last = std::find_if(days.rbegin(), days.rend(), has_price).base();
  History history{.first_day = static_cast<int>(first - days.begin()) + 1,
                  .prices = {first, last},
                  .priced = {}};
  history.priced.resize(PricedBytes(history.prices.size()));
  for (std::size_t i = 0; i < history.prices.size(); ++i) {
    const unsigned bit = history.prices[i] > 0.0F ? 1U : 0U;
    history.priced[i / 8] = static_cast<std::uint8_t>(history.priced[i / 8] | bit << (i % 8));
  }
  CarryForward(history.prices, history.priced);
  return history;
}

void UnpackHistory(const History& history, std::span<const int> new_day_of, std::span<float> days) {
  const auto first = static_cast<std::size_t>(history.first_day);
  for (std::size_t i = 0; i < history.prices.size(); ++i) {
    if (!history.HasPrice(i)) continue;
    days[static_cast<std::size_t>(new_day_of[first + i] - 1)] = history.prices[i];
  }
}

int CountPrices(const History& history) {
  int count = 0;
  std::size_t at = 0;
  for (std::uint64_t bits = 0; at + sizeof bits <= history.priced.size(); at += sizeof bits) {
    std::memcpy(&bits, history.priced.data() + at, sizeof bits);
    count += std::popcount(bits);
  }
  for (; at < history.priced.size(); ++at) count += std::popcount(history.priced[at]);
  return count;
}

void CarryForward(std::span<float> values, std::span<const std::uint8_t> priced) {
  for (std::size_t i = 1; i < values.size(); ++i) {
    const unsigned bits = priced[i / 8];
    if ((bits >> (i % 8) & 1U) == 0) values[i] = values[i - 1];
  }
}

namespace {

constexpr std::uint32_t kPolynomial = 0x82F63B78U;  // reflected: bit 31 is the power 0

constexpr std::array<std::uint32_t, 256> MakeByteTable() {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t i = 0; i < table.size(); ++i) {
    std::uint32_t value = i;
    for (int bit = 0; bit < 8; ++bit) {
      value = (value & 1U) != 0 ? value >> 1U ^ kPolynomial : value >> 1U;
    }
    table[i] = value;
  }
  return table;
}
constexpr auto kByteTable = MakeByteTable();

}  // namespace

std::uint32_t Crc32cByTable(std::span<const std::byte> bytes, std::uint32_t before) {
  std::uint32_t value = ~before;
  for (const std::byte byte : bytes) {
    value = value >> 8U ^ kByteTable[(value ^ static_cast<std::uint32_t>(byte)) & 0xFFU];
  }
  return ~value;
}

#if defined(__x86_64__)

namespace {

// What a check value becomes when a fixed number of zero bytes follows, by its four bytes: that
// is linear, so the effects of the bytes add up.
using ZerosTable = std::array<std::array<std::uint32_t, 256>, 4>;

constexpr ZerosTable MakeZerosTable(std::size_t zeros) {
  std::array<std::uint32_t, 32> of_bit{};
  for (std::size_t bit = 0; bit < of_bit.size(); ++bit) {
    std::uint32_t value = 1U << bit;
    for (std::size_t i = 0; i < zeros; ++i) value = value >> 8U ^ kByteTable[value & 0xFFU];
    of_bit[bit] = value;
  }
  ZerosTable table{};
  for (std::size_t at = 0; at < table.size(); ++at) {
    for (std::size_t byte = 0; byte < 256; ++byte) {
      for (std::size_t bit = 0; bit < 8; ++bit) {
        if ((byte >> bit & 1U) != 0) table[at][byte] ^= of_bit[at * 8 + bit];
      }
    }
  }
  return table;
}

constexpr std::size_t kLong = 1024;
constexpr std::size_t kShort = 128;
constexpr ZerosTable kLongZeros = MakeZerosTable(kLong);
constexpr ZerosTable kShortZeros = MakeZerosTable(kShort);

std::uint32_t AppendZeros(const ZerosTable& table, std::uint32_t value) {
  return table[0][value & 0xFFU] ^ table[1][value >> 8U & 0xFFU] ^ table[2][value >> 16U & 0xFFU] ^
         table[3][value >> 24U];
}

std::uint64_t WordAt(const std::byte* bytes) {
  std::uint64_t word = 0;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

// Takes triples of blocks off the front. The instruction takes a word a cycle but answers after
// three, so three streams run side by side and are put together behind each triple (V. Gopal et
// al., "Fast CRC Computation for iSCSI Polynomial Using CRC32 Instruction", Intel, 2011).
__attribute__((target("sse4.2"))) std::uint32_t TakeTriples(std::span<const std::byte>& bytes,
                                                            std::uint32_t value,
                                                            std::size_t block,
                                                            const ZerosTable& zeros) {
  for (; bytes.size() >= 3 * block; bytes = bytes.subspan(3 * block)) {
    const std::byte* const at = bytes.data();
    std::uint64_t first = value;
    std::uint64_t second = 0;
    std::uint64_t third = 0;
    for (std::size_t i = 0; i < block; i += sizeof(std::uint64_t)) {
      first = _mm_crc32_u64(first, WordAt(at + i));
      second = _mm_crc32_u64(second, WordAt(at + block + i));
      third = _mm_crc32_u64(third, WordAt(at + 2 * block + i));
    }
    value =
        AppendZeros(zeros, static_cast<std::uint32_t>(first)) ^ static_cast<std::uint32_t>(second);
    value = AppendZeros(zeros, value) ^ static_cast<std::uint32_t>(third);
  }
  return value;
}

__attribute__((target("sse4.2"))) std::uint32_t Crc32cByInstruction(
    std::span<const std::byte> bytes, std::uint32_t before) {
  std::uint32_t value = TakeTriples(bytes, ~before, kLong, kLongZeros);
  value = TakeTriples(bytes, value, kShort, kShortZeros);
  for (; bytes.size() >= sizeof(std::uint64_t); bytes = bytes.subspan(sizeof(std::uint64_t))) {
    value = static_cast<std::uint32_t>(_mm_crc32_u64(value, WordAt(bytes.data())));
  }
  for (const std::byte byte : bytes) {
    value = _mm_crc32_u8(value, static_cast<std::uint8_t>(byte));
  }
  return ~value;
}

}  // namespace

std::uint32_t Crc32c(std::span<const std::byte> bytes, std::uint32_t before) {
  static const bool has_instruction = __builtin_cpu_supports("sse4.2") != 0;
  return has_instruction ? Crc32cByInstruction(bytes, before) : Crc32cByTable(bytes, before);
}

#else

std::uint32_t Crc32c(std::span<const std::byte> bytes, std::uint32_t before) {
  return Crc32cByTable(bytes, before);
}

#endif

}  // namespace vistaplot
