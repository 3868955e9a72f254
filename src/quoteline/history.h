// The price history of one issue over market days, and how it is packed.
//
// A history runs from the first day with a price to its last. A day between them without
// a price of its own carries the price of the day before; a bit a day tells the two apart, so that
// histories can be merged, renumbered and counted later.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vistaplot {

struct History {
  int first_day = 0;                 ///< market day of prices[0]; 0 when there is no price
  std::vector<float> prices;         ///< one a market day, first to last day with a price
  std::vector<std::uint8_t> priced;  ///< bit i % 8 of byte i / 8: prices[i] is no carried value

  int LastDay() const { return first_day + static_cast<int>(prices.size()) - 1; }
  bool HasPrice(std::size_t index) const {
    const unsigned bits = priced[index / 8];
    return (bits >> (index % 8) & 1U) != 0;
  }
};

/// Bytes of the bits of `days` days.
constexpr std::size_t PricedBytes(std::size_t days) {
  return (days + 7) / 8;
}

/// The history of a row of prices over all market days: element i is market day i + 1, 0 means no
/// price. Prices must be above 0. An empty history when there is none.
History PackHistory(std::span<const float> days);

/// Writes a history's own prices, without the carried ones, to the elements of their days:
/// history day d goes to days[new_day_of[d] - 1]. `new_day_of` is indexed by day, element 0
/// unused.
void UnpackHistory(const History& history, std::span<const int> new_day_of, std::span<float> days);

int CountPrices(const History& history);

/// Fills the days without a price of their own from the day before. `values` starts with a priced
/// day; `priced` as in History.
void CarryForward(std::span<float> values, std::span<const std::uint8_t> priced);

// CRC-32C, the check value of all that the service stores: it finds every change of up to three
// bits, and every burst of up to 32, in a history of any length that the service can hold.

/// CRC-32C (Castagnoli): polynomial 0x1EDC6F41 reflected, begun and ended with all ones; that of
/// the text "123456789" is 0xE3069283. `before` is the check value of the bytes ahead of these, 0
/// when there are none. Uses the processor's instruction where it has one.
std::uint32_t Crc32c(std::span<const std::byte> bytes, std::uint32_t before = 0);

/// The same by a table, a byte a step: for processors without the instruction.
std::uint32_t Crc32cByTable(std::span<const std::byte> bytes, std::uint32_t before = 0);

}  // namespace vistaplot
