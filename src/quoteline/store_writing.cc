#include "quoteline/store_writing.h"

#include <cstddef>
#include <span>

#include "quoteline/history.h"
#include "quoteline/symbol_index.h"

namespace vistaplot {

namespace {

constexpr const char* kTables =
    "PRAGMA application_id = 1363952706;"
    "CREATE TABLE IF NOT EXISTS service (id INTEGER PRIMARY KEY, stamp INTEGER NOT NULL,"
    " calendar BLOB NOT NULL, checksum INTEGER NOT NULL);"
    "CREATE TABLE IF NOT EXISTS service_copy (id INTEGER PRIMARY KEY, stamp INTEGER NOT NULL,"
    " calendar BLOB NOT NULL, checksum INTEGER NOT NULL);"
    "CREATE TABLE IF NOT EXISTS issues (id INTEGER PRIMARY KEY, symbol TEXT NOT NULL,"
    " name TEXT NOT NULL, first_day INTEGER NOT NULL, last_day INTEGER NOT NULL,"
    " prices INTEGER NOT NULL, checksum INTEGER NOT NULL, priced_checksum INTEGER NOT NULL,"
    " row_checksum INTEGER NOT NULL);"
    "CREATE TABLE IF NOT EXISTS histories (issue INTEGER PRIMARY KEY, priced BLOB NOT NULL,"
    " prices BLOB NOT NULL);"
    "CREATE TABLE IF NOT EXISTS symbols (id INTEGER PRIMARY KEY, stamp INTEGER NOT NULL,"
    " entries BLOB NOT NULL, checksum INTEGER NOT NULL);"
    "PRAGMA user_version = 2;";
static_assert(kApplicationId == 1363952706 && StoreForm{2} == StoreForm::kSecond,
              "the statements say them in full");

void WriteCalendar(Database& database, const char* sql, const StoreState& state) {
  const auto calendar = std::as_bytes(std::span(state.days));
  Query(database, sql)
      .Bind(1, state.stamp)
      .Bind(2, calendar)
      .Bind(3, CalendarChecksum(state.stamp, calendar))
      .RunOnce();
}

std::int64_t NextId(Database& database) {
  Query next(database,
             "SELECT 1 + max(coalesce((SELECT max(id) FROM issues), 0),"
             " coalesce((SELECT max(issue) FROM histories), 0))");
  return next.Next() ? next.Integer(0) : 0;
}

void TakeDays(IssueRow& issue, const History& history) {
  issue.first_day = history.first_day;
  issue.last_day = history.LastDay();
  issue.checksum =
      HistoryChecksum(KeyOf(issue.symbol).value_or(SymbolKey{}), history.first_day, history.prices);
}

}  // namespace

void MakeTables(Database& database) {
  database.Run(kTables);
}

void WriteIssue(Database& database, IssueRow& issue, const History& history) {
  TakeDays(issue, history);
  issue.prices = CountPrices(history);
  issue.priced_checksum = PricedChecksum(history.priced);
  if (issue.id == 0) issue.id = NextId(database);
  WriteRow(database, issue);
  Query(database, "INSERT OR REPLACE INTO histories (issue, priced, prices) VALUES (?1, ?2, ?3)")
      .Bind(1, issue.id)
      .Bind(2, std::as_bytes(std::span(history.priced)))
      .Bind(3, std::as_bytes(std::span(history.prices)))
      .RunOnce();
}

void MoveIssue(Database& database, IssueRow& issue, const History& history) {
  TakeDays(issue, history);
  WriteRow(database, issue);
}

void WriteRow(Database& database, const IssueRow& issue) {
  Query(database,
        "INSERT OR REPLACE INTO issues (id, symbol, name, first_day, last_day, prices, checksum,"
        " priced_checksum, row_checksum) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9)")
      .Bind(1, issue.id)
      .Bind(2, issue.symbol)
      .Bind(3, issue.name)
      .Bind(4, issue.first_day)
      .Bind(5, issue.last_day)
      .Bind(6, issue.prices)
      .Bind(7, issue.checksum)
      .Bind(8, issue.priced_checksum)
      // A row that is known to be damaged stays one: its check value is the wrong one.
      .Bind(9, issue.is_sound ? RowChecksum(issue) : ~RowChecksum(issue))
      .RunOnce();
}

void DeleteIssue(Database& database, std::int64_t id) {
  Query(database, "DELETE FROM issues WHERE id = ?1").Bind(1, id).RunOnce();
  Query(database, "DELETE FROM histories WHERE issue = ?1").Bind(1, id).RunOnce();
}

void WriteState(Database& database, const StoreState& state) {
  WriteCalendar(database, "INSERT OR REPLACE INTO service VALUES (1, ?1, ?2, ?3)", state);
  WriteCalendar(database, "INSERT OR REPLACE INTO service_copy VALUES (1, ?1, ?2, ?3)", state);
}

void WriteIndex(Database& database, const std::vector<IssueRow>& issues, std::int64_t stamp) {
  SymbolIndex index;
  for (const IssueRow& issue : issues) {
    const auto key = KeyOf(issue.symbol);
    if (!key || !issue.is_sound) continue;
    index.Add({.symbol = *key,
               .id = static_cast<std::uint32_t>(issue.id),
               .first_day = static_cast<std::uint16_t>(issue.first_day),
               .last_day = static_cast<std::uint16_t>(issue.last_day),
               .prices = static_cast<std::uint16_t>(issue.prices),
               .checksum = issue.checksum,
               .priced_checksum = issue.priced_checksum},
              issue.name);
  }
  const std::vector<std::byte> entries = index.Encode();
  Query(database,
        "INSERT OR REPLACE INTO symbols (id, stamp, entries, checksum) VALUES (1, ?1, ?2, ?3)")
      .Bind(1, stamp)
      .Bind(2, std::span(entries))
      .Bind(3, Crc32c(entries))
      .RunOnce();
}

}  // namespace vistaplot
