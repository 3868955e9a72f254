#include "quoteline/administration.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <set>
#include <system_error>

#include "base/date.h"
#include "base/files.h"
#include "base/number_text.h"
#include "base/text.h"
#include "quoteline/family_folders.h"
#include "quoteline/quoteline.h"
#include "quoteline/service.h"
#include "quoteline/store_change.h"

namespace vistaplot {

namespace {

RuntimeError UnknownIssue(std::string symbols) {
  return {
      .number = QL_NO_SUCH_ISSUE, .description = "no such issue", .subject = std::move(symbols)};
}

std::string DateOfDay(const Service& service, int day) {
  return DateText(service.Days()[static_cast<std::size_t>(day - 1)], DatePattern::kIso);
}

// The 7 of "#7", which is no symbol, when it stands alone.
std::optional<std::int64_t> RowNumber(const std::vector<std::string>& symbols) {
  if (symbols.size() != 1 || !symbols.front().starts_with('#')) return std::nullopt;
  const std::string_view digits = std::string_view(symbols.front()).substr(1);
  std::int64_t number = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (read.ec != std::errc() || read.ptr != digits.data() + digits.size()) return std::nullopt;
  return number;
}

// The symbols in upper case; fails for those that no history of the database has.
Result<std::vector<std::string>> StoredSymbols(const StoreChange& change,
                                               const std::vector<std::string>& symbols) {
  std::set<std::string> known;
  for (const IssueRow& issue : change.Issues()) known.insert(issue.symbol);
  std::vector<std::string> wanted;
  std::string unknown;
  for (const std::string& symbol : symbols) {
    wanted.push_back(UpperCase(TrimBlanks(symbol)));
    if (known.contains(wanted.back())) continue;
    unknown += (unknown.empty() ? "" : ", ") + symbol;
  }
  if (!unknown.empty()) {
    RuntimeError error = UnknownIssue(std::move(unknown));
    error.description = "no such issue in the database; nothing was removed";
    return error;
  }
  return wanted;
}

}  // namespace

Result<bool> InitService(const std::string& directory) {
  auto making = DirectoryMaking::Begin(directory);
  if (!making) return making.Error();
  auto made = InitService(directory, making.Value());
  if (made) making.Value().Keep();
  return made;
}

Result<bool> InitService(const std::string& directory, DirectoryMaking& making) {
  std::vector<std::string_view> folders(kFamilyFolders.begin(), kFamilyFolders.end());
  folders.emplace_back("SIG");
  for (const std::string_view folder : folders) {
    if (auto made = making.MakeFolder(ServicePath(directory, folder)); !made) return made.Error();
  }
  if (!FileExists(DatabasePath(directory))) {
    for (const char* ending : {"", "-wal", "-shm"}) {
      making.NoteFile(DatabasePath(directory) + ending);
    }
    if (auto made = CreateStore(directory); !made) return made.Error();
    return true;
  }
  if (auto opened = OpenStore(directory, Access::kRead); !opened) return opened.Error();
  return false;
}

Result<std::vector<std::string>> ListIssues(const std::string& directory,
                                            std::string_view pattern) {
  auto opened = Service::Open(directory);
  if (!opened) return opened.Error();
  Service& service = *opened.Value();
  std::vector<std::string> lines;
  for (const IssueSummary& issue : service.List()) {
    const std::string symbol = SymbolText(issue.symbol);
    if (!pattern.empty() && !MatchesPattern(symbol, pattern)) continue;
    std::string count = std::to_string(issue.prices);
    count.insert(0, 5 - std::min<std::size_t>(5, count.size()), ' ');
    lines.push_back(PadRight(symbol, kSymbolLength) + "  " + DateOfDay(service, issue.first_day) +
                    "  " + DateOfDay(service, issue.last_day) + "  " + count + "  " +
                    std::string(issue.name.empty() ? std::string_view(symbol) : issue.name));
  }
  return lines;
}

Result<std::string> HistoryCsv(const std::string& directory, std::string_view symbol) {
  auto opened = Service::Open(directory);
  if (!opened) return opened.Error();
  Service& service = *opened.Value();
  const auto key = KeyOf(symbol);
  const auto issue = key ? service.Find(*key) : std::nullopt;
  if (!issue) return UnknownIssue(std::string(symbol));
  const int days = static_cast<int>(service.Days().size());
  std::vector<float> prices(static_cast<std::size_t>(days) + 1);
  if (const std::int32_t status = service.Fetch(*key, prices.data()); status < 0) {
    return RuntimeError{
        .number = status, .description = "its history is damaged", .subject = SymbolText(*key)};
  }
  std::string csv = "Day,Date,Price\n";
  for (int day = issue->first_day; day <= days; ++day) {
    csv += std::to_string(day) + "," + DateOfDay(service, day) + "," +
           NumberText(prices[static_cast<std::size_t>(day)]) + "\n";
  }
  return csv;
}

Result<std::size_t> RemoveIssues(const std::string& directory,
                                 const std::vector<std::string>& symbols) {
  auto database = OpenStore(directory, Access::kWrite);
  if (!database) return database.Error();
  if (const auto row = RowNumber(symbols)) {
    const auto removed = RemoveDamagedRow(database.Value(), *row);
    if (!removed) return removed.Error();
    return std::size_t{1};
  }
  auto change = StoreChange::Begin(database.Value());
  if (!change) return change.Error();
  const auto stored = StoredSymbols(change.Value(), symbols);
  if (!stored) return stored.Error();
  const std::size_t before = change.Value().Issues().size();
  if (auto removed = change.Value().Remove(stored.Value()); !removed) return removed.Error();
  if (auto committed = change.Value().Commit(); !committed) return committed.Error();
  return before - change.Value().Issues().size();
}

Result<RebuildReport> RebuildSymbols(const std::string& directory) {
  auto database = OpenStore(directory, Access::kWrite);
  if (!database) return database.Error();
  return RebuildStore(database.Value());
}

}  // namespace vistaplot
