// Damage by single bits over a whole database: each is told or does no harm. Then the program on a
// full disk, what it says and what it leaves: a limit on the size of files stands for the disk,
// "/dev/full" for one on which is printed.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "quoteline/administration.h"
#include "quoteline/check.h"
#include "quoteline/price_import.h"
#include "quoteline/service.h"
#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

// In memory where that is to be had: the tests open the database some sixty thousand times.
std::filesystem::path FastestFolder() {
  std::error_code ignored;
  const std::filesystem::path memory = "/dev/shm";
  return std::filesystem::is_directory(memory, ignored) ? memory
                                                        : std::filesystem::temp_directory_path();
}

/// An issue as a reader gets it.
struct Issue {
  std::string head;                          // symbol, name, days, number of prices
  std::optional<std::vector<float>> prices;  // nothing: the fetch said that it is damaged
  bool operator==(const Issue&) const = default;
};

/// Everything that a reader gets; nothing when the service does not open.
std::optional<std::vector<Issue>> ReadAll(const std::string& directory) {
  auto opened = Service::Open(directory);
  if (!opened) return std::nullopt;
  Service& service = *opened.Value();
  std::vector<Issue> issues;
  for (const IssueSummary& issue : service.List()) {
    Issue& read = issues.emplace_back();
    read.head = SymbolText(issue.symbol) + " " + std::string(issue.name) + " " +
                std::to_string(service.Days()[static_cast<std::size_t>(issue.first_day - 1)]) +
                " " + std::to_string(issue.last_day) + " " + std::to_string(issue.prices);
    std::vector<float> prices(service.Days().size() + 1);
    if (service.Fetch(issue.symbol, prices.data()) == 0) read.prices = prices;
  }
  return issues;
}

/// A database of a few small pages, whose bytes the tests change.
class BitFlips : public testing::Test {
 protected:
  BitFlips() {
    EXPECT_TRUE(InitService(folder_.Path()));
    EXPECT_TRUE(
        Import("Symbol,Date,Close,Name\nAAA,2000-01-03,10,First\nAAA,2000-01-05,12,\n"
               "BBB,2000-01-04,7.25,Second\nBBB,2000-01-05,60.42,\n"));
    sqlite3* handle = nullptr;
    sqlite3_open(folder_.Path("quoteline.db").c_str(), &handle);
    // Without the log no side files are made and removed at each opening.
    sqlite3_exec(handle,
                 "PRAGMA journal_mode = DELETE; PRAGMA page_size = 512; VACUUM;",
                 nullptr,
                 nullptr,
                 nullptr);
    sqlite3_close(handle);
    intact_ = folder_.Read("quoteline.db");
    original_ = *ReadAll(folder_.Path());
  }

  bool Import(const std::string& text) {
    ImportRequest request;
    request.directory = folder_.Path();
    request.files = {folder_.Write("new.csv", text)};
    return ImportPrices(request).faults.empty();
  }

  // Changes one bit of the database as it was at first.
  void Flip(std::size_t bit) {
    std::string bytes = intact_;
    bytes[bit / 8] = static_cast<char>(bytes[bit / 8] ^ static_cast<char>(1U << (bit % 8)));
    folder_.Write("quoteline.db", bytes);
  }

  // Writing takes longer: a bit of every third byte, each place of it in turn.
  std::size_t BitOfByte(std::size_t byte) const { return byte * 8 + byte % 8; }

  test::TemporaryFolder folder_{FastestFolder()};
  std::string intact_;
  std::vector<Issue> original_;
};

// The original issues, in their order, each as it was or told to be damaged.
bool IsOriginalOrTold(const std::vector<Issue>& read, const std::vector<Issue>& original) {
  if (read.size() != original.size()) return false;
  for (std::size_t i = 0; i < read.size(); ++i) {
    if (read[i].head != original[i].head) return false;
    if (read[i].prices && read[i].prices != original[i].prices) return false;
  }
  return true;
}

/// A quarter of all bits, so that the quarters can run side by side.
class EveryBit : public BitFlips, public testing::WithParamInterface<std::size_t> {};

TEST_P(EveryBit, IsToldByReaderAndCheckOrChangesNothing) {
  ASSERT_LT(intact_.size(), 6000U);
  std::fstream file(folder_.Path("quoteline.db"), std::ios::in | std::ios::out | std::ios::binary);
  const auto put = [&file](std::size_t byte, int value) {
    file.seekp(static_cast<std::streamoff>(byte));
    file.put(static_cast<char>(value)).flush();
  };
  std::size_t told = 0;
  for (std::size_t bit = GetParam(); bit < intact_.size() * 8; bit += 4) {
    if (bit >= 8) put(bit / 8 - 1, intact_[bit / 8 - 1]);
    put(bit / 8, intact_[bit / 8] ^ (1 << (bit % 8)));
    const auto read = ReadAll(folder_.Path());
    if (read == original_) continue;  // then the check may say what it likes
    ASSERT_TRUE(!read || IsOriginalOrTold(*read, original_)) << "bit " << bit;
    ASSERT_FALSE(CheckService(folder_.Path()).faults.empty()) << "bit " << bit;
    ++told;
  }
  EXPECT_GT(told, 1000U);
}

INSTANTIATE_TEST_SUITE_P(Quarters, EveryBit, testing::Range<std::size_t>(0, 4));

TEST_F(BitFlips, AnImportIsRefusedOrGivesWhatItGivesWithoutThem) {
  const std::string more = "Date,CCC,BBB\n2000-01-04,5,9.5\n2000-01-06,6,\n";
  ASSERT_TRUE(Import(more));
  const auto expected = ReadAll(folder_.Path());
  std::size_t taken = 0;
  for (std::size_t byte = 0; byte < intact_.size(); byte += 3) {
    Flip(BitOfByte(byte));
    if (!Import(more)) continue;
    ++taken;
    const auto read = ReadAll(folder_.Path());
    if (read == expected) continue;
    // A damaged history that the import had nothing to do with is damaged as before.
    ASSERT_TRUE(read && IsOriginalOrTold(*read, *expected)) << "byte " << byte;
    ASSERT_FALSE(CheckService(folder_.Path()).faults.empty()) << "byte " << byte;
  }
  EXPECT_GT(taken, 50U);
}

TEST_F(BitFlips, RebuildingNeverMakesThemTheTruth) {
  std::size_t mended = 0;
  for (std::size_t byte = 0; byte < intact_.size(); byte += 3) {
    Flip(BitOfByte(byte));
    const bool was_damaged = !CheckService(folder_.Path()).faults.empty();
    if (!RebuildSymbols(folder_.Path())) continue;
    const auto read = ReadAll(folder_.Path());
    ASSERT_TRUE(read && IsOriginalOrTold(*read, original_)) << "byte " << byte;
    const bool is_damaged = !CheckService(folder_.Path()).faults.empty();
    ASSERT_TRUE(is_damaged || read == original_) << "byte " << byte;
    if (was_damaged && !is_damaged) ++mended;
  }
  // Rows, calendar and index are held twice.
  EXPECT_GT(mended, 50U);
}

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
