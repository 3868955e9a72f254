// The symbol index: what the service knows of every issue without looking at its history, packed
// into one run of bytes so that a service of ten thousand issues opens at once.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vistaplot {

// The symbols of issues: up to five characters, in upper case.

inline constexpr std::size_t kSymbolLength = 5;

/// A symbol filled up with zero bytes: compares in the order of the texts.
using SymbolKey = std::array<char, 8>;

/// The key of a caller's text: blanks at its ends dropped, letters in upper case. Nothing when it
/// is empty or longer than a symbol.
std::optional<SymbolKey> KeyOf(std::string_view text);

std::string SymbolText(const SymbolKey& key);

/// `text` as the symbol of a price history: 1 to 5 letters, digits, "$", "^", "." or "-", in upper
/// case. Nothing when it is none.
std::optional<std::string> SymbolFromText(std::string_view text);

/// One issue of the database.
struct IssueEntry {
  SymbolKey symbol{};
  std::uint32_t id = 0;         ///< row of its history
  std::uint16_t first_day = 0;  ///< first and last market day with a price
  std::uint16_t last_day = 0;
  std::uint16_t prices = 0;           ///< number of days with a price of their own
  std::uint16_t name_length = 0;      ///< bytes
  std::uint32_t checksum = 0;         ///< of the history
  std::uint32_t name_offset = 0;      ///< of the name among the names
  std::uint32_t priced_checksum = 0;  ///< of the history's bits
};
static_assert(sizeof(IssueEntry) == 32, "the entries are stored as they stand");

/// Entries of the first form end ahead of `priced_checksum`.
inline constexpr std::size_t kFirstFormEntryBytes = 28;

class SymbolIndex {
 public:
  /// Adds an issue; symbols must come in ascending order. `entry` need not tell of the name.
  void Add(IssueEntry entry, std::string_view name);

  const IssueEntry* Find(const SymbolKey& symbol) const;   ///< null when there is none
  std::string_view NameOf(const IssueEntry& entry) const;  ///< UTF-8, may be empty
  const std::vector<IssueEntry>& Entries() const { return entries_; }

  /// Number of entries (32 bits), the entries, the names; little-endian.
  std::vector<std::byte> Encode() const;
  /// Nothing when the bytes are no index. An entry of fewer bytes lacks its last fields, which
  /// stay 0.
  static std::optional<SymbolIndex> Decode(std::span<const std::byte> bytes,
                                           std::size_t entry_bytes = sizeof(IssueEntry));

 private:
  std::vector<IssueEntry> entries_;
  std::string names_;
};

}  // namespace vistaplot
