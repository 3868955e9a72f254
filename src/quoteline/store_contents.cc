#include "quoteline/store_contents.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

#include "quoteline/history.h"
#include "quoteline/quoteline.h"
#include "quoteline/store.h"
#include "quoteline/store_creation.h"
#include "quoteline/store_writing.h"

namespace vistaplot {

namespace {

constexpr std::string_view kRebuildRestores = "; \"quoteline rebuild\" puts it right";

// A text that may be damaged, fit for a message.
std::string Legible(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
  return text.substr(0, 20);
}

std::string LostRowFault(const IssueRow& issue) {
  return issue.symbol + ": its row " + std::to_string(issue.id) +
         " among the issues is damaged or missing" + std::string(kRebuildRestores);
}

std::string DamagedRowFault(const IssueRow& issue) {
  const std::string number = std::to_string(issue.id);
  return "issues: row " + number + ", which reads \"" + Legible(issue.symbol) +
         "\", is damaged, and the symbol index does not tell what it was; \"quoteline remove '#" +
         number + "'\" removes it and its history, for it to be imported anew";
}

// True when the damaged row is one of those that the index can put right: that of the same number,
// or, where the number is what was damaged, the one that else reads the same.
bool IsRestorable(const StoreContents& contents, const IssueRow& damaged) {
  return std::any_of(contents.lost.begin(), contents.lost.end(), [&](const IssueRow& lost) {
    return lost.id == damaged.id ||
           (lost.symbol == damaged.symbol && lost.checksum == damaged.checksum);
  });
}

bool HasCalendarFault(const StoreContents& contents) {
  return contents.state.is_from_copy || !contents.copy_fits;
}

std::vector<std::string> DamagedRowFaults(const StoreContents& contents) {
  std::vector<std::string> faults;
  for (const IssueRow& issue : contents.damaged) {
    if (!IsRestorable(contents, issue)) faults.push_back(DamagedRowFault(issue));
  }
  return faults;
}

}  // namespace

Result<StoreContents> LoadContents(Database& database) {
  StoreContents contents;
  auto state = LoadState(database);
  if (!state) return state.Error();
  contents.state = std::move(state.Value());
  const bool has_copy = contents.state.form != StoreForm::kFirst;
  contents.copy_fits = !has_copy || HasSameCopy(database, contents.state);
  database.Forgive();
  auto index = LoadIndex(database, contents.state);
  if (index) contents.index = std::move(index.Value());
  for (IssueRow& issue : LoadIssues(database, contents.state.form)) {
    auto& list = issue.is_sound ? contents.issues : contents.damaged;
    list.push_back(std::move(issue));
  }
  if (auto outcome = database.Outcome(); !outcome) return outcome.Error();
  if (!contents.index) return contents;
  std::set<std::int64_t> whole;
  for (const IssueRow& issue : contents.issues) whole.insert(issue.id);
  for (const IssueEntry& entry : contents.index->Entries()) {
    if (whole.contains(entry.id)) continue;
    contents.lost.push_back(RowOf(*contents.index, entry, contents.state.form));
  }
  return contents;
}

std::vector<std::string> RowFaults(const StoreContents& contents) {
  std::vector<std::string> faults;
  if (contents.state.is_from_copy) {
    faults.push_back("calendar: is damaged, but its copy is whole" + std::string(kRebuildRestores));
  } else if (!contents.copy_fits) {
    faults.push_back("calendar: its copy is damaged" + std::string(kRebuildRestores));
  }
  for (const IssueRow& issue : contents.lost) faults.push_back(LostRowFault(issue));
  for (std::string& fault : DamagedRowFaults(contents)) faults.push_back(std::move(fault));
  return faults;
}

Result<RebuildReport> RebuildStore(Database& database) {
  Transaction transaction(database);
  if (auto fit = CheckBeforeWriting(database); !fit) return fit.Error();
  MakeTables(database);
  auto loaded = LoadContents(database);
  if (!loaded) return loaded.Error();
  const StoreContents& contents = loaded.Value();
  RebuildReport report{.restored = static_cast<int>(contents.lost.size()),
                       .calendar_restored = HasCalendarFault(contents),
                       .left_out = DamagedRowFaults(contents)};
  for (const IssueRow& issue : contents.damaged) {
    if (!IsRestorable(contents, issue)) continue;
    Query(database, "DELETE FROM issues WHERE id = ?1").Bind(1, issue.id).RunOnce();
  }
  for (const IssueRow& issue : contents.lost) WriteRow(database, issue);
  WriteState(database, contents.state);
  std::vector<IssueRow> issues = LoadIssues(database, contents.state.form);
  std::erase_if(issues, [](const IssueRow& issue) { return !issue.is_sound; });
  WriteIndex(database, issues, contents.state.stamp);
  report.issues = static_cast<int>(issues.size());
  if (auto outcome = transaction.Commit(); !outcome) return outcome.Error();
  return report;
}

Status RemoveDamagedRow(Database& database, std::int64_t id) {
  Transaction transaction(database);
  if (auto fit = CheckBeforeWriting(database); !fit) return fit;
  const auto contents = LoadContents(database);
  if (!contents) return contents.Error();
  const auto& damaged = contents.Value().damaged;
  const auto row = std::find_if(
      damaged.begin(), damaged.end(), [id](const IssueRow& issue) { return issue.id == id; });
  const auto refusal = [id](std::int32_t status, std::string text) {
    return RuntimeError{.number = status,
                        .description = std::move(text),
                        .subject = std::string(1, '#') + std::to_string(id)};
  };
  if (row == damaged.end()) {
    return refusal(QL_NO_SUCH_ISSUE, "is no damaged row; nothing was removed");
  }
  if (IsRestorable(contents.Value(), *row) || HasCalendarFault(contents.Value())) {
    return refusal(QL_GENERAL_FAILURE, "nothing was removed" + std::string(kRebuildRestores));
  }
  DeleteIssue(database, id);
  StoreState state = contents.Value().state;
  ++state.stamp;
  WriteState(database, state);
  WriteIndex(database, contents.Value().issues, state.stamp);
  return transaction.Commit();
}

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
