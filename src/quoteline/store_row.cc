#include "quoteline/store_row.h"

#include <string_view>

#include "quoteline/crc32c.h"
#include "quoteline/first_form.h"

namespace vistaplot {

namespace {

// Runs a check value over fields, one behind the other. The kind of row comes first, so that no
// row passes for one of another table.
class Checksum {
 public:
  explicit Checksum(std::string_view kind) { Add(kind); }

  Checksum& Add(std::int64_t number) { return AddBytes(std::as_bytes(std::span(&number, 1))); }

  // With its length, so that the end of one text is no beginning of the next.
  Checksum& Add(std::string_view text) {
    Add(static_cast<std::int64_t>(text.size()));
    return AddBytes(std::as_bytes(std::span(text)));
  }

  Checksum& AddBytes(std::span<const std::byte> bytes) {
    value_ = Crc32c(bytes, value_);
    return *this;
  }

  std::uint32_t Value() const { return value_; }

 private:
  std::uint32_t value_ = 0;
};

}  // namespace

bool HasSoundDays(const IssueRow& issue, std::size_t days) {
  return issue.first_day >= 1 && issue.last_day >= issue.first_day &&
         static_cast<std::size_t>(issue.last_day) <= days;
}

std::uint32_t HistoryChecksum(const SymbolKey& symbol,
                              int first_day,
                              std::span<const float> prices) {
  const std::uint32_t days[] = {static_cast<std::uint32_t>(first_day),
                                static_cast<std::uint32_t>(prices.size())};
  std::uint32_t value = Crc32c(std::as_bytes(std::span(symbol)));
  value = Crc32c(std::as_bytes(std::span(days)), value);
  return Crc32c(std::as_bytes(prices), value);
}

std::uint32_t PricedChecksum(std::span<const std::uint8_t> priced) {
  return Crc32c(std::as_bytes(priced));
}

std::uint32_t RowChecksum(const IssueRow& issue) {
  return Checksum("issue")
      .Add(issue.id)
      .Add(issue.symbol)
      .Add(issue.name)
      .Add(issue.first_day)
      .Add(issue.last_day)
      .Add(issue.prices)
      .Add(issue.checksum)
      .Add(issue.priced_checksum)
      .Value();
}

std::uint32_t CalendarChecksum(std::int64_t stamp, std::span<const std::byte> calendar) {
  return Checksum("calendar").Add(stamp).AddBytes(calendar).Value();
}

bool IsIntact(const History& history, const IssueRow& issue) {
  if (history.prices.empty() || !history.HasPrice(0) ||
      !history.HasPrice(history.prices.size() - 1) || CountPrices(history) != issue.prices) {
    return false;
  }
  if (issue.form == StoreForm::kFirst) {
    return FirstFormChecksum(std::as_bytes(std::span(history.prices))) == issue.checksum;
  }
  const auto key = KeyOf(issue.symbol);
  return key && HistoryChecksum(*key, issue.first_day, history.prices) == issue.checksum &&
         PricedChecksum(history.priced) == issue.priced_checksum;
}

IssueRow RowOf(const SymbolIndex& index, const IssueEntry& entry, StoreForm form) {
  return {.id = entry.id,
          .symbol = SymbolText(entry.symbol),
          .name = std::string(index.NameOf(entry)),
          .first_day = entry.first_day,
          .last_day = entry.last_day,
          .prices = entry.prices,
          .checksum = entry.checksum,
          .priced_checksum = entry.priced_checksum,
          .form = form};
}

bool AgreesWith(const IssueRow& issue, const SymbolIndex& index, const IssueEntry& entry) {
  return SymbolText(entry.symbol) == issue.symbol && entry.id == issue.id &&
         entry.first_day == issue.first_day && entry.last_day == issue.last_day &&
         entry.prices == issue.prices && entry.checksum == issue.checksum &&
         entry.priced_checksum == issue.priced_checksum && index.NameOf(entry) == issue.name;
}

}  // namespace vistaplot
