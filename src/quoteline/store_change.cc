#include "quoteline/store_change.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "quoteline/quoteline.h"
#include "quoteline/store_contents.h"
#include "quoteline/store_writing.h"

namespace vistaplot {

namespace {

RuntimeError Refusal(std::string text, std::string subject = {}) {
  return {
      .number = QL_GENERAL_FAILURE, .description = std::move(text), .subject = std::move(subject)};
}

RuntimeError DamagedHistory(const std::string& symbol) {
  return {.number = QL_ISSUE_CORRUPT,
          .description = "its history is damaged; remove it, or import it anew with --replace",
          .subject = symbol};
}

// Positions (from 1) of ascending values in an ascending list; 0 where a value is not there.
std::vector<int> PositionsIn(std::span<const DateSerial> list, std::span<const DateSerial> values) {
  std::vector<int> positions;
  positions.reserve(values.size());
  std::size_t at = 0;
  for (const DateSerial value : values) {
    while (at < list.size() && list[at] < value) ++at;
    const bool found = at < list.size() && list[at] == value;
    positions.push_back(found ? static_cast<int>(at) + 1 : 0);
  }
  return positions;
}

void Unite(std::vector<DateSerial>& days, std::span<const DateSerial> more) {
  std::vector<DateSerial> united;
  united.reserve(days.size() + more.size());
  std::set_union(days.begin(), days.end(), more.begin(), more.end(), std::back_inserter(united));
  days = std::move(united);
}

// Every date of the call; lists that issues share are looked at once.
void UniteAll(std::vector<DateSerial>& days, const std::map<std::string, IssuePrices>& prices) {
  std::set<const DateSerial*> seen;
  for (const auto& [symbol, issue] : prices) {
    for (const IssuePrices::Rows& rows : issue.rows) {
      if (seen.insert(rows.dates.data()).second) Unite(days, rows.dates);
    }
  }
}

}  // namespace

Result<StoreChange> StoreChange::Begin(Database& database) {
  StoreChange change(database, std::make_unique<Transaction>(database));
  if (auto fit = CheckBeforeWriting(database); !fit) return fit.Error();
  auto contents = LoadContents(database);
  if (!contents) return contents.Error();
  if (const auto faults = RowFaults(contents.Value()); !faults.empty()) {
    return Refusal(faults.front() + "; until then nothing is changed");
  }
  change.state_ = std::move(contents.Value().state);
  change.issues_ = std::move(contents.Value().issues);
  return change;
}

Result<std::vector<IssueChange>> StoreChange::Put(const std::map<std::string, IssuePrices>& prices,
                                                  bool replace) {
  std::set<std::string> symbols;
  bool forgets = false;
  for (const auto& [symbol, issue] : prices) {
    symbols.insert(symbol);
    forgets = forgets || (replace && FindIssue(symbol) != nullptr);
  }
  std::vector<DateSerial> days = state_.days;
  if (forgets) {
    auto left = DatesWithout(symbols);
    if (!left) return left.Error();
    days = std::move(left.Value());
  }
  UniteAll(days, prices);
  if (auto taken = TakeCalendar(std::move(days), symbols); !taken) return taken.Error();
  std::vector<IssueChange> changes;
  for (const auto& [symbol, issue] : prices) {
    auto change = PutIssue(symbol, issue, replace);
    if (!change) return change.Error();
    changes.push_back(std::move(change.Value()));
  }
  if (auto outcome = database_->Outcome(); !outcome) return outcome.Error();
  return changes;
}

Status StoreChange::Remove(const std::vector<std::string>& symbols) {
  const std::set<std::string> removed(symbols.begin(), symbols.end());
  auto left = DatesWithout(removed);
  if (!left) return left.Error();
  if (auto taken = TakeCalendar(std::move(left.Value()), removed); !taken) return taken;
  std::erase_if(issues_, [&](const IssueRow& issue) {
    if (!removed.contains(issue.symbol)) return false;
    DeleteIssue(*database_, issue.id);
    return true;
  });
  return database_->Outcome();
}

Status StoreChange::Commit() {
  std::move(added_.begin(), added_.end(), std::back_inserter(issues_));
  added_.clear();
  std::sort(issues_.begin(), issues_.end(), [](const IssueRow& a, const IssueRow& b) {
    return a.symbol < b.symbol;
  });
  ++state_.stamp;
  WriteState(*database_, state_);
  WriteIndex(*database_, issues_, state_.stamp);
  if (auto committed = transaction_->Commit(); !committed) return committed;
  // Brings the log into the file as far as readers allow; what they hold back follows later.
  database_->Run("PRAGMA wal_checkpoint(PASSIVE)");
  database_->Forgive();
  return Done{};
}

IssueRow* StoreChange::FindIssue(std::string_view symbol) {
  const auto found = std::lower_bound(
      issues_.begin(), issues_.end(), symbol, [](const IssueRow& issue, std::string_view wanted) {
        return issue.symbol < wanted;
      });
  return found != issues_.end() && found->symbol == symbol ? &*found : nullptr;
}

Result<History> StoreChange::IntactHistory(const IssueRow& issue) {
  auto history = LoadHistory(*database_, issue);
  if (auto outcome = database_->Outcome(); !outcome) return outcome.Error();
  if (!history || !HasSoundDays(issue, new_day_of_.size() - 1) || !IsIntact(*history, issue)) {
    return DamagedHistory(issue.symbol);
  }
  return std::move(*history);
}

Result<std::vector<DateSerial>> StoreChange::DatesWithout(const std::set<std::string>& left_out) {
  std::vector<bool> used(state_.days.size());
  for (const IssueRow& issue : issues_) {
    if (left_out.contains(issue.symbol)) continue;
    const auto history = LoadHistory(*database_, issue);
    // The bits alone tell the days: damaged prices are no hindrance to remove another issue.
    if (!history || !HasSoundDays(issue, used.size()) ||
        PricedChecksum(history->priced) != issue.priced_checksum) {
      return DamagedHistory(issue.symbol);
    }
    for (std::size_t i = 0; i < history->prices.size(); ++i) {
      if (history->HasPrice(i)) used[static_cast<std::size_t>(issue.first_day - 1) + i] = true;
    }
  }
  if (auto outcome = database_->Outcome(); !outcome) return outcome.Error();
  std::vector<DateSerial> dates;
  for (std::size_t i = 0; i < used.size(); ++i) {
    if (used[i]) dates.push_back(state_.days[i]);
  }
  return dates;
}

Status StoreChange::TakeCalendar(std::vector<DateSerial> days,
                                 const std::set<std::string>& left_out) {
  if (days.size() > static_cast<std::size_t>(kMaxMarketDays)) {
    return Refusal("the market calendar would have " + std::to_string(days.size()) +
                   " days; it holds at most " + std::to_string(kMaxMarketDays));
  }
  new_day_of_ = PositionsIn(days, state_.days);
  new_day_of_.insert(new_day_of_.begin(), 0);
  row_.assign(days.size(), 0.0F);
  state_.days = std::move(days);
  for (IssueRow& issue : issues_) {
    if (left_out.contains(issue.symbol)) continue;
    if (auto moved = Renumber(issue); !moved) return moved;
  }
  return Done{};
}

Status StoreChange::Renumber(IssueRow& issue) {
  if (!HasSoundDays(issue, new_day_of_.size() - 1)) return DamagedHistory(issue.symbol);
  const auto first = static_cast<std::size_t>(issue.first_day);
  const auto last = static_cast<std::size_t>(issue.last_day);
  const int moved_by = new_day_of_[first] - issue.first_day;
  bool stays_whole = true;
  for (std::size_t day = first; day <= last; ++day) {
    stays_whole = stays_whole && new_day_of_[day] == static_cast<int>(day) + moved_by;
  }
  if (stays_whole && moved_by == 0) return Done{};
  auto history = IntactHistory(issue);
  if (!history) return history.Error();
  if (stays_whole) {
    history.Value().first_day += moved_by;
    MoveIssue(*database_, issue, history.Value());
    return database_->Outcome();
  }
  std::fill(row_.begin(), row_.end(), 0.0F);
  UnpackHistory(history.Value(), new_day_of_, row_);
  WriteIssue(*database_, issue, PackHistory(row_));
  return database_->Outcome();
}

void StoreChange::Overlay(const IssuePrices::Rows& rows, IssueChange& change) {
  auto& days = days_of_dates_[rows.dates.data()];
  if (days.size() != rows.dates.size()) days = PositionsIn(state_.days, rows.dates);
  for (std::size_t i = 0; i < days.size(); ++i) {
    const float price = rows.prices[i];
    if (price == 0.0F) continue;
    float& place = row_[static_cast<std::size_t>(days[i] - 1)];
    if (place == 0.0F) {
      ++change.new_days;
    } else if (place != price) {
      ++change.changed_days;
    }
    place = price;
  }
}

Result<IssueChange> StoreChange::PutIssue(const std::string& symbol,
                                          const IssuePrices& prices,
                                          bool replace) {
  IssueChange change{.symbol = symbol};
  std::fill(row_.begin(), row_.end(), 0.0F);
  IssueRow* known = FindIssue(symbol);
  if (known != nullptr && !replace) {
    const auto history = IntactHistory(*known);
    if (!history) return history.Error();
    UnpackHistory(history.Value(), new_day_of_, row_);
  }
  for (const IssuePrices::Rows& rows : prices.rows) Overlay(rows, change);
  const History history = PackHistory(row_);
  if (history.prices.empty()) return Refusal("no price to store", symbol);
  IssueRow issue;
  if (known != nullptr) issue = *known;
  issue.symbol = symbol;
  if (!prices.name.empty()) issue.name = prices.name;
  WriteIssue(*database_, issue, history);
  change.first_date = state_.days[static_cast<std::size_t>(issue.first_day - 1)];
  change.last_date = state_.days[static_cast<std::size_t>(issue.last_day - 1)];
  if (known != nullptr) {
    *known = std::move(issue);
  } else {
    added_.push_back(std::move(issue));
  }
  return change;
}

}  // namespace vistaplot
