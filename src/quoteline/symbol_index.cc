#include "quoteline/symbol_index.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "base/text.h"

namespace vistaplot {

static_assert(std::endian::native == std::endian::little,
              "numbers are stored in the host's order, which must be the files'");

namespace {

constexpr std::size_t kMaxNameLength = 0xFFFF;

bool IsSound(const std::vector<IssueEntry>& entries, std::size_t names_size) {
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const IssueEntry& entry = entries[i];
    if (entry.first_day < 1 || entry.last_day < entry.first_day) return false;
    if (std::size_t{entry.name_offset} + entry.name_length > names_size) return false;
    if (i > 0 && !(entries[i - 1].symbol < entry.symbol)) return false;
  }
  return true;
}

}  // namespace

void SymbolIndex::Add(IssueEntry entry, std::string_view name) {
  name = name.substr(0, kMaxNameLength);
  entry.name_length = static_cast<std::uint16_t>(name.size());
  entry.name_offset = static_cast<std::uint32_t>(names_.size());
  entries_.push_back(entry);
  names_ += name;
}

const IssueEntry* SymbolIndex::Find(const SymbolKey& symbol) const {
  const auto found = std::lower_bound(
      entries_.begin(), entries_.end(), symbol, [](const IssueEntry& entry, const SymbolKey& key) {
        return entry.symbol < key;
      });
  return found != entries_.end() && found->symbol == symbol ? &*found : nullptr;
}

std::string_view SymbolIndex::NameOf(const IssueEntry& entry) const {
  return std::string_view(names_).substr(entry.name_offset, entry.name_length);
}

std::vector<std::byte> SymbolIndex::Encode() const {
  const auto count = static_cast<std::uint32_t>(entries_.size());
  const std::size_t entry_bytes = entries_.size() * sizeof(IssueEntry);
  std::vector<std::byte> bytes(sizeof count + entry_bytes + names_.size());
  std::memcpy(bytes.data(), &count, sizeof count);
  if (count == 0) return bytes;
  std::memcpy(bytes.data() + sizeof count, entries_.data(), entry_bytes);
  std::memcpy(bytes.data() + sizeof count + entry_bytes, names_.data(), names_.size());
  return bytes;
}

std::optional<SymbolIndex> SymbolIndex::Decode(std::span<const std::byte> bytes,
                                               std::size_t entry_bytes) {
  std::uint32_t count = 0;
  if (bytes.size() < sizeof count) return std::nullopt;
  std::memcpy(&count, bytes.data(), sizeof count);
  bytes = bytes.subspan(sizeof count);
  if (bytes.size() / entry_bytes < count) return std::nullopt;
  SymbolIndex index;
  index.entries_.resize(count);
  for (IssueEntry& entry : index.entries_) {
    std::memcpy(static_cast<void*>(&entry), bytes.data(), entry_bytes);
    bytes = bytes.subspan(entry_bytes);
  }
  index.names_.assign(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  if (!IsSound(index.entries_, index.names_.size())) return std::nullopt;
  return index;
}

namespace {

bool IsSymbolCharacter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '$' || c == '^' || c == '.' ||
         c == '-';
}

char UpperLetter(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

}  // namespace

std::optional<SymbolKey> KeyOf(std::string_view text) {
  text = TrimBlanks(text);
  if (text.empty() || text.size() > kSymbolLength) return std::nullopt;
  SymbolKey key{};
  std::transform(text.begin(), text.end(), key.begin(), UpperLetter);
  return key;
}

std::string SymbolText(const SymbolKey& key) {
  return {key.begin(), std::find(key.begin(), key.end(), '\0')};
}

std::optional<std::string> SymbolFromText(std::string_view text) {
  const auto key = KeyOf(TrimWhite(text));
  if (!key) return std::nullopt;
  std::string symbol = SymbolText(*key);
  if (!std::all_of(symbol.begin(), symbol.end(), IsSymbolCharacter)) return std::nullopt;
  return symbol;
}

}  // namespace vistaplot
