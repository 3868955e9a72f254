#include "quoteline/database.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <utility>

#include "quoteline/quoteline.h"

namespace vistaplot {

namespace {

constexpr int kPatienceMs = 10'000;

struct Meaning {
  std::int32_t status;
  const char* text;
};

Meaning MeaningOf(int result) {
  switch (result & 0xFF) {
    case SQLITE_CANTOPEN:
      return {QL_NO_DATABASE, "cannot open the database"};
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
    case SQLITE_ERROR:  // every statement is right for a whole database
      return {QL_DATABASE_CORRUPT, "the database is damaged"};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return {QL_GENERAL_FAILURE, "another program is changing the database; try again"};
    case SQLITE_READONLY:
    case SQLITE_PERM:
      return {QL_GENERAL_FAILURE, "the database cannot be written; nothing was changed"};
    case SQLITE_FULL:
      return {QL_SYSTEM_FAILURE, "the disk is full; nothing was changed"};
    case SQLITE_NOMEM:
      return {QL_SYSTEM_FAILURE, "out of memory; nothing was changed"};
    case SQLITE_IOERR:
      return {QL_SYSTEM_FAILURE, "reading or writing the database failed; nothing was changed"};
    default:
      return {QL_GENERAL_FAILURE, "the database refused the operation"};
  }
}

// "; files may grow to N bytes here" where this session has such a limit: writing beyond it fails
// like a full disk.
std::string SizeLimit() {
  struct rlimit limit {};
  if (::getrlimit(RLIMIT_FSIZE, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY) return {};
  return "; files may grow to " + std::to_string(limit.rlim_cur) + " bytes here";
}

// The file is there, but not the right to make the side files that a change needs.
bool LacksSideFiles(int result, const std::string& path) {
  const int kind = result & 0xFF;
  const std::string folder = std::filesystem::path(path).parent_path().string();
  return (kind == SQLITE_CANTOPEN || kind == SQLITE_READONLY) &&
         ::eaccess(path.c_str(), R_OK) == 0 &&
         ::eaccess(folder.empty() ? "." : folder.c_str(), W_OK) != 0;
}

RuntimeError ErrorOf(int result, const std::string& detail, const std::string& path) {
  const Meaning meaning =
      LacksSideFiles(result, path)
          ? Meaning{QL_GENERAL_FAILURE, "you may not write in its folder; nothing was changed"}
          : MeaningOf(result);
  std::string text = meaning.text;
  if (!detail.empty()) text += " (" + detail + ")";
  if ((result & 0xFF) == SQLITE_IOERR) text += SizeLimit();
  return {.number = meaning.status, .description = std::move(text), .subject = path};
}

// "file:" address of a file that is taken as never changing: no locks and no side files.
std::string ImmutableAddress(const std::string& path) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string address = "file:";
  for (const char c : path) {
    if (c == '%' || c == '?' || c == '#') {
      const auto byte = static_cast<unsigned char>(c);
      address += '%';
      address += kHex[byte >> 4U];
      address += kHex[byte & 15U];
    } else {
      address += c;
    }
  }
  return address + "?immutable=1";
}

int FlagsOf(Access access) {
  const int create = access == Access::kCreate ? SQLITE_OPEN_CREATE : 0;
  return SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | create;
}

// True when a first read shows that the side files cannot be made in the database's folder.
bool NeedsSideFilesInVain(sqlite3* handle) {
  const int result = sqlite3_exec(handle, "PRAGMA schema_version", nullptr, nullptr, nullptr);
  switch (result & 0xFF) {
    case SQLITE_CANTOPEN:
    case SQLITE_READONLY:
      return true;
    case SQLITE_FULL:
    case SQLITE_IOERR:  // a full disk has no room for them
      return true;
    default:
      return false;
  }
}

bool HoldsChanges(const std::string& log_path) {
  struct stat info {};
  return ::stat(log_path.c_str(), &info) == 0 && info.st_size > 0;
}

// Lets the owner of a database read and write its side files, whoever made them and under which
// mask; he could not change his own database else. Does what this user may do of it.
void OpenSideFilesToOwner(const std::string& path) {
  for (const char* ending : {"-wal", "-shm"}) {
    const std::string side = path + ending;
    struct stat info {};
    if (::lstat(side.c_str(), &info) != 0 || !S_ISREG(info.st_mode) || info.st_nlink != 1) continue;
    struct stat database {};
    if (::stat(path.c_str(), &database) != 0) return;
    const mode_t rights = (database.st_mode & 0666U) | S_IRUSR | S_IWUSR;
    const bool has_rights = (info.st_mode & rights) == rights ||
                            ::chmod(side.c_str(), (info.st_mode & 0777U) | rights) == 0;
    const bool has_owner = info.st_uid == database.st_uid || ::geteuid() != 0 ||
                           ::lchown(side.c_str(), database.st_uid, database.st_gid) == 0;
    // What this user may not do, opening tells.
    if (!has_rights || !has_owner) continue;
  }
}

}  // namespace

Result<Database> Database::Open(const std::string& path, Access access) {
  struct stat info {};
  if (access != Access::kCreate && ::stat(path.c_str(), &info) != 0) {
    const char* text = errno == ENOENT || errno == ENOTDIR
                           ? "there is no database; \"quoteline init\" makes one"
                           : "cannot open the database";
    return RuntimeError{.number = QL_NO_DATABASE, .description = text, .subject = path};
  }
  Database database;
  database.path_ = path;
  const auto open = [&database](const std::string& name, int flags) {
    sqlite3* handle = nullptr;
    const int result = sqlite3_open_v2(name.c_str(), &handle, flags, nullptr);
    database.handle_.reset(handle);
    if (handle != nullptr) sqlite3_busy_timeout(handle, kPatienceMs);
    return result;
  };
  OpenSideFilesToOwner(path);
  int result = open(path, FlagsOf(access));
  const bool only_reads = access == Access::kRead || access == Access::kTrial;
  if (result == SQLITE_OK && only_reads && NeedsSideFilesInVain(database.handle_.get())) {
    if (HoldsChanges(path + "-wal")) {
      return RuntimeError{.number = QL_NO_DATABASE,
                          .description =
                              "holds changes that cannot be read without the right to write in this"
                              " folder; \"quoteline list\", run once by its owner, takes them up",
                          .subject = path + "-wal"};
    }
    database.is_immutable_ = true;
    result =
        open(ImmutableAddress(path), SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_URI);
  }
  if (result != SQLITE_OK) return ErrorOf(result, {}, path);
  return database;
}

void Database::TakeIntoMemory() {
  std::unique_ptr<sqlite3, Closer> file = std::move(handle_);
  sqlite3* memory = nullptr;
  int result = sqlite3_open_v2(":memory:", &memory, FlagsOf(Access::kCreate), nullptr);
  handle_.reset(memory);
  if (result == SQLITE_OK) {
    if (sqlite3_backup* copy = sqlite3_backup_init(memory, "main", file.get(), "main")) {
      sqlite3_backup_step(copy, -1);
      sqlite3_backup_finish(copy);
    }
    result = sqlite3_errcode(memory);
  }
  Note(result);
}

void Database::Run(const char* sql) {
  if (!Failed()) Note(sqlite3_exec(handle_.get(), sql, nullptr, nullptr, nullptr));
}

bool Database::Note(int result) {
  if (Failed()) return false;
  if (result == SQLITE_OK || result == SQLITE_ROW || result == SQLITE_DONE) return true;
  failure_ = result;
  failure_text_ = sqlite3_errmsg(handle_.get());
  return false;
}

Status Database::Outcome() const {
  if (!Failed()) return Done{};
  return ErrorOf(failure_, failure_text_, path_);
}

Query::Query(Database& database, const char* sql) : database_(&database) {
  if (database.Failed()) return;
  sqlite3_stmt* statement = nullptr;
  database.Note(sqlite3_prepare_v2(database.Handle(), sql, -1, &statement, nullptr));
  statement_.reset(statement);
}

Query& Query::Bind(int parameter, std::int64_t value) {
  if (statement_) database_->Note(sqlite3_bind_int64(statement_.get(), parameter, value));
  return *this;
}

Query& Query::Bind(int parameter, std::string_view text) {
  if (statement_) {
    // A null pointer would bind NULL in place of the empty text.
    const char* data = text.empty() ? "" : text.data();
    database_->Note(sqlite3_bind_text(
        statement_.get(), parameter, data, static_cast<int>(text.size()), nullptr));
  }
  return *this;
}

Query& Query::Bind(int parameter, std::span<const std::byte> bytes) {
  if (!statement_) return *this;
  database_->Note(
      bytes.empty()
          ? sqlite3_bind_zeroblob(statement_.get(), parameter, 0)
          : sqlite3_bind_blob64(statement_.get(), parameter, bytes.data(), bytes.size(), nullptr));
  return *this;
}

bool Query::Next() {
  if (!statement_ || database_->Failed()) return false;
  const int result = sqlite3_step(statement_.get());
  return database_->Note(result) && result == SQLITE_ROW;
}

void Query::RunOnce() {
  Next();
  if (statement_) sqlite3_reset(statement_.get());
}

std::int64_t Query::Integer(int column) const {
  return sqlite3_column_int64(statement_.get(), column);
}

std::string Query::Text(int column) const {
  const std::span<const std::byte> bytes = Blob(column);
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::span<const std::byte> Query::Blob(int column) const {
  const void* bytes = sqlite3_column_blob(statement_.get(), column);
  const int size = sqlite3_column_bytes(statement_.get(), column);
  return {static_cast<const std::byte*>(bytes), static_cast<std::size_t>(size)};
}

Transaction::Transaction(Database& database) : database_(database) {
  database_.Run("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
  if (open_) sqlite3_exec(database_.Handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

Status Transaction::Commit() {
  database_.Run("COMMIT");
  if (!database_.Failed()) open_ = false;
  return database_.Outcome();
}

}  // namespace vistaplot
