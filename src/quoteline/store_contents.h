// What a database holds, with what of it is damaged; and how it is put right from what it holds
// twice: the calendar from its copy, the issues' rows from the symbol index, the index from them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/date.h"
#include "base/result.h"
#include "quoteline/database.h"
#include "quoteline/history.h"
#include "quoteline/symbol_index.h"

namespace vistaplot {

// The rows of the database as they are stored, and their check values: each covers all that its
// row holds, so that a changed row is known as such before anything is made from it.

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

struct StoreContents {
  StoreState state;
  bool copy_fits = true;             ///< the copy of the calendar says the same
  std::vector<IssueRow> issues;      ///< whose rows are whole, ascending by symbol
  std::vector<IssueRow> damaged;     ///< rows that fail their check values, as they read
  std::vector<IssueRow> lost;        ///< issues of the index without a whole row
  std::optional<SymbolIndex> index;  ///< when it is whole and of this state
};

/// Fails when there is no calendar, or the rows cannot be read at all.
Result<StoreContents> LoadContents(Database& database);

/// A sentence for each damaged row, and for a calendar that has one copy left, which says what to
/// do about it. The symbol index is not looked at: without damage to rows any change renews it.
std::vector<std::string> RowFaults(const StoreContents& contents);

struct RebuildReport {
  int issues = 0;                     ///< that the new index knows
  int restored = 0;                   ///< rows put right from the index
  bool calendar_restored = false;     ///< or its copy
  std::vector<std::string> left_out;  ///< sentences on damaged rows, which stay as they are
};

/// Puts right what the database holds twice and makes the symbol index anew. A damaged row is
/// replaced only by the same row of a whole index; without one it stays as it is, and out of the
/// index.
Result<RebuildReport> RebuildStore(Database& database);

/// Removes the damaged row of this number and its history. Refuses when the row is whole, or can
/// be put right.
Status RemoveDamagedRow(Database& database, std::int64_t id);

}  // namespace vistaplot
