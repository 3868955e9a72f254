#include "quoteline/first_form.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "quoteline/store.h"
#include "quoteline/store_writing.h"

namespace vistaplot {

namespace {

constexpr std::size_t kLanes = 16;
using Lanes = std::array<std::uint32_t, kLanes>;

struct Sums {
  Lanes first{};
  Lanes second{};
};

void AddBlock(Sums& sums, const std::byte* bytes) {
  Lanes words;
  std::memcpy(words.data(), bytes, sizeof words);
  for (std::size_t i = 0; i < kLanes; ++i) {
    sums.first[i] += words[i];
    sums.second[i] += sums.first[i];
  }
}

std::uint32_t Fold(const Sums& sums, std::size_t size) {
  std::uint32_t value = static_cast<std::uint32_t>(size);
  for (std::size_t i = 0; i < kLanes; ++i) {
    value = std::rotl(value, 5) * 2654435761U + sums.first[i];
    value = std::rotl(value, 5) * 2654435761U + sums.second[i];
  }
  return value;
}

StoreForm FormOf(Database& database) {
  Query query(database, "PRAGMA user_version");
  return query.Next() ? StoreForm{static_cast<int>(query.Integer(0))} : StoreForm::kSecond;
}

// What the issues are: the index, which has a check value, and without a fitting one their rows.
std::vector<IssueRow> TrueRows(Database& database, const StoreState& state) {
  const auto index = LoadIndex(database, state);
  if (!index) return LoadIssues(database, StoreForm::kFirst);
  std::vector<IssueRow> issues;
  for (const IssueEntry& entry : index.Value().Entries()) {
    issues.push_back(RowOf(index.Value(), entry, StoreForm::kFirst));
  }
  return issues;
}

// Turns a row over; `known` are the symbols so far. A row that is none of an issue, or doubles
// one, stays as it is and is marked as damaged.
void TurnOver(Database& database, IssueRow& issue, std::size_t days, std::set<std::string>& known) {
  const auto history = LoadHistory(database, issue);
  const bool was_intact = history && IsIntact(*history, issue);
  const auto key = KeyOf(issue.symbol);
  issue.is_sound = SymbolFromText(issue.symbol) == issue.symbol && HasSoundDays(issue, days) &&
                   known.insert(issue.symbol).second;
  issue.form = StoreForm::kSecond;
  if (!history || !key) return;
  issue.checksum = HistoryChecksum(*key, issue.first_day, history->prices);
  issue.priced_checksum = PricedChecksum(history->priced);
  if (!was_intact) issue.checksum = ~issue.checksum;
}

}  // namespace

std::uint32_t FirstFormChecksum(std::span<const std::byte> bytes) {
  constexpr std::size_t kBlock = sizeof(Lanes);
  Sums sums;
  std::size_t at = 0;
  for (; at + kBlock <= bytes.size(); at += kBlock) AddBlock(sums, bytes.data() + at);
  if (at < bytes.size()) {
    std::array<std::byte, kBlock> rest{};
    std::memcpy(rest.data(), bytes.data() + at, bytes.size() - at);
    AddBlock(sums, rest.data());
  }
  return Fold(sums, bytes.size());
}

Status MoveToSecondForm(Database& database) {
  if (FormOf(database) != StoreForm::kFirst) return database.Outcome();
  Transaction transaction(database);
  // Another program may have done it while this one waited.
  if (FormOf(database) != StoreForm::kFirst) return database.Outcome();
  if (auto fit = CheckBeforeWriting(database); !fit) return fit;
  auto state = LoadState(database);
  if (!state) return state.Error();
  std::vector<IssueRow> issues = TrueRows(database, state.Value());
  std::set<std::string> known;
  for (IssueRow& issue : issues) TurnOver(database, issue, state.Value().days.size(), known);
  database.Run("DROP TABLE issues; DROP TABLE IF EXISTS symbols;");
  MakeTables(database);
  for (const IssueRow& issue : issues) WriteRow(database, issue);
  // Programs that read meanwhile take it up by its new stamp.
  ++state.Value().stamp;
  WriteState(database, state.Value());
  WriteIndex(database, issues, state.Value().stamp);
  return transaction.Commit();
}

}  // namespace vistaplot
