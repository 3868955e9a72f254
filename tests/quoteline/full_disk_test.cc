// The program on a full disk: what it says, and what it leaves. A limit on the size of files stands
// for the disk; "/dev/full" is one for what is printed.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

class FullDisk : public testing::Test {
 protected:
  /// Runs the program under a shell whose files may grow to `limit` bytes; its exit status.
  int Call(const std::string& arguments, rlim_t limit = RLIM_INFINITY) {
    const pid_t child = ::fork();
    if (child == 0) {
      const struct rlimit both { limit, limit };
      // Without the signal the writing call fails, as it does on a full disk.
      std::signal(SIGXFSZ, SIG_IGN);
      ::setrlimit(RLIMIT_FSIZE, &both);
      const std::string command = std::string(QUOTELINE_PROGRAM) + " --dir " + Directory() + " " +
                                  arguments + " 2>" + folder_.Path("errors");
      ::execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
      ::_exit(127);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  std::string Directory() const { return folder_.Path("made/service"); }
  std::string Errors() const { return folder_.Read("errors"); }

  test::TemporaryFolder folder_;
};

constexpr rlim_t kKilobyte = 1024;

TEST_F(FullDisk, InitAndDemoSayWhyAndLeaveNothing) {
  const struct {
    const char* command;
    std::vector<rlim_t> kilobytes;
  } cases[] = {{"init", {1, 64, 200, 380}}, {"demo", {1, 200, 400, 1000, 2000}}};
  for (const auto& one : cases) {
    for (const rlim_t size : one.kilobytes) {
      const std::string output = " >" + folder_.Path("out");
      EXPECT_EQ(Call(one.command + output, size * kKilobyte), 1) << one.command << " " << size;
      EXPECT_NE(Errors().find("quoteline.db"), std::string::npos) << Errors();
      EXPECT_NE(Errors().find("files may grow to"), std::string::npos) << Errors();
      EXPECT_FALSE(std::filesystem::exists(folder_.Path("made"))) << one.command << " " << size;
      EXPECT_EQ(folder_.Read("out"), "");
    }
  }
}

TEST_F(FullDisk, AnImportThatDoesNotFitChangesNothing) {
  ASSERT_EQ(Call("init >/dev/null"), 0);
  std::string text = "Date,Close\n";
  for (int day = 1; day <= 31; ++day) text += "1/" + std::to_string(day) + "/2000,5\n";
  folder_.Write("A.csv", text);
  const std::string import = "import " + folder_.Path("A.csv") + " >" + folder_.Path("out");
  EXPECT_EQ(Call(import, 40 * kKilobyte), 1);
  EXPECT_NE(Errors().find("nothing was stored"), std::string::npos) << Errors();
  EXPECT_EQ(Call("check >" + folder_.Path("out")), 0);
  EXPECT_EQ(folder_.Read("out"), "no fault in 0 issues, 0 market days, 0 FNU series, 0 families\n");
  EXPECT_EQ(Call(import), 0);
}

TEST_F(FullDisk, WhatCannotBePrintedWholeIsAFault) {
  ASSERT_EQ(Call("demo >/dev/null"), 0);
  for (const char* command : {"prices EQINX", "list", "check", "rebuild", "--help", "--version"}) {
    EXPECT_EQ(Call(std::string(command) + " >/dev/full"), 1) << command;
    EXPECT_NE(Errors().find("cannot write to standard output: "), std::string::npos)
        << command << ": " << Errors();
  }
  // Cut in the middle, where the rest of the buffer still fits.
  EXPECT_EQ(Call("prices EQINX >" + folder_.Path("out"), 8 * kKilobyte), 1);
  EXPECT_NE(Errors().find("File too large"), std::string::npos) << Errors();
}

}  // namespace
}  // namespace vistaplot
