#include "quoteline/store.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "base/files.h"
#include "quoteline/history.h"
#include "quoteline/quoteline.h"
#include "quoteline/store_creation.h"

namespace vistaplot {

namespace {

RuntimeError StoreError(std::int32_t status, std::string text, const Database& database) {
  return {.number = status, .description = std::move(text), .subject = database.Path()};
}

std::int64_t PragmaValue(Database& database, const char* sql) {
  Query query(database, sql);
  return query.Next() ? query.Integer(0) : 0;
}

// A file that was cut short reads well until somebody asks for what is missing.
bool IsCutShort(Database& database) {
  struct stat file {};
  struct stat log {};
  if (::stat(database.Path().c_str(), &file) != 0) return true;
  const std::string log_path = database.Path() + "-wal";
  if (::stat(log_path.c_str(), &log) == 0 && log.st_size > 0) return false;
  const std::int64_t pages = PragmaValue(database, "PRAGMA page_count");
  return file.st_size < pages * PragmaValue(database, "PRAGMA page_size");
}

template <class T>
std::vector<T> Unpacked(std::span<const std::byte> bytes) {
  std::vector<T> values(bytes.size() / sizeof(T));
  if (!values.empty()) std::memcpy(values.data(), bytes.data(), values.size() * sizeof(T));
  return values;
}

bool IsCalendar(const std::vector<DateSerial>& days) {
  if (days.size() > static_cast<std::size_t>(kMaxMarketDays)) return false;
  for (std::size_t i = 1; i < days.size(); ++i) {
    if (days[i] <= days[i - 1]) return false;
  }
  return days.empty() || days.front() >= 0;
}

// The sums of the first form, or the CRC of the second.
bool FitsChecksum(StoreForm form,
                  std::int64_t stamp,
                  std::span<const std::byte> calendar,
                  std::int64_t checksum) {
  const std::uint32_t value =
      form == StoreForm::kFirst ? FirstFormChecksum(calendar) : CalendarChecksum(stamp, calendar);
  return value == checksum;
}

std::optional<StoreState> LoadCalendar(Database& database, const char* sql, StoreForm form) {
  Query query(database, sql);
  if (!query.Next()) return std::nullopt;
  StoreState state{
      .stamp = query.Integer(0), .days = Unpacked<DateSerial>(query.Blob(1)), .form = form};
  const bool sound = query.Blob(1).size() % sizeof(DateSerial) == 0 && IsCalendar(state.days) &&
                     FitsChecksum(form, state.stamp, query.Blob(1), query.Integer(2));
  if (!sound) return std::nullopt;
  return state;
}

std::optional<StoreState> LoadCopy(Database& database) {
  return LoadCalendar(database,
                      "SELECT stamp, calendar, checksum FROM service_copy WHERE id = 1",
                      StoreForm::kSecond);
}

IssueRow RowAt(const Query& query, StoreForm form) {
  IssueRow issue{.id = query.Integer(0),
                 .symbol = query.Text(1),
                 .name = query.Text(2),
                 .first_day = static_cast<int>(query.Integer(3)),
                 .last_day = static_cast<int>(query.Integer(4)),
                 .prices = static_cast<int>(query.Integer(5)),
                 .checksum = static_cast<std::uint32_t>(query.Integer(6)),
                 .priced_checksum = static_cast<std::uint32_t>(query.Integer(7)),
                 .form = form};
  issue.is_sound = form == StoreForm::kFirst || RowChecksum(issue) == query.Integer(8);
  return issue;
}

std::string RowsSql(StoreForm form, const char* condition) {
  const char* checksums = form == StoreForm::kFirst ? "0, 0" : "priced_checksum, row_checksum";
  return std::string("SELECT id, symbol, name, first_day, last_day, prices, checksum, ") +
         checksums + " FROM issues" + condition;
}

std::vector<IssueRow> ReadRows(Database& database, StoreForm form) {
  std::vector<IssueRow> issues;
  Query query(database, RowsSql(form, "").c_str());
  while (query.Next()) issues.push_back(RowAt(query, form));
  return issues;
}

std::vector<IssueRow> ReadEachRow(Database& database, StoreForm form) {
  std::vector<std::int64_t> ids;
  {
    Query query(database, "SELECT id FROM issues");
    while (query.Next()) ids.push_back(query.Integer(0));
  }
  if (database.Failed()) return {};
  std::vector<IssueRow> issues;
  for (const std::int64_t id : ids) {
    Query query(database, RowsSql(form, " WHERE id = ?1").c_str());
    if (query.Bind(1, id).Next()) {
      issues.push_back(RowAt(query, form));
    } else {
      IssueRow& unread = issues.emplace_back();
      unread.id = id;
      unread.form = form;
      unread.is_sound = false;
    }
    database.Forgive();
  }
  return issues;
}

Status CheckForm(Database& database) {
  // One transaction in place of four: each looks for the side files anew.
  database.Run("BEGIN");
  const std::int64_t application = PragmaValue(database, "PRAGMA application_id");
  const std::int64_t form = PragmaValue(database, "PRAGMA user_version");
  if (auto outcome = database.Outcome(); !outcome) return outcome;
  if (application != kApplicationId) {
    return StoreError(QL_DATABASE_CORRUPT, "is no database of this service", database);
  }
  if (form != static_cast<int>(StoreForm::kFirst) && form != static_cast<int>(StoreForm::kSecond)) {
    return StoreError(QL_DATABASE_CORRUPT, "was made by another version of this program", database);
  }
  const bool is_cut_short = IsCutShort(database);
  database.Run("COMMIT");
  if (is_cut_short) {
    return StoreError(QL_DATABASE_CORRUPT, "the database is damaged (cut short)", database);
  }
  return Done{};
}

}  // namespace

std::string DatabasePath(const std::string& directory) {
  return JoinPath(directory, "quoteline.db");
}

Result<Database> OpenStore(const std::string& directory, Access access) {
  auto opened = Database::Open(DatabasePath(directory), access);
  if (!opened) return opened;
  Database& database = opened.Value();
  // Reading into a few pages that are used again beats mapping the file: 2.4 ms against 11 ms for
  // 255 histories of 12,000 days, nearly all of the latter spent on page faults.
  database.Run("PRAGMA mmap_size = 0; PRAGMA synchronous = NORMAL;");
  // A writer empties the log itself, once, after its commit.
  if (access == Access::kWrite) database.Run("PRAGMA wal_autocheckpoint = 0;");
  if (auto known = CheckForm(database); !known) return known.Error();
  if (access == Access::kTrial) database.TakeIntoMemory();
  if (access == Access::kWrite || access == Access::kTrial) {
    if (auto moved = MoveToSecondForm(database); !moved) return moved.Error();
  }
  return opened;
}

Result<StoreState> LoadState(Database& database) {
  const auto form = StoreForm{static_cast<int>(PragmaValue(database, "PRAGMA user_version"))};
  auto state =
      LoadCalendar(database, "SELECT stamp, calendar, checksum FROM service WHERE id = 1", form);
  if (state) return std::move(*state);
  const auto outcome = database.Outcome();
  if (form != StoreForm::kFirst) {
    // A page of it may be damaged, which the connection takes for a failure of its own.
    database.Forgive();
    if (auto copy = LoadCopy(database)) {
      copy->is_from_copy = true;
      return std::move(*copy);
    }
  }
  if (!outcome) return outcome.Error();
  return StoreError(QL_DATABASE_CORRUPT, "the market calendar is damaged", database);
}

bool HasSameCopy(Database& database, const StoreState& state) {
  const auto copy = LoadCopy(database);
  return copy && copy->stamp == state.stamp && copy->days == state.days;
}

Result<SymbolIndex> LoadIndex(Database& database, const StoreState& state) {
  std::optional<SymbolIndex> index;
  bool fits = false;
  {
    Query query(database, "SELECT stamp, entries, checksum FROM symbols WHERE id = 1");
    if (query.Next()) {
      const bool is_first = state.form == StoreForm::kFirst;
      const auto bytes = query.Blob(1);
      const std::uint32_t value = is_first ? FirstFormChecksum(bytes) : Crc32c(bytes);
      if (value == query.Integer(2)) {
        index = SymbolIndex::Decode(bytes, is_first ? kFirstFormEntryBytes : sizeof(IssueEntry));
      }
      fits = query.Integer(0) == state.stamp;
    }
  }
  database.Forgive();
  if (!index) return StoreError(QL_BAD_SYMBOLS, "the symbol index is missing or damaged", database);
  if (!fits) {
    return StoreError(QL_SYMBOLS_MISMATCH, "the symbol index does not fit the database", database);
  }
  return std::move(*index);
}

std::vector<IssueRow> LoadIssues(Database& database, StoreForm form) {
  if (database.Failed()) return {};
  std::vector<IssueRow> issues = ReadRows(database, form);
  if (database.Failed()) {
    // A row that cannot be read at all ends the walk; then each is read by itself.
    database.Forgive();
    issues = ReadEachRow(database, form);
  }
  std::sort(issues.begin(), issues.end(), [](const IssueRow& a, const IssueRow& b) {
    return a.symbol < b.symbol;
  });
  return issues;
}

std::vector<std::string> StructureFaults(Database& database, int limit) {
  std::vector<std::string> faults;
  const std::string sql = "PRAGMA integrity_check(" + std::to_string(limit) + ")";
  bool begun = false;
  {
    Query integrity(database, sql.c_str());
    begun = !database.Failed();
    while (integrity.Next()) {
      // What stands in a row is the row's own affair, and its check value's.
      const std::string text = integrity.Text(0);
      if (text != "ok" && text.find(" value in ") == std::string::npos) faults.push_back(text);
    }
  }
  // The pages are looked at first; a row that does not read ends the walk through the rows.
  const bool row_alone = begun && database.IsDamaged();
  if (auto outcome = database.Outcome(); !outcome && !row_alone) {
    faults.push_back(outcome.Error().description);
  }
  database.Forgive();
  return faults;
}

Status CheckBeforeWriting(Database& database) {
  if (auto outcome = database.Outcome(); !outcome) return outcome;
  const std::vector<std::string> faults = StructureFaults(database, 1);
  if (faults.empty()) return Done{};
  return StoreError(
      QL_DATABASE_CORRUPT,
      "the structure of the database is damaged (" + faults.front() + "); nothing was changed",
      database);
}

std::optional<History> LoadHistory(Database& database, const IssueRow& issue) {
  if (!HasSoundDays(issue, kMaxMarketDays)) return std::nullopt;
  Query query(database, "SELECT priced, prices FROM histories WHERE issue = ?1");
  if (!query.Bind(1, issue.id).Next()) return std::nullopt;
  History history{.first_day = issue.first_day,
                  .prices = Unpacked<float>(query.Blob(1)),
                  .priced = Unpacked<std::uint8_t>(query.Blob(0))};
  const std::size_t days =
      static_cast<std::size_t>(issue.last_day) - static_cast<std::size_t>(issue.first_day) + 1;
  const bool fits =
      query.Blob(1).size() == days * sizeof(float) && history.priced.size() == PricedBytes(days);
  if (!fits) return std::nullopt;
  return history;
}

}  // namespace vistaplot
