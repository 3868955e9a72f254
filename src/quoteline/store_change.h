// One change of the store: issues put in, merged or removed, and the calendar that follows from
// them, all in one transaction.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "base/result.h"
#include "quoteline/database.h"
#include "quoteline/store.h"

namespace vistaplot {

/// New prices of one issue, in any number of rows. Issues may share a row of dates (by address).
struct IssuePrices {
  struct Rows {
    /// Ascending without repetition; on each of them some issue of the call has a price.
    std::span<const DateSerial> dates;
    std::span<const float> prices;  ///< one a date; 0 where this issue has none
  };
  std::string_view name;  ///< empty: keeps the name it has
  std::vector<Rows> rows;
};

/// What a change did to one issue.
struct IssueChange {
  std::string symbol;
  int new_days = 0;
  int changed_days = 0;  ///< days that had another price before
  DateSerial first_date = 0;
  DateSerial last_date = 0;
};

class StoreChange {
 public:
  /// Begins a change: waits for other writers, reads the calendar and the issues. Fails when the
  /// structure of the file or a row is damaged: nothing is made from it or written over it.
  static Result<StoreChange> Begin(Database& database);

  const std::vector<IssueRow>& Issues() const { return issues_; }

  /// Merges prices into the issues of their symbols, or (`replace`) puts them in the place of the
  /// old histories. The calendar becomes the union of all dates with a price, and the days of the
  /// other issues are renumbered where it moved. One entry an issue, ascending by symbol. Fails,
  /// with nothing to be committed, when the calendar would grow too long or a history that has to
  /// be read is damaged.
  Result<std::vector<IssueChange>> Put(const std::map<std::string, IssuePrices>& prices,
                                       bool replace);

  /// Removes issues, whose symbols must be known, and the calendar's dates that only they had.
  Status Remove(const std::vector<std::string>& symbols);

  /// Stores it all. Without it nothing is changed when the object goes.
  Status Commit();

 private:
  StoreChange(Database& database, std::unique_ptr<Transaction> transaction)
      : database_(&database), transaction_(std::move(transaction)) {}

  IssueRow* FindIssue(std::string_view symbol);
  Result<History> IntactHistory(const IssueRow& issue);
  /// The dates on which issues other than these have a price of their own.
  Result<std::vector<DateSerial>> DatesWithout(const std::set<std::string>& left_out);
  /// Takes up a new calendar and renumbers the issues other than these.
  Status TakeCalendar(std::vector<DateSerial> days, const std::set<std::string>& left_out);
  Status Renumber(IssueRow& issue);
  void Overlay(const IssuePrices::Rows& rows, IssueChange& change);
  Result<IssueChange> PutIssue(const std::string& symbol, const IssuePrices& prices, bool replace);

  Database* database_;
  std::unique_ptr<Transaction> transaction_;
  StoreState state_;
  std::vector<IssueRow> issues_;  // ascending by symbol
  std::vector<IssueRow> added_;
  std::vector<int> new_day_of_;  // by old day, element 0 unused; 0: the day is gone
  std::vector<float> row_;       // prices of one issue by new day
  std::map<const DateSerial*, std::vector<int>> days_of_dates_;  // new days of shared dates
};

}  // namespace vistaplot
