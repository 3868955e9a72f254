// A connection to an SQLite file and the statements that run on it.
//
// The first failure of a connection sticks: what is asked for afterwards does nothing, so that a
// caller may run a whole sequence and look at Outcome() once, at its end. Failures carry a QL_
// status as their number and a sentence for the user as their description.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "base/result.h"

namespace vistaplot {

/// kTrial reads the file into memory: what is changed there changes nothing else.
enum class Access { kRead, kTrial, kWrite, kCreate };

class Database {
 public:
  /// Opens the file of that name. kRead and kTrial ask for no right to write: in a folder that
  /// cannot be written the file is read as one that never changes, or refused when a log lies there
  /// whose changes would be missed. kCreate makes the file.
  static Result<Database> Open(const std::string& path, Access access);

  /// Goes on with a copy in memory of what the file holds now.
  void TakeIntoMemory();

  /// Runs statements that return nothing.
  void Run(const char* sql);

  bool Failed() const { return failure_ != SQLITE_OK; }
  Status Outcome() const;
  bool IsDamaged() const { return (failure_ & 0xFF) == SQLITE_CORRUPT; }  ///< the failure

  /// Forgets the failure, for callers that have an answer to it.
  void Forgive() { failure_ = SQLITE_OK; }

  /// Notes the result of an SQLite call; false when it, or an earlier one, is a failure.
  bool Note(int result);

  sqlite3* Handle() const { return handle_.get(); }
  const std::string& Path() const { return path_; }

  /// True when the file is read as one that never changes: a change shows only after opening anew.
  bool IsImmutable() const { return is_immutable_; }

 private:
  struct Closer {
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
  };

  std::unique_ptr<sqlite3, Closer> handle_;
  std::string path_;
  bool is_immutable_ = false;
  int failure_ = SQLITE_OK;
  std::string failure_text_;
};

/// One prepared statement. Columns and parameters count from 0 and 1, as SQLite's do.
class Query {
 public:
  Query(Database& database, const char* sql);

  Query& Bind(int parameter, std::int64_t value);
  Query& Bind(int parameter, std::string_view text);
  /// The bytes are not copied: they must stay until the statement has run.
  Query& Bind(int parameter, std::span<const std::byte> bytes);

  /// True when a row stands ready; false at the end and on a failure.
  bool Next();

  /// Runs a statement without rows and makes it ready to be bound and run again.
  void RunOnce();

  std::int64_t Integer(int column) const;
  std::string Text(int column) const;
  std::span<const std::byte> Blob(int column) const;  ///< valid until the next row

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };

  Database* database_;
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

/// A change that happens as a whole or not at all: undone at the end of the scope unless
/// committed. Waits for another writer up to the connection's patience.
class Transaction {
 public:
  explicit Transaction(Database& database);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  Status Commit();

 private:
  Database& database_;
  bool open_ = true;
};

}  // namespace vistaplot
