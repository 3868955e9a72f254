// An open market-data service: the calendar, the issues of the database and of FNU files, and
// their histories, all of one moment. What other programs change shows with the next Refresh.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "base/result.h"
#include "quoteline/fnu_issues.h"
#include "quoteline/store.h"
#include "quoteline/symbol_index.h"

namespace vistaplot {

/// What is known of an issue without its prices.
struct IssueSummary {
  SymbolKey symbol{};
  std::string_view name;  ///< UTF-8, may be empty; valid until the next Refresh
  int first_day = 0;
  int last_day = 0;
  int prices = 0;  ///< days with a price, or line, of their own
};

class Service {
 public:
  /// The error's number is the QL_ status.
  static Result<std::unique_ptr<Service>> Open(const std::string& directory);

  ~Service();
  Service(const Service&) = delete;
  Service& operator=(const Service&) = delete;

  /// Takes up what other programs have changed since. On failure the old state stays.
  Status Refresh();

  /// Takes up changed FNU files; the calendar stays as it is.
  void RefreshFnu();

  const std::string& Directory() const { return directory_; }
  const std::vector<DateSerial>& Days() const { return state_.days; }  ///< element 0 is day 1
  const SymbolIndex& Index() const { return index_; }
  const FnuIssues& Fnu() const { return fnu_; }

  /// An issue of the database, else of an FNU file (read again when its file has changed).
  std::optional<IssueSummary> Find(const SymbolKey& symbol);

  /// All issues, ascending by symbol; a database issue hides an FNU issue of its symbol.
  std::vector<IssueSummary> List();

  /// Writes an issue's history to element_zero[first day] up to element_zero[number of days].
  /// Returns a QL_ status; a damaged history leaves -1 on its days.
  std::int32_t Fetch(const SymbolKey& symbol, float* element_zero);

 private:
  struct BlobCloser {
    void operator()(sqlite3_blob* blob) const { sqlite3_blob_close(blob); }
  };

  Service(std::string directory, Database database);

  Status LoadAll();
  Status StartReading();
  void StopReading();
  bool IsReplaced() const;
  std::int32_t FetchStored(const IssueEntry& entry, float* element_zero);
  bool IsHistory(const IssueEntry& entry, std::span<const float> prices) const;
  bool ReadStored(const IssueEntry& entry, float* element_zero);
  const FnuIssue* FindFnu(const SymbolKey& symbol);

  std::string directory_;
  Database database_;
  std::unique_ptr<sqlite3_blob, BlobCloser> blob_;
  std::uint64_t file_mark_ = 0;  // tells the file from one that took its place
  StoreState state_;
  SymbolIndex index_;
  FnuIssues fnu_;
};

}  // namespace vistaplot
