// Readers without the right to write, and side files whose rights keep others from them.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "quoteline/check.h"
#include "support/quoteline_world.h"

namespace vistaplot {
namespace {

using test::QuotelineWorld;
using Lines = std::vector<std::string>;
namespace fs = std::filesystem;

/// For its time this process may read the folder and not write it, also when it runs as root.
class WithoutRights {
 public:
  explicit WithoutRights(const std::string& folder) : folder_(folder) {
    ::chmod(folder.c_str(), 0555);
    if (::geteuid() == 0) was_root_ = ::seteuid(kNobody) == 0;
  }
  ~WithoutRights() {
    if (was_root_) static_cast<void>(!::seteuid(0));
    ::chmod(folder_.c_str(), 0755);
  }
  WithoutRights(const WithoutRights&) = delete;
  WithoutRights& operator=(const WithoutRights&) = delete;

 private:
  static constexpr uid_t kNobody = 65'534;
  std::string folder_;
  bool was_root_ = false;
};

/// A service whose last import lies in the log alone, as after a crash; no shared-memory file.
void LeaveTheLog(QuotelineWorld& world) {
  world.Import("A.csv", "Date,Close\n2000-01-03,10\n");
  sqlite3* reader = nullptr;  // holds the log back while the import is made
  sqlite3_open(world.folder.Path("quoteline.db").c_str(), &reader);
  sqlite3_exec(reader, "BEGIN; SELECT * FROM issues", nullptr, nullptr, nullptr);
  world.Import("B.csv", "Date,Close\n2000-01-04,7\n");
  for (const char* name : {"quoteline.db", "quoteline.db-wal"}) {
    fs::copy_file(world.folder.Path(name), world.files.Path(name));
  }
  sqlite3_close(reader);
  for (const char* name : {"quoteline.db", "quoteline.db-wal"}) {
    fs::rename(world.files.Path(name), world.folder.Path(name));
  }
  fs::remove(world.folder.Path("quoteline.db-shm"));
}

TEST(DatabaseRights, AReaderWithoutThemIsToldOfALogThatItCannotRead) {
  QuotelineWorld world;
  LeaveTheLog(world);
  ASSERT_GT(fs::file_size(world.folder.Path("quoteline.db-wal")), 0U);
  {
    const WithoutRights guard(world.folder.Path());
    const Lines told = world.List();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_NE(told[0].find("quoteline.db-wal: holds changes that cannot be read"),
              std::string::npos)
        << told[0];
    EXPECT_EQ(QLopen(), QL_NO_DATABASE);
    EXPECT_EQ(CheckService(world.folder.Path()).faults.size(), 1U);
  }
  EXPECT_EQ(world.List(), (Lines{"A 2000-01-03 2000-01-03 1 A", "B 2000-01-04 2000-01-04 1 B"}));
  world.folder.Write("C.csv", "Date,Close\n2000-01-05,3\n");
  ::chmod(world.folder.Path("quoteline.db").c_str(), 0666);  // but not the folder
  {
    const WithoutRights guard(world.folder.Path());
    EXPECT_EQ(world.List().size(), 2U);  // the log is taken up
    ImportRequest request = test::DryRun();
    request.directory = world.folder.Path();
    request.files = {world.folder.Path("C.csv")};
    EXPECT_EQ(ImportPrices(request).changes.size(), 1U);
    const Lines told = world.ImportFiles(request.files).faults;
    ASSERT_EQ(told.size(), 1U);
    EXPECT_NE(told[0].find("quoteline.db: you may not write in its folder"), std::string::npos)
        << told[0];
  }
}

TEST(DatabaseRights, SideFilesThatTheirOwnerMayNotWriteAreOpenedToHim) {
  QuotelineWorld world;
  LeaveTheLog(world);
  ::chmod(world.folder.Path("quoteline.db-wal").c_str(), 0400);
  // Root may write all the same: the rights themselves show what others would meet.
  sqlite3* reader = nullptr;
  sqlite3_open(world.folder.Path("quoteline.db").c_str(), &reader);
  sqlite3_exec(reader, "BEGIN; SELECT * FROM issues", nullptr, nullptr, nullptr);
  ::chmod(world.folder.Path("quoteline.db-shm").c_str(), 0400);
  EXPECT_EQ(world.List().size(), 2U);
  for (const char* name : {"quoteline.db-wal", "quoteline.db-shm"}) {
    EXPECT_EQ(fs::status(world.folder.Path(name)).permissions() & fs::perms::owner_all,
              fs::perms::owner_read | fs::perms::owner_write)
        << name;
  }
  sqlite3_close(reader);
}

}  // namespace
}  // namespace vistaplot
