// CRC-32C, the check value of all that the service stores: it finds every change of up to three
// bits, and every burst of up to 32, in a history of any length that the service can hold.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace vistaplot {

/// CRC-32C (Castagnoli): polynomial 0x1EDC6F41 reflected, begun and ended with all ones; that of
/// the text "123456789" is 0xE3069283. `before` is the check value of the bytes ahead of these, 0
/// when there are none. Uses the processor's instruction where it has one.
std::uint32_t Crc32c(std::span<const std::byte> bytes, std::uint32_t before = 0);

/// The same by a table, a byte a step: for processors without the instruction.
std::uint32_t Crc32cByTable(std::span<const std::byte> bytes, std::uint32_t before = 0);

}  // namespace vistaplot
