// How a service directory comes about: by one at a time, whole or not at all.
#include "quoteline/store_creation.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "quoteline/administration.h"
#include "quoteline/check.h"
#include "quoteline/sample.h"
#include "quoteline/store.h"
#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

using Lines = std::vector<std::string>;

Lines NamesIn(const std::string& folder) {
  Lines names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// Runs the same in some processes at once; how many of them succeed.
template <class Work>
int InProcesses(int count, Work work) {
  int gate[2];
  if (::pipe(gate) != 0) return -1;
  for (int i = 0; i < count; ++i) {
    if (::fork() != 0) continue;
    char byte = 0;
    ::close(gate[1]);
    static_cast<void>(!::read(gate[0], &byte, 1));  // until all are there
    ::_exit(work() ? 0 : 1);
  }
  ::close(gate[0]);
  ::close(gate[1]);
  int succeeded = 0;
  for (int i = 0; i < count; ++i) {
    int status = 0;
    ::wait(&status);
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) ++succeeded;
  }
  return succeeded;
}

TEST(StoreCreation, ManyThatMakeTheSameDirectoryAtOnceAllSucceed) {
  for (int round = 0; round < 15; ++round) {
    const test::TemporaryFolder folder;
    const std::string directory = folder.Path("a/service");
    ASSERT_EQ(InProcesses(3, [&] { return bool(InitService(directory)); }), 3) << round;
    ASSERT_EQ(CheckService(directory).faults, Lines{});
    ASSERT_EQ(NamesIn(directory), (Lines{"QL4WIN", "QLDEF", "SIG", "USERDEF", "quoteline.db"}));
  }
}

TEST(StoreCreation, OfTwoSamplesAtOnceOneFillsTheDirectory) {
  for (int round = 0; round < 4; ++round) {
    const test::TemporaryFolder folder;
    const std::string directory = folder.Path("service");
    ASSERT_EQ(InProcesses(2, [&] { return bool(FillWithSample(directory)); }), 1) << round;
    const CheckReport report = CheckService(directory);
    ASSERT_EQ(report.faults, Lines{});
    ASSERT_EQ(report.issues, 68U);
  }
}

TEST(StoreCreation, NeverTakesTheNameOfAnotherFile) {
  const test::TemporaryFolder folder;
  folder.Write("quoteline.db", "mine");
  EXPECT_FALSE(CreateStore(folder.Path()));
  EXPECT_FALSE(InitService(folder.Path()));
  EXPECT_EQ(folder.Read("quoteline.db"), "mine");
  EXPECT_EQ(NamesIn(folder.Path()), Lines{"quoteline.db"});
}

TEST(StoreCreation, LeavesTheLogOfADatabaseThatIsGone) {
  const test::TemporaryFolder folder;
  folder.Write("quoteline.db-wal", "the last changes");
  const auto made = InitService(folder.Path());
  ASSERT_FALSE(made);
  EXPECT_NE(PlainText(made.Error()).find("quoteline.db-wal: is the log"), std::string::npos);
  EXPECT_EQ(NamesIn(folder.Path()), Lines{"quoteline.db-wal"});
}

TEST(StoreCreation, RemovesDraftsOfMakersThatDied) {
  const test::TemporaryFolder folder;
  folder.Write("quoteline.db.123-456.new", "half");
  folder.Write("quoteline.db.123-456.new-journal", "half");
  folder.Write("quoteline.db.bak", "mine");
  ASSERT_TRUE(CreateStore(folder.Path()));
  EXPECT_EQ(NamesIn(folder.Path()), (Lines{"quoteline.db", "quoteline.db.bak"}));
}

TEST(StoreCreation, ItsOwnerMayReadAndWriteItWhateverTheMask) {
  const test::TemporaryFolder folder;
  const mode_t before = ::umask(0277);
  const bool made = CreateStore(folder.Path()).Ok();
  ::umask(before);
  struct stat info {};
  ASSERT_EQ(::stat(folder.Path("quoteline.db").c_str(), &info), 0);
  EXPECT_TRUE(made);
  EXPECT_EQ(info.st_mode & 0777U, 0600U);
}

}  // namespace
}  // namespace vistaplot
