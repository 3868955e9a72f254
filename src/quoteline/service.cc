#include "quoteline/service.h"

#include <sys/stat.h>

#include <algorithm>
#include <span>
#include <utility>

#include "base/host_path.h"
#include "quoteline/quoteline.h"
#include "quoteline/store_creation.h"

namespace vistaplot {

namespace {

// Another mark: another file. Of a file that is taken as never changing, its time of change counts
// too. 0 when there is none.
std::uint64_t FileMark(const Database& database) {
  struct stat info {};
  if (::stat(database.Path().c_str(), &info) != 0) return 0;
  if (!database.IsImmutable()) return info.st_ino;
  const auto time = static_cast<std::uint64_t>(info.st_mtim.tv_sec) * 1'000'000'000U +
                    static_cast<std::uint64_t>(info.st_mtim.tv_nsec);
  return info.st_ino * 2654435761U + time;
}

IssueSummary SummaryOf(const SymbolIndex& index, const IssueEntry& entry) {
  return {.symbol = entry.symbol,
          .name = index.NameOf(entry),
          .first_day = entry.first_day,
          .last_day = entry.last_day,
          .prices = entry.prices};
}

IssueSummary SummaryOf(const FnuIssue& issue) {
  return {.symbol = issue.symbol,
          .name = issue.name,
          .first_day = issue.first_day,
          .last_day = issue.LastDay(),
          .prices = issue.lines};
}

// Days behind the last price repeat it.
void RepeatLast(float* element_zero, int last_day, std::size_t days) {
  std::fill(element_zero + last_day + 1, element_zero + days + 1, element_zero[last_day]);
}

}  // namespace

Service::Service(std::string directory, Database database)
    : directory_(std::move(directory)), database_(std::move(database)) {}

Service::~Service() {
  StopReading();
}

Result<std::unique_ptr<Service>> Service::Open(const std::string& directory) {
  const std::string absolute = AbsolutePath(directory);
  auto database = OpenStore(absolute, Access::kRead);
  if (!database) return database.Error();
  std::unique_ptr<Service> service(new Service(absolute, std::move(database.Value())));
  service->file_mark_ = FileMark(service->database_);
  if (auto loaded = service->LoadAll(); !loaded) return loaded.Error();
  return service;
}

// A read transaction stays open, so that calendar, index and histories are of one moment. The
// write-ahead log lets other programs write meanwhile.
Status Service::StartReading() {
  database_.Run("BEGIN");
  return database_.Outcome();
}

void Service::StopReading() {
  blob_.reset();
  database_.Forgive();
  if (sqlite3_get_autocommit(database_.Handle()) == 0) database_.Run("ROLLBACK");
  database_.Forgive();
}

Status Service::LoadAll() {
  if (auto started = StartReading(); !started) return started;
  auto state = LoadState(database_);
  if (!state) return state.Error();
  auto index = LoadIndex(database_, state.Value());
  if (!index) return index.Error();
  const auto& entries = index.Value().Entries();
  const bool fits = std::all_of(entries.begin(), entries.end(), [&](const IssueEntry& entry) {
    return entry.last_day <= state.Value().days.size();
  });
  if (!fits) {
    return RuntimeError{.number = QL_SYMBOLS_MISMATCH,
                        .description = "the symbol index does not fit the calendar",
                        .subject = database_.Path()};
  }
  state_ = std::move(state.Value());
  index_ = std::move(index.Value());
  fnu_.Refresh(directory_, state_.days, true);
  return Done{};
}

bool Service::IsReplaced() const {
  const std::uint64_t mark = FileMark(database_);
  return mark != 0 && mark != file_mark_;
}

Status Service::Refresh() {
  if (IsReplaced()) {
    auto opened = Open(directory_);
    if (!opened) return opened.Error();
    Service& other = *opened.Value();
    std::swap(database_, other.database_);
    std::swap(blob_, other.blob_);
    std::swap(file_mark_, other.file_mark_);
    std::swap(state_, other.state_);
    std::swap(index_, other.index_);
    std::swap(fnu_, other.fnu_);
    return Done{};
  }
  StopReading();
  if (auto started = StartReading(); !started) return started;
  const auto state = LoadState(database_);
  if (!state) return state.Error();
  if (state.Value().stamp == state_.stamp) {
    RefreshFnu();
    return Done{};
  }
  StopReading();
  return LoadAll();
}

void Service::RefreshFnu() {
  fnu_.Refresh(directory_, state_.days, false);
}

const FnuIssue* Service::FindFnu(const SymbolKey& symbol) {
  const FnuIssue* issue = fnu_.Find(symbol);
  if (issue != nullptr && fnu_.IsCurrent(directory_, *issue)) return issue;
  RefreshFnu();
  return fnu_.Find(symbol);
}

std::optional<IssueSummary> Service::Find(const SymbolKey& symbol) {
  if (const IssueEntry* entry = index_.Find(symbol)) return SummaryOf(index_, *entry);
  if (const FnuIssue* issue = FindFnu(symbol)) return SummaryOf(*issue);
  return std::nullopt;
}

std::vector<IssueSummary> Service::List() {
  RefreshFnu();
  std::vector<IssueSummary> list;
  list.reserve(index_.Entries().size() + fnu_.All().size());
  for (const IssueEntry& entry : index_.Entries()) list.push_back(SummaryOf(index_, entry));
  for (const FnuIssue& issue : fnu_.All()) {
    if (index_.Find(issue.symbol) == nullptr) list.push_back(SummaryOf(issue));
  }
  std::sort(list.begin(), list.end(), [](const IssueSummary& a, const IssueSummary& b) {
    return a.symbol < b.symbol;
  });
  return list;
}

std::int32_t Service::Fetch(const SymbolKey& symbol, float* element_zero) {
  if (const IssueEntry* entry = index_.Find(symbol)) return FetchStored(*entry, element_zero);
  const FnuIssue* issue = FindFnu(symbol);
  if (issue == nullptr) return QL_NO_SUCH_ISSUE;
  std::copy(issue->values.begin(), issue->values.end(), element_zero + issue->first_day);
  RepeatLast(element_zero, issue->LastDay(), state_.days.size());
  return 0;
}

std::int32_t Service::FetchStored(const IssueEntry& entry, float* element_zero) {
  float* first = element_zero + entry.first_day;
  const std::size_t days = std::size_t{entry.last_day} - entry.first_day + 1;
  if (!ReadStored(entry, element_zero) || !IsHistory(entry, {first, days})) {
    blob_.reset();
    std::fill(first, element_zero + state_.days.size() + 1, -1.0F);
    return QL_ISSUE_CORRUPT;
  }
  RepeatLast(element_zero, entry.last_day, state_.days.size());
  return 0;
}

bool Service::IsHistory(const IssueEntry& entry, std::span<const float> prices) const {
  const std::uint32_t checksum = state_.form == StoreForm::kFirst
                                     ? FirstFormChecksum(std::as_bytes(prices))
                                     : HistoryChecksum(entry.symbol, entry.first_day, prices);
  return checksum == entry.checksum;
}

bool Service::ReadStored(const IssueEntry& entry, float* element_zero) {
  if (blob_) {
    if (sqlite3_blob_reopen(blob_.get(), entry.id) != SQLITE_OK) return false;
  } else {
    sqlite3_blob* blob = nullptr;
    const int opened =
        sqlite3_blob_open(database_.Handle(), "main", "histories", "prices", entry.id, 0, &blob);
    blob_.reset(blob);
    if (opened != SQLITE_OK) return false;
  }
  const int bytes = (entry.last_day - entry.first_day + 1) * static_cast<int>(sizeof(float));
  return sqlite3_blob_bytes(blob_.get()) == bytes &&
         sqlite3_blob_read(blob_.get(), element_zero + entry.first_day, bytes, 0) == SQLITE_OK;
}

}  // namespace vistaplot
