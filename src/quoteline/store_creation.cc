#include "quoteline/store_creation.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/files.h"
#include "quoteline/quoteline.h"
#include "quoteline/store.h"
#include "quoteline/store_writing.h"

namespace vistaplot {

namespace {

constexpr std::string_view kDraftEnding = ".new";

RuntimeError CannotMake(const std::string& path, int host_errno) {
  return {.number = QL_SYSTEM_FAILURE,
          .description = "cannot make the database: " + ErrorFromErrno(host_errno).description,
          .subject = path};
}

void RemoveWithSideFiles(const std::string& path) {
  for (const char* ending : {"", "-journal", "-wal", "-shm"}) ::unlink((path + ending).c_str());
}

// Another program, or another call of this one, never has the same.
std::string DraftPath(const std::string& path) {
  return path + "." + std::to_string(::getpid()) + "-" + std::to_string(std::random_device{}()) +
         std::string(kDraftEnding);
}

// Drafts of makers that were killed: whoever holds the directory finds only such.
void RemoveOldDrafts(const std::string& directory) {
  const auto names = ListFiles(directory, "quoteline.db.*" + std::string(kDraftEnding) + "*");
  if (!names) return;
  for (const std::string& name : names.Value()) ::unlink(JoinPath(directory, name).c_str());
}

// 0 or an errno. A file that its owner may not write would lock him out, whatever the mask of the
// session that makes it.
int GiveToOwner(const std::string& path) {
  struct stat info {};
  if (::stat(path.c_str(), &info) != 0) return errno;
  const mode_t wanted = info.st_mode | S_IRUSR | S_IWUSR;
  return wanted == info.st_mode || ::chmod(path.c_str(), wanted & 07777U) == 0 ? 0 : errno;
}

// 0 or an errno; a folder too, whose new names are to last.
int Sync(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return errno;
  int failed = ::fsync(file) == 0 ? 0 : errno;
  if (::close(file) != 0 && failed == 0) failed = errno;
  return failed;
}

// An empty database that lies in its file alone. The log is switched on last, so that every page
// is written where it belongs, and each failure is told by the statement that met it.
Status WriteDraft(const std::string& draft) {
  auto opened = Database::Open(draft, Access::kCreate);
  if (!opened) return opened.Error();
  Database& database = opened.Value();
  if (const int failed = GiveToOwner(draft); failed != 0) return CannotMake(draft, failed);
  // The largest pages: a history of 12,000 days lies within one of them and is read with one call.
  // The draft is synced as a whole by its maker.
  database.Run(
      "PRAGMA page_size = 65536; PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF; BEGIN;");
  MakeTables(database);
  WriteState(database, {});
  WriteIndex(database, {}, 0);
  database.Run("COMMIT; PRAGMA journal_mode = WAL; PRAGMA wal_checkpoint(TRUNCATE);");
  return database.Outcome();
}

// 0 or an errno: gives the draft the name unless that is taken.
int NameDraft(const std::string& draft, const std::string& path) {
  if (::renameat2(AT_FDCWD, draft.c_str(), AT_FDCWD, path.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return errno;
  // A file system without that call; a link refuses a taken name as well.
  return ::link(draft.c_str(), path.c_str()) == 0 ? 0 : errno;
}

// The same folder may have been removed, and made anew, while its lock was waited for.
bool IsFolderAt(int folder, const std::string& path) {
  struct stat held {};
  struct stat there {};
  return ::fstat(folder, &held) == 0 && ::stat(path.c_str(), &there) == 0 &&
         held.st_dev == there.st_dev && held.st_ino == there.st_ino;
}

void LockFolder(int folder) {
  while (::flock(folder, LOCK_EX) != 0 && errno == EINTR) {
  }
}

// The folders of a path that are not there, the uppermost first.
std::vector<std::string> MissingFolders(const std::string& path) {
  std::vector<std::string> missing;
  for (std::filesystem::path at = path; !at.empty() && !FolderExists(at.string());
       at = at.parent_path()) {
    missing.push_back(at.string());
  }
  std::reverse(missing.begin(), missing.end());
  return missing;
}

}  // namespace

Result<DirectoryMaking> DirectoryMaking::Begin(const std::string& directory) {
  std::vector<std::string> missing = MissingFolders(directory);
  for (;;) {
    if (auto made = MakeFolders(directory); !made) return made.Error();
    const int folder = ::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0 && errno == ENOENT) continue;
    if (folder < 0) return ErrorFromErrno(errno, directory);
    LockFolder(folder);
    if (IsFolderAt(folder, directory)) return DirectoryMaking(folder, std::move(missing));
    ::close(folder);
  }
}

DirectoryMaking::~DirectoryMaking() {
  for (auto path = made_.rbegin(); path != made_.rend(); ++path) {
    // A folder that holds something of others refuses.
    if (::rmdir(path->c_str()) != 0 && errno == ENOTDIR) ::unlink(path->c_str());
  }
  if (folder_ >= 0) ::close(folder_);
}

DirectoryMaking::DirectoryMaking(DirectoryMaking&& other) noexcept
    : folder_(std::exchange(other.folder_, -1)), made_(std::exchange(other.made_, {})) {}

Status DirectoryMaking::MakeFolder(const std::string& path) {
  for (std::string& missing : MissingFolders(path)) made_.push_back(std::move(missing));
  return MakeFolders(path);
}

void DirectoryMaking::NoteFile(const std::string& path) {
  if (!FileExists(path)) made_.push_back(path);
}

Status CreateStore(const std::string& directory) {
  const std::string path = DatabasePath(directory);
  const std::string draft = DraftPath(path);
  // It would be taken for the new database's own.
  if (FileExists(path + "-wal")) {
    return RuntimeError{
        .number = QL_GENERAL_FAILURE,
        .description = "is the log of a database that is gone; put that back, or the log elsewhere",
        .subject = path + "-wal"};
  }
  RemoveOldDrafts(directory);
  auto written = WriteDraft(draft);
  int failed = written ? Sync(draft) : 0;
  if (written && failed == 0) failed = NameDraft(draft, path);
  RemoveWithSideFiles(draft);
  if (!written) {
    RuntimeError error = written.Error();
    error.subject = path;
    return error;
  }
  if (failed != 0) return CannotMake(path, failed);
  Sync(directory);
  return Done{};
}

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
