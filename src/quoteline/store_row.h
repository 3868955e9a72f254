// The rows of the database as they are stored, and their check values: each covers all that its
// row holds, so that a changed row is known as such before anything is made from it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "base/date.h"
#include "quoteline/history.h"
#include "quoteline/symbol.h"
#include "quoteline/symbol_index.h"

namespace vistaplot {

inline constexpr int kMaxMarketDays = 32'767;

/// Tells a database of this service from others (`application_id`, "QLDB").
inline constexpr int kApplicationId = 0x514C4442;

/// The form of a database, by the number that it bears (`user_version`).
enum class StoreForm { kFirst = 1, kSecond = 2 };

/// What changes with every change of the store as a whole.
struct StoreState {
  std::int64_t stamp = 0;        ///< grows with every change
  std::vector<DateSerial> days;  ///< the calendar, ascending; element 0 is market day 1
  StoreForm form = StoreForm::kSecond;
  bool is_from_copy = false;  ///< the calendar's own row is damaged or missing
};

/// An issue as its row has it.
struct IssueRow {
  std::int64_t id = 0;
  std::string symbol;
  std::string name;  ///< UTF-8; empty when it has none
  int first_day = 0;
  int last_day = 0;
  int prices = 0;
  std::uint32_t checksum = 0;         ///< of the history's prices, with symbol and days
  std::uint32_t priced_checksum = 0;  ///< of its bits; 0 in the first form
  StoreForm form = StoreForm::kSecond;
  bool is_sound = true;  ///< fits its own check value; rows of the first form have none
};

/// True when the issue's days are a run of days of a calendar of `days` days.
bool HasSoundDays(const IssueRow& issue, std::size_t days);

/// Check value of a history: CRC-32C of the symbol's 8 bytes, the first day and the number of days
/// (32 bits each), and the prices.
std::uint32_t HistoryChecksum(const SymbolKey& symbol,
                              int first_day,
                              std::span<const float> prices);

/// Check value of the bits of a history.
std::uint32_t PricedChecksum(std::span<const std::uint8_t> priced);

/// Check value of an issue's row: all its other columns.
std::uint32_t RowChecksum(const IssueRow& issue);

/// Check value of the calendar's row: stamp and calendar.
std::uint32_t CalendarChecksum(std::int64_t stamp, std::span<const std::byte> calendar);

/// True when the history is the one that the issue's check values were taken of.
bool IsIntact(const History& history, const IssueRow& issue);

/// The row of an issue, as the index tells it.
IssueRow RowOf(const SymbolIndex& index, const IssueEntry& entry, StoreForm form);

/// True when row and index say the same of the issue.
bool AgreesWith(const IssueRow& issue, const SymbolIndex& index, const IssueEntry& entry);

}  // namespace vistaplot
